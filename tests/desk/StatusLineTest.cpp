// What the desk's status line says.

#include "StatusLine.h"
#include "MainWindow.h"
#include "OpenQuote.h"
#include "OutsideText.h"
#include "WatchedProducts.h"
#include "servers/ServerCatalogue.h"

#include "orvan/components/catalogue/CatalogueImport.h"
#include "orvan/components/products/ProductsString.h"
#include "orvan/hosting/ProductViewWidget.h"
#include "tests/desk/QuoteFolder.h"
#include "tests/support/QtEnvironment.h"
#include "tests/support/Rows.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QDir>
#include <QLineEdit>
#include <QLocale>
#include <QStatusBar>
#include <QTest>

namespace orvan::desk {
namespace {

using test::forEachRow;
using testing::ElementsAre;
using testing::HasSubstr;

class StatusLineTest : public test::QuoteFolder {
protected:
    static std::string line(const MainWindow& window) { return window.findChild<StatusLine*>()->text().toStdString(); }
};

TEST_F(StatusLineTest, TheStatusLinesWords)
{
    const QDateTime now(QDate(2026, 3, 1), QTime(9, 0));
    struct Age {
        const char* name;
        QDateTime time;
        const char* text;
    };
    const Age ages[] = {
        {"this morning", now.addSecs(-3600), "today"},
        {"after a clock was put back", now.addDays(2), "today"},
        {"less than a day, but of yesterday", now.addSecs(-36000), "yesterday"},
        {"over the end of a month", now.addDays(-3), "3 days ago"},
        {"weeks", now.addDays(-60), "60 days ago"},
        {"longer", now.addDays(-61), nullptr},
    };
    forEachRow(ages, [&](const Age& row) {
        const QString date = QStringLiteral("on ") + QLocale().toString(row.time.date(), QLocale::ShortFormat);
        EXPECT_EQ(ageText(row.time, now).toStdString(), row.text ? row.text : date.toStdString());
    });
    struct Counts {
        const char* name;
        ProductCounts counts;
        const char* text;
    };
    const Counts counts[] = {
        {"nothing lacks", {9, {}, {}}, "Saved."},
        {"one price", {9, {1, {4}}, {}}, "Saved. 1 without price (#4)."},
        {"prices and a name", {9, {2, {4, 6}}, {1, {6}}}, "Saved. 2 without price (#4, #6), 1 without name (#6)."},
        {"many", {9, {}, {7, {1, 2, 3, 4, 5}}}, "Saved. 7 without name (#1, #2, #3, #4, #5, …)."},
    };
    forEachRow(counts, [&](const Counts& row) { EXPECT_EQ(savedText(row.counts).toStdString(), row.text); });

    const QString catalogue = path("goods.catalogue");
    const QDateTime today = QDateTime::currentDateTime();
    EXPECT_EQ(catalogueText(catalogue, today), u"No catalogue");
    write("list.csv", "part number,product,price\nA,Alpha,1.5\n");
    importCatalogue(folder / "list.csv", folder / "goods.catalogue", {});
    EXPECT_EQ(catalogueText(catalogue, today.addDays(3)).toStdString(), "“list.csv”: 1 entry, imported 3 days ago");
    write("goods.catalogue", "damaged");
    EXPECT_EQ(catalogueText(catalogue, today).toStdString(), "“goods.catalogue” cannot be read");
}

TEST_F(StatusLineTest, HowTheCopyOfAServersCatalogueStands)
{
    write("list.csv", "part number,product,price\nA,Alpha,1.5\n");
    importCatalogue(folder / "list.csv", folder / "present.catalogue", {});
    const QDateTime now(QDate(2026, 3, 1), QTime(9, 0));
    const auto before = [&](int seconds) {
        return std::chrono::system_clock::from_time_t(now.addSecs(-seconds).toSecsSinceEpoch());
    };
    struct Row {
        const char* name;
        bool isThere;
        std::optional<int> percent;
        const char* problem;
        std::optional<std::chrono::system_clock::time_point> checked;
        std::string text;
    };
    const std::string then = timeText(now.addSecs(-7200)).toStdString();
    const Row rows[] = {
        {"the program has just begun", false, {}, "", {}, "Asking db@host for its products"},
        {"the first copy", false, 34, "", {}, "Copying the products of db@host: 34 %"},
        {"no first copy", false, 34, "db@host: no route", {}, "No products of db@host yet: no route"},
        {"all is well", true, {}, "", before(60), "“list.csv”: 1 entry, up to date"},
        {"asleep for long", true, {}, "", before(7200), "“list.csv”: 1 entry, as of " + then},
        {"no server",
         true,
         {},
         "db@host: no route",
         before(7200),
         "“list.csv”: 1 entry, as of " + then + ". No changes come: no route"},
        {"another catalogue", true, 5, "", before(60), "“list.csv”: 1 entry, up to date. Copying anew: 5 %"},
    };
    forEachRow(rows, [&](const Row& row) {
        const CatalogueCopyState state{.server = "db@host",
                                       .copy = folder / (row.isThere ? "present.catalogue" : "none.catalogue"),
                                       .percent = row.percent,
                                       .problem = UserText(row.problem),
                                       .checked = row.checked};
        EXPECT_EQ(copyText(state, now).toStdString(), row.text);
    });
}

TEST_F(StatusLineTest, TheStatusLineFollowsTheQuote)
{
    MainWindow window;
    window.resize(1200, 500);
    window.show();
    ASSERT_TRUE(window.open(write("own.quote.json")));
    const auto becomes = [&](const char* text) { return QTest::qWaitFor([&] { return line(window) == text; }, 3000); };
    EXPECT_TRUE(becomes("3 products   ·   2 without price   ·   1 without name")) << line(window);
    QTest::keyClicks(window.findChild<QLineEdit*>(), QStringLiteral("!"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return line(window).find("Unsaved since ") != std::string::npos; }, 3000));

