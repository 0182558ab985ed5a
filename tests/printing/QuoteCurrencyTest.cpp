// A quote keeps its currency: the user of this program's host is in Germany.
#include "MainWindow.h"
#include "QuoteLocale.h"
#include "orvan/hosting/ProductViewWidget.h"
#include "orvan/hosting/QtHost.h"
#include "tests/support/QtEnvironment.h"
#include "tests/support/Rows.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QLineEdit>
#include <QStatusBar>
#include <QTableView>
#include <QTest>

namespace orvan::desk {
namespace {

using test::forEachRow;
using testing::HasSubstr;

const bool kGermanHost = [] {
    HostOptions options;
    options.locale = {.monetary = "de_DE.UTF-8", .numeric = "de_DE.UTF-8"};
    options.localeService = makeQuoteLocale(options.locale);
    options.editing = ui::EditingWay::careful;
    setQtHostOptions(options);
    return true;
}();

void trigger(MainWindow& window, const char* text)
{
    for (QAction* const action : window.findChildren<QAction*>()) {
        if (action->text() == QLatin1String(text)) {
            action->trigger();
            return;
        }
    }
    ADD_FAILURE() << "no action " << text;
}

std::string totalOf(MainWindow& window)
{
    return window.findChild<QLineEdit*>(QStringLiteral("txtTotal"))->text().toStdString();
}

TEST(QuoteCurrency, AQuoteIsShownInItsOwnCurrencyWithTheUsersSeparators)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("q.quote.json"));
    MainWindow window;
    window.show();
    struct Row {
        const char *name, *currency, *total, *kept;
        const char* notice = "";
    };
    const Row rows[] = {
        {"dollars", "USD", "1.234,50\u00A0$", "USD"},
        {"an older file", "", "1.234,50\u00A0€", "EUR", "EUR"},
        {"pounds", "GBP", "1.234,50\u00A0£", "GBP"},
        {"a currency that ICU does not know", "QQQ", "1.234,50\u00A0QQQ", "QQQ"},
    };
    forEachRow(rows, [&](const Row& row) {
        Quote quote{.customer = {}, .number = {}, .date = QDate(2026, 11, 20), .products = {}};
        quote.products = "1~Lamp::L-7:1234.5:1:0:1234.5:~";
        quote.currency = QLatin1String(row.currency);
        static_cast<void>(writeQuote(path, quote));
        window.statusBar()->clearMessage();
        ASSERT_TRUE(window.open(path));
        EXPECT_EQ(totalOf(window), row.total);
        const auto* const grid = window.findChild<QTableView*>(QStringLiteral("flexGrid"));
        QString cells;
        for (int column = 0; column < grid->model()->columnCount(); ++column) {
            cells += grid->model()->index(0, column).data().toString() + u'|';
        }
        EXPECT_THAT(cells.toStdString(), HasSubstr(row.total)) << "the list";
        EXPECT_FALSE(window.isWindowModified());
        const std::string message = window.statusBar()->currentMessage().toStdString();
        EXPECT_THAT(message, HasSubstr(row.notice));
        EXPECT_EQ(message.empty(), std::string_view(row.notice).empty()) << message;
        trigger(window, "&Save");
        EXPECT_EQ(readQuote(path, [](const std::string&) {}).quote.currency, QLatin1String(row.kept));
    });
    trigger(window, "&New");
    EXPECT_EQ(totalOf(window), "0\u00A0€") << "a new quote is in the user's currency";
    EXPECT_TRUE(window.close());
}

} // namespace
} // namespace orvan::desk
