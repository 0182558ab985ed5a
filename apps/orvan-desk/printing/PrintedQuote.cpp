#include "PrintedQuote.h"

#include "apps/orvan-desk/OutsideText.h"

#include "orvan/base/Int128.h"
#include "orvan/base/RoundedAmount.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/components/products/ProductsString.h"
#include "orvan/ui/icu/LocaleData.h"

#include <QCoreApplication>
#include <QImageReader>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace orvan::desk {

namespace {

constexpr int kMostLogoPixels = 2400; // a side; more would not be seen on paper, but makes the file large

/// Every kind of line break as one line feed; other control characters, which have no place on paper, as a mark.
QString printable(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (QChar& c : text) {
        if (c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator || c == u'\v' || c == u'\f') {
            c = u'\n';
        } else if (c == u'\t') {
            c = u' ';
        } else if (c != u'\n' && c.category() == QChar::Other_Control) {
            c = QChar::ReplacementCharacter;
        }
    }
    return text;
}

QString fromUtf8(const std::string& text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// As many decimals as the amount has, but at least `least`.
int digitsOf(Currency amount, int least)
{
    int digits = Currency::kDecimals;
    std::uint64_t rest = amount.magnitude();
    while (digits > least && rest % 10 == 0) {
        rest /= 10;
        --digits;
    }
    return std::max(digits, least);
}

QImage readLogo(const QString& file, QStringList& problems)
{
    if (file.isEmpty()) {
        return {};
    }
    QImageReader reader(file);
    reader.setAutoTransform(true);
    QImage logo = reader.read();
    if (logo.isNull()) {
        problems << QCoreApplication::translate("PrintedQuote", "The logo “%1” cannot be printed: %2.")
                        .arg(shortened(file), reader.errorString());
        return {};
    }
    if (std::max(logo.width(), logo.height()) > kMostLogoPixels) {
        logo = logo.scaled(kMostLogoPixels, kMostLogoPixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    return logo;
}

/// Writes the cells of one line.
class CellWriter {
public:
    CellWriter(ui::LocaleService& money, int moneyDigits) : money_(money), digits_(moneyDigits) {}

    QString text(PrintColumn column, const ProductValues& product, std::size_t position) const
    {
        switch (column) {
        case PrintColumn::position: return QString::number(position);
        case PrintColumn::partNumber: return printable(fromUtf8(product.partNum));
        case PrintColumn::name: return printable(fromUtf8(product.name));
        case PrintColumn::note: return printable(fromUtf8(product.note));
        case PrintColumn::quantity: return number(product.qty);
        // A unit price of a part of a cent is printed whole, or else quantity times price would not give the price.
        case PrintColumn::unitPrice: return amount(product.unitPrice, digitsOf(product.unitPrice, digits_));
        case PrintColumn::discount: return product.discPrcnt == Currency() ? QString() : percent(product.discPrcnt);
        case PrintColumn::extendedPrice: return amount(product.extPrice);
        }
        return {};
    }
    QString amount(Currency value) const { return amount(value, digits_); }
    QString percent(Currency value) const { return number(value) + u'%'; }
    /// The amount as it is printed, in units of the last decimal printed. No more than an amount's decimals are kept.
    std::int64_t printedUnits(Currency value) const
    {
        return shownUnits(value, std::min(digits_, Currency::kDecimals));
    }

private:
    QString amount(Currency value, int digits) const { return fromUtf8(money_.formatCurrency(value, digits)); }
    QString number(Currency value) const { return fromUtf8(money_.formatNumber(value, digitsOf(value, 0))); }

    ui::LocaleService& money_;
    int digits_;
};

std::vector<PrintedColumn> columnsOf(const PrintOptions& options, const PrintTexts& texts)
{
    const PrintedColumn all[] = {
        {PrintColumn::position, texts.position, true},
        {PrintColumn::partNumber, texts.partNumber, false},
        {PrintColumn::name, texts.product, false},
        {PrintColumn::quantity, texts.quantity, true},
        {PrintColumn::unitPrice, texts.unitPrice, true},
        {PrintColumn::discount, texts.discount, true},
        {PrintColumn::extendedPrice, texts.extendedPrice, true},
    };
    std::vector<PrintedColumn> columns;
    std::copy_if(std::begin(all), std::end(all), std::back_inserter(columns),
                 [&](const PrintedColumn& column) { return !options.leftOut.contains(column.kind); });
    return columns;
}

/// The sum of the quote's lines.
struct Sum {
    Currency exact;
    Int128 printed = 0; ///< Of the prices as they are printed, in units of the last decimal printed.
};

/// Adds the quote's lines.
Sum addLines(PrintedQuote& printed, const std::string& products, const CellWriter& writer, bool withNotes)
{
    Sum sum;
    ProductValues product;
    ProductsReader reader(products, ProductsSeparators());
    printed.lines.reserve(reader.expected());
    while (reader.more()) {
        reader.next(product);
        sum.exact = sum.exact + product.extPrice;
        sum.printed += writer.printedUnits(product.extPrice);
        PrintedLine& line = printed.lines.emplace_back();
        line.cells.reserve(printed.columns.size());
        for (const PrintedColumn& column : printed.columns) {
            line.cells.push_back(writer.text(column.kind, product, printed.lines.size()));
        }
        if (withNotes) {
            line.note = writer.text(PrintColumn::note, product, 0);
        }
    }
    return sum;
}

} // namespace

TaxedAmount taxed(Currency net, Currency rate, int digits)
{
    const auto unit = static_cast<Int128>(Currency::kPowersOfTen[Currency::kDecimals - digits]);
    const Int128 divisor = Int128{100} * Currency::kScale * unit; // the rate is in ten-thousandths of a percent
    const Int128 product = Int128{net.scaled()} * rate.scaled();
    const Int128 half = product < 0 ? -divisor / 2 : divisor / 2;
    const Int128 tax = (product + half) / divisor * unit; // the division drops the rest, so that halves go away from 0
    if (tax > std::numeric_limits<std::int64_t>::max() || tax < std::numeric_limits<std::int64_t>::min()) {
        throw RuntimeError(ErrorNumber::overflow, {}, "the tax is beyond the range of amounts");
    }
    const Currency amount = Currency::fromScaled(static_cast<std::int64_t>(tax));
    return {.net = net, .tax = amount, .gross = net + amount};
}

PrintedQuote makePrintedQuote(const Quote& quote, const PrintOptions& options, ui::LocaleService& money,
                              const QLocale& locale)
{
    PrintedQuote printed;
    printed.texts = printTexts(locale);
    printed.rightToLeft = locale.textDirection() == Qt::RightToLeft;
    printed.sellerName = printable(options.sellerName);
    printed.sellerAddress = printable(options.sellerAddress);
    printed.closingText = printable(options.closingText);
    printed.logo = readLogo(options.logoFile, printed.problems);
    const PrintTexts& texts = printed.texts;
    const QString date = locale.toString(quote.date, QLocale::LongFormat);
    for (const auto& [label, text] : {std::pair(texts.customer, quote.customer), std::pair(texts.number, quote.number),
                                      std::pair(texts.date, date), std::pair(texts.currency, quote.currency)}) {
        if (!text.isEmpty()) {
            printed.facts.push_back({label, printable(text)});
        }
    }
    QStringList head{quote.number.isEmpty() ? texts.quote : texts.quote + u' ' + shortened(quote.number)};
    head << (quote.customer.isEmpty() ? QStringList() : QStringList(shortened(quote.customer))) << date;
    printed.runningHead = head.join(QStringLiteral("  ·  "));
    printed.columns = columnsOf(options, texts);

    const int digits = quote.currency.isEmpty() ? 2 : icu::currencyDigits(quote.currency.toStdString());
    const CellWriter writer(money, digits);
    const Sum sum = addLines(printed, quote.products, writer, !options.leftOut.contains(PrintColumn::note));
    const bool rowsAreSeen = !options.leftOut.contains(PrintColumn::extendedPrice);
    bool addsUp = !rowsAreSeen || sum.printed == writer.printedUnits(sum.exact);
    if (options.showTax) {
        const TaxedAmount taxedSum = taxed(sum.exact, options.taxRate, digits);
        printed.totals = {{texts.net, writer.amount(taxedSum.net)},
                          {texts.tax.arg(writer.percent(options.taxRate)), writer.amount(taxedSum.tax)},
                          {texts.total, writer.amount(taxedSum.gross)}};
        addsUp = addsUp && Int128{writer.printedUnits(taxedSum.net)} + writer.printedUnits(taxedSum.tax) ==
                               writer.printedUnits(taxedSum.gross);
    } else {
        printed.totals = {{texts.total, writer.amount(sum.exact)}};
    }
    if (!addsUp) {
        printed.note = texts.rounded;
    }
    return printed;
}

} // namespace orvan::desk