    for (QAction* const action : window.findChildren<QAction*>()) {
        if (action->shortcut() == QKeySequence(QKeySequence::Save)) {
            action->trigger();
        }
    }
    EXPECT_THAT(window.statusBar()->currentMessage().toStdString(),
                HasSubstr("Saved. 2 without price (#2, #3), 1 without name (#3)."));
    window.statusBar()->clearMessage();
    EXPECT_TRUE(becomes("3 products   ·   2 without price   ·   1 without name")) << line(window);
    window.resize(window.minimumSize());
    QApplication::processEvents();
    EXPECT_THAT(window.findChild<StatusLine*>()->toolTip().toStdString(), HasSubstr("1 without name"));
    EXPECT_EQ(window.size(), window.minimumSize()) << "a long line does not hold the window";
}

TEST_F(StatusLineTest, TheStatusLineWarnsBeforeTheQuoteIsFull)
{
    MainWindow window;
    window.resize(1200, 500);
    window.show();
    window.onProblem = [](const QString&) {};
    auto& products = *window.findChild<ProductViewWidget*>();
    struct Row {
        const char* name;
        double full;
        const char* text;
    };
    const Row rows[] = {
        {"below", 0.895, "1 product   ·"},
        {"from here on", 0.905, "The quote holds 90 % of what it can hold   ·   1 product   ·"},
        {"nearly full", 0.995, "The quote holds 99 % of what it can hold   ·   1 product   ·"},
        {"too large", 1.005, "The quote holds more than can be saved   ·   1 product   ·"},
    };
    forEachRow(rows, [&](const Row& row) {
        ProductValues lamp;
        lamp.note = std::string(static_cast<std::size_t>(row.full * 1024 * 1024), 'n');
        std::string list = productsStringHead(1, {});
        appendProduct(list, lamp, {});
        products.Show(list);
        window.findChild<StatusLine*>()->lookAgain();
        EXPECT_THAT(line(window) + "   ·", testing::StartsWith(row.text));
    });
}

TEST_F(StatusLineTest, CountingLeavesNoWordInTheTrace)
{
    MainWindow window;
    window.show();
    ASSERT_TRUE(window.open(write("own.quote.json")));
    const auto traced = [] {
        std::string text;
        const QDir traces(qEnvironmentVariable("XDG_STATE_HOME") + QStringLiteral("/orvan"));
        for (const QFileInfo& file : traces.entryInfoList({QStringLiteral("trace-*")}, QDir::Files)) {
            text += test::readText(pathOf(file.filePath()));
        }
        return text.size();
    };
    const std::size_t before = traced();
    window.findChild<StatusLine*>()->lookAgain();
    EXPECT_EQ(traced(), before);
    static_cast<void>(window.findChild<ProductViewWidget*>()->Products());
    EXPECT_GT(traced(), before) << "the test looks where the trace is";
}

TEST_F(StatusLineTest, AListThatIsTooLargeForAStringIsCounted)
{
    MainWindow window;
    std::string products = productsStringHead(2'000, {});
    ProductValues product;
    product.note = std::string(600, 'n');
    for (int at = 0; at < 2'000; ++at) {
        product.name = at % 2 == 0 ? "Product of the catalogue" : "";
        appendProduct(products, product, {});
    }
    window.findChild<ProductViewWidget*>()->Show(products);
    EXPECT_ANY_THROW(static_cast<void>(watchedProducts()));
    const ProductCounts counts = countWatchedProducts();
    EXPECT_EQ(counts.products, 2'000);
    EXPECT_EQ(counts.price.count, 2'000);
    EXPECT_EQ(counts.name.count, 1'000);
    EXPECT_THAT(counts.name.first, ElementsAre(2, 4, 6, 8, 10));
    window.onProblem = [](const QString&) {};
}

} // namespace
} // namespace orvan::desk
