// What is printed: sums, texts, what is left out, what is missing.
#include "printing/PrintedQuote.h"
#include "orvan/hosting/Host.h"
#include "orvan/ui/headless/HeadlessPlatform.h"
#include "printing/QuotePdf.h"
#include "tests/support/QtEnvironment.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"

#include <QFile>

namespace orvan::desk {
namespace {

using test::forEachRow;

TEST(PrintedQuote, TheTaxIsExactAndRoundedOnce)
{
    struct Row {
        const char *name, *net, *rate;
        int digits;
        const char* result; // tax and gross
    };
    const Row rows[] = {
        {"whole", "100", "19", 2, "19 119"},
        {"half of a cent goes up", "0.03", "50", 2, "0.02 0.05"},
        {"and down below zero", "-0.03", "50", 2, "-0.02 -0.05"},
        {"less than half", "0.01", "49.9999", 2, "0 0.01"},
        {"a net of parts of a cent", "8978.925", "19", 2, "1706 10684.925"},
        {"a rate of four decimals", "10000", "8.8755", 2, "887.55 10887.55"},
        {"yen have no decimals", "105", "10", 0, "11 116"},
        {"dinars have three", "0.1", "5.5", 3, "0.006 0.106"},
        {"four decimals", "0.0003", "50", 4, "0.0002 0.0005"},
        {"large, where a double is not exact", "90071992547409.93", "7", 2, "6305039478318.7 96377032025728.63"},
        {"beyond the range", "922337203685477.5807", "19", 2, "error 6"},
    };
    forEachRow(rows, [](const Row& row) {
        const auto fixed = [](const char* text) { return Currency::fromText(text); };
        EXPECT_EQ(test::textOrError([&] {
                      const TaxedAmount sum = taxed(fixed(row.net), fixed(row.rate), row.digits);
                      return sum.tax.toText() + " " + sum.gross.toText();
                  }),
                  row.result);
    });
}

const Quote kQuote{.customer = QStringLiteral("A\r\nB\x07"),
                   .number = QStringLiteral("N-1"),
                   .date = QDate(2026, 11, 20),
                   .products = "2~Screw:K:S-1:0.0125:1000:0:12.5:one\ntwo~Lamp::L-7:1234.5:1.5:10:1666.575:~",
                   .currency = QStringLiteral("USD")};

PrintedQuote printed(const PrintOptions& options, const char* locale, const Quote& quote = kQuote)
{
    icu::LocaleNames names{.monetary = locale, .numeric = locale, .currency = quote.currency.toStdString()};
    return makePrintedQuote(quote, options, *makeLocaleService(names), QLocale(QLatin1String(locale)));
}

std::string textOf(const PrintedQuote& quote)
{
    QStringList text;
    for (const PrintedColumn& column : quote.columns) {
        text << column.caption;
    }
    for (const PrintedLine& line : quote.lines) {
        text << QStringLiteral("|") << QStringList(line.cells.begin(), line.cells.end()) << line.note;
    }
    for (const PrintedPair& total : quote.totals) {
        text << QStringLiteral("|") << total.label << total.text;
    }
    return text.join(u' ').replace(u'\u00A0', u'_').toStdString();
}

TEST(PrintedQuote, TextsAreInTheUsersLocaleAndAmountsInTheQuotesCurrency)
{
    struct Row {
        const char *name, *locale, *currency;
        PrintOptions options;
        const char* text;
    };
    const auto rate = Currency::fromText("7.7");
    const std::set<PrintColumn> most{PrintColumn::position,  PrintColumn::partNumber, PrintColumn::note,
                                     PrintColumn::unitPrice, PrintColumn::discount,   PrintColumn::quantity};
    const Row rows[] = {
        {"dollars in Germany",
         "de_DE",
         "USD",
         {},
         "Pos. Artikelnummer Artikel Menge Einzelpreis Rabatt Preis"
         " | 1 S-1 Screw 1.000 0,0125_$  12,50_$ one\ntwo"
         " | 2 L-7 Lamp 1,5 1.234,50_$ 10% 1.666,58_$ "
         " | Gesamtbetrag 1.679,08_$"},
        {"tax",
         "en_US",
         "EUR",
         {.leftOut = most, .showTax = true, .taxRate = rate},
         "Product Price | Screw €12.50  | Lamp €1,666.58  | Net €1,679.08 | Tax 7.7% €129.29 | Total €1,808.37"},
        {"no decimals", "en_US", "JPY", {.leftOut = most}, "Product Price | Screw ¥13  | Lamp ¥1,667  | Total ¥1,679"},
        {"a language that the desk does not have",
         "fi_FI",
         "EUR",
         {.leftOut = most},
         "Product Price | Screw 12,50_€  | Lamp 1_666,58_€  | Total 1_679,08_€"},
    };
    forEachRow(rows, [](const Row& row) {
        Quote quote = kQuote;
        quote.currency = QLatin1String(row.currency);
        EXPECT_EQ(textOf(printed(row.options, row.locale, quote)), row.text);
    });
    EXPECT_EQ(printed({}, "en_US").facts.front().text, QStringLiteral("A\nB\ufffd"));
    EXPECT_TRUE(printed({}, "ar_EG").rightToLeft);
}

TEST(PrintedQuote, SaysThatAmountsAreRoundedOnlyWhereTheyDoNotAddUp)
{
    struct Row {
        const char *name, *prices, *currency;
        PrintOptions options;
        bool told;
    };
    const PrintOptions withTax{.showTax = true, .taxRate = Currency::fromInteger(10)};
    const Row rows[] = {
        {"whole cents", "1.25 2.5", "USD", {}, false},
        {"parts of a cent that cancel each other out", "0.004 0.006", "USD", {}, false},
        {"halves", "0.005 0.005", "USD", {}, true},
        {"the same below zero", "-0.005 -0.005", "USD", {}, true},
        {"the same without prices on the paper",
         "0.005 0.005",
         "USD",
         {.leftOut = {PrintColumn::extendedPrice}},
         false},
        {"the same in dinars, which have three decimals", "0.005 0.005", "KWD", {}, false},
        {"halves of a yen", "1.5 1.5", "JPY", {}, true},
        {"with a tax", "1.25 2.5", "USD", withTax, false},
        {"halves with a tax", "0.005 0.005", "USD", withTax, true},
        {"a net below zero, and a total above",
         "-0.015",
         "USD",
         {.showTax = true, .taxRate = Currency::fromInteger(-200)},
         true},
    };
    forEachRow(rows, [](const Row& row) {
        Quote quote = kQuote;
        quote.currency = QLatin1String(row.currency);
        const QStringList prices = QString::fromLatin1(row.prices).split(u' ');
        quote.products = std::to_string(prices.size()) + "~";
        for (const QString& price : prices) {
            quote.products += "x:::0:1:0:" + price.toStdString() + ":~";
        }
        EXPECT_EQ(printed(row.options, "en_US", quote).note,
                  row.told ? QStringLiteral("Amounts are rounded for display.") : QString());
    });
}

TEST(PrintedQuote, AMissingLogoIsToldAndTheRestIsPrinted)
{
    const QTemporaryDir folder;
    const QString text = folder.filePath(QStringLiteral("text.png"));
    const QString picture = folder.filePath(QStringLiteral("picture.png"));
    QFile file(text);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("no picture") > 0);
    file.close();
    ASSERT_TRUE(QImage(20, 10, QImage::Format_RGB32).save(picture));
    struct Row {
        const char* name;
        QString logo;
        qsizetype problems;
    };
    const Row rows[] = {{"none", {}, 0},
                        {"a picture", picture, 0},
                        {"missing", folder.filePath(QStringLiteral("nowhere.png")), 1},
                        {"no picture", text, 1},
                        {"a folder", folder.path(), 1}};
    forEachRow(rows, [](const Row& row) {
        PrintOptions options{.logoFile = row.logo};
        options.page = usualPage();
        const PrintedQuote quote = printed(options, "en_US");
        EXPECT_EQ(quote.problems.size(), row.problems) << quote.problems.join(u' ').toStdString();
        EXPECT_EQ(quote.logo.isNull(), row.logo.isEmpty() || row.problems > 0);
        EXPECT_TRUE(quoteToPdf(quote, options.page).startsWith("%PDF"));
    });
}

TEST(QuotePdf, HasThePagesThatTheUserHasChosen)
{
    PrintedQuote quote = printed({}, "en_US");
    quote.lines.resize(300, quote.lines.front());
    const auto all = static_cast<qsizetype>(layOut(quote, usualPage()).pages.size());
    ASSERT_GT(all, 3);
    struct Row {
        const char* name;
        PageRange range;
        qsizetype pages;
    };
    const Row rows[] = {{"all", {}, all},
                        {"two", {2, 3}, 2},
                        {"from the second on", {2, 0}, all - 1},
                        {"up to the second", {0, 2}, 2},
                        {"more than there are", {1, 1'000}, all},
                        {"behind the last", {1'000, 1'001}, 1}};
    forEachRow(rows, [&](const Row& row) {
        EXPECT_EQ(quoteToPdf(quote, usualPage(), row.range).count("/Type /Page\n"), row.pages);
    });
}

TEST(PrintOptions, AreKeptAndWhatCannotBeUsedIsTold)
{
    headless::HeadlessSettingsStore settings;
    PrintOptions options{.sellerName = QStringLiteral("ä\n=b"),
                         .logoFile = QStringLiteral("/a b.png"),
                         .leftOut = {PrintColumn::note, PrintColumn::discount},
                         .showTax = true,
                         .taxRate = Currency::fromText("7.7")};
    QStringList problems;
    for (const auto& [size, orientation] :
         {std::pair(QPageSize(QPageSize::Letter), QPageLayout::Landscape),
          std::pair(QPageSize(QSizeF(90, 200), QPageSize::Millimeter), QPageLayout::Portrait)}) {
        options.page = QPageLayout(size, orientation, QMarginsF(10, 20, 30, 5), QPageLayout::Millimeter);
        writePrintOptions(settings, options);
        const PrintOptions read = readPrintOptions(settings, problems);
        EXPECT_EQ(read.page.fullRectPoints(), options.page.fullRectPoints());
        EXPECT_EQ(read.page.margins(), options.page.margins());
        EXPECT_EQ(std::tie(read.sellerName, read.logoFile, read.leftOut, read.showTax, read.taxRate),
                  std::tie(options.sellerName, options.logoFile, options.leftOut, options.showTax, options.taxRate));
    }
    EXPECT_TRUE(problems.isEmpty());

    for (const auto& [key, value] :
         {std::pair("TaxRate", "1e9"), std::pair("TaxRate", "100.01"), std::pair("TaxRate", "-1"),
          std::pair("Page", "A4"), std::pair("Page", "A4,portrait,500,1,1,1"),
          std::pair("Page", "1x1,portrait,0,0,0,0"), std::pair("Page", "A4,portrait,nan,1,1,1")}) {
        writePrintOptions(settings, options);
        settings.set(ui::kSettingsApplication, "DeskPrint", key, value);
        problems.clear();
        const PrintOptions read = readPrintOptions(settings, problems);
        EXPECT_EQ(problems.size(), 1) << key << ' ' << value;
        EXPECT_TRUE(read.page.isValid() && isTaxRate(read.taxRate)) << value;
        EXPECT_EQ(read.showTax, std::string_view(key) == "Page") << value;
    }
}

} // namespace
} // namespace orvan::desk
