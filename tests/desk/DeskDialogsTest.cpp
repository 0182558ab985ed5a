// The sheet of keys, the explanation of amounts, the currency of a quote, and the warning before a quote is full.

#include "CurrencyDialog.h"
#include "FilterLine.h"
#include "KeySheet.h"
#include "MainWindow.h"
#include "StatusLine.h"

#include "orvan/components/products/ProductsString.h"
#include "orvan/hosting/ProductViewWidget.h"
#include "tests/support/QtEnvironment.h"
#include "tests/support/Rows.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include <fstream>

namespace orvan::desk {
namespace {

using test::forEachRow;

class DeskDialogsTest : public testing::Test {
protected:
    DeskDialogsTest()
    {
        window.show();
        window.openSample(QStringLiteral("coffee-bar"));
        products = window.findChild<ProductViewWidget*>();
    }
    ~DeskDialogsTest() override
    {
        window.onProblem = [](const QString&) {};
    }

    /// The action with that key.
    QAction& action(const char* key)
    {
        for (QAction* const each : window.findChildren<QAction*>()) {
            if (each->shortcut() == QKeySequence(QLatin1String(key)) && each->shortcutContext() != Qt::WidgetShortcut) {
                return *each;
            }
        }
        throw std::logic_error("no such key");
    }
    /// Chooses the currency of the quote in its dialog.
    void chooseCurrency(const std::function<void(CurrencyDialog& dialog)>& user)
    {
        test::whenModal([user](QWidget& dialog) { user(dynamic_cast<CurrencyDialog&>(dialog)); });
        for (QAction* const each : window.findChildren<QAction*>()) {
            if (each->text().startsWith(QStringLiteral("Quote Curre"))) {
                each->trigger();
            }
        }
        QCoreApplication::processEvents();
    }
    std::string savedCurrency()
    {
        action("Ctrl+S").trigger();
        return QJsonDocument::fromJson(QByteArray::fromStdString(test::readText(file)))[u"currency"]
            .toString()
            .toStdString();
    }

    test::TemporaryFolder folder;
    const std::filesystem::path file = folder / "own.quote.json";
    MainWindow window;
    ProductViewWidget* products;
};

/// The rows of the table in README.md under the heading cell `head`.
std::vector<std::string> tableIn(const std::string& head)
{
    std::ifstream file(ORVAN_README);
    std::vector<std::string> rows;
    std::string line;
    while (std::getline(file, line) && !line.starts_with("| " + head + " |")) {
    }
    std::getline(file, line); // below the heading
    while (std::getline(file, line) && line.starts_with("| `")) {
        rows.push_back(line);
    }
    return rows;
}

TEST_F(DeskDialogsTest, TheSheetHasTheKeysOfTheTablesInTheReadme)
{
    struct Table {
        const char* name;
        KeyRow::Place place;
    };
    const Table tables[] = {{"in the list", KeyRow::Place::list},
                            {"in the editor", KeyRow::Place::editor},
                            {"in the desk", KeyRow::Place::desk}};
    const std::vector<KeyRow> all = allKeys(*products, *window.menuBar());
    forEachRow(tables, [&](const Table& table) {
        std::vector<std::string> rows;
        for (const KeyRow& row : all) {
            if (row.place == table.place) {
                QStringList keys;
                for (const QKeySequence& key : row.keys) {
                    keys << u'`' + key.toString(QKeySequence::PortableText) + u'`';
                }
                rows.push_back(("| " + keys.join(u' ') + " | " + row.command + " |").toStdString());
            }
        }
        EXPECT_EQ(rows, tableIn(table.name));
        EXPECT_GT(rows.size(), 6U);
    });
}

TEST_F(DeskDialogsTest, TheSheetIsSearchedAndClosedByKeys)
{
    action("F1").trigger();
    const QPointer<KeySheet> sheet = window.findChild<KeySheet*>();
    ASSERT_TRUE(sheet && sheet->isVisible());
    auto& list = *sheet->findChild<QTreeWidget*>();
    const auto shown = [&] {
        std::vector<std::string> commands;
        for (QTreeWidgetItemIterator at(&list, QTreeWidgetItemIterator::NotHidden); *at; ++at) {
            commands.push_back((*at)->text(0).toStdString());
        }
        return commands;
    };
    const std::size_t all = shown().size();
    auto& filter = *sheet->findChild<FilterLine*>();
    QTest::keyClicks(&filter, QStringLiteral("shift+s"));
    EXPECT_EQ(shown(), (std::vector<std::string>{"In the desk", "Save As"}));
    filter.setText(QStringLiteral("dupl"));
    EXPECT_EQ(shown(), (std::vector<std::string>{"In the list", "Duplicate", "In the editor", "Duplicate Product"}));
    const QString first = list.currentItem()->text(0);
    QTest::keyClick(&filter, Qt::Key_Down);
    EXPECT_NE(list.currentItem()->text(0), first) << "the keys that move act on the list";
    filter.setText(QStringLiteral("no such key"));
    EXPECT_EQ(shown(), std::vector<std::string>());
    filter.clear();
    EXPECT_EQ(shown().size(), all);
    QTest::keyClick(&filter, Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(sheet);
}

TEST_F(DeskDialogsTest, TheSheetCanBeReachedWhileTheEditorIsOpen)
{
    products->setCurrentProduct(1);
    QCoreApplication::processEvents(); // actions are enabled from the event loop
    bool seen = false;
    test::whenModal([&](QWidget& editor) {
        QTest::qWait(50); // until the signal that the editor is open has come
        QTest::keyClick(editor.focusWidget(), Qt::Key_F1);
        const auto* const sheet = editor.findChild<KeySheet*>();
        seen = sheet && sheet->isVisible();
        editor.close();
    });
    products->action(Command::edit)->trigger();
    EXPECT_TRUE(seen);
}

TEST_F(DeskDialogsTest, ExplainShowsWhyPricesDoNotAddUpAndCopiesIt)
{
    // The second price is one that was changed after it had been computed.
    test::writeText(file, R"({"format": "orvan-desk-quote", "version": 1, "customer": "c", "number": "n",
        "date": "2026-11-20", "currency": "USD",
        "products": "2~Washer:::0.0125:2.5:5:0.0296:~Nut:::0.01:1:0:0.0153:~"})");
    ASSERT_TRUE(window.open(QString::fromStdString(file.string())));
    products->setCurrentProduct(1);
    QCoreApplication::processEvents();
    std::string copied;
    test::whenModal([&](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Explain");
        QTest::keyClick(dialog.focusWidget(), Qt::Key_C, Qt::ControlModifier);
        copied = QGuiApplication::clipboard()->text().toStdString();
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape);
    });
    action("F9").trigger();
    EXPECT_EQ(copied, "Price of product 1: Washer\n"
                      "Percent to pay: 100% − 5%\t95\t95\texact\n"
                      "Quantity × unit price: 2.5 × 0.0125\t0.03125\t0.0312\trounded, a half to the "
                      "even digit\n"
                      "95% of 0.0312\t0.02964\t0.0296\trounded, a half to the even digit\n"
                      "Price\t0.0296875\t0.0296\tshown as $0.03\n"
                      "Total\n"
                      "Product 1\t0.0296\t$0.03\trounded to be shown: +0.0004\n"
                      "Product 2\t0.0153\t$0.02\trounded to be shown: +0.0047\n"
                      "Sum of all prices\t0.0449\t$0.05\tthe prices as they are shown, added up\n"
                      "Total\t0.0449\t$0.04\tthe exact sum, rounded to be shown\n"
                      "The prices as they are shown add up to $0.05, but the total is shown as $0.04. Each amount is "
                      "rounded for itself "
                      "to be shown; the total is the sum of the exact prices.\n"
                      "Products whose price is not what their quantity, unit price and discount give: 2.\n");
}

TEST_F(DeskDialogsTest, TheCurrencyCanBeChangedAndTheChangeUndone)
{
    test::writeText(file, R"({"format": "orvan-desk-quote", "version": 1, "customer": "c", "number": "n",
        "date": "2026-11-20", "currency": "USD", "products": ""})");
    ASSERT_TRUE(window.open(QString::fromStdString(file.string())));
    chooseCurrency([](CurrencyDialog& dialog) {
        EXPECT_EQ(dialog.currency(), u"USD");
        auto& filter = *dialog.findChild<FilterLine*>();
        QTest::keyClicks(&filter, QStringLiteral("swiss fr"));
        EXPECT_EQ(dialog.currency(), u"CHF");
        QTest::keyClick(&filter, Qt::Key_Return);
    });
    EXPECT_TRUE(window.isWindowModified());
    auto& history = *window.findChild<QuoteHistory*>();
    EXPECT_EQ(history.stack().undoText(), u"Quote Currency");
    history.stack().undo();
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(savedCurrency(), "USD");
    history.stack().redo();
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_EQ(savedCurrency(), "CHF");
    EXPECT_FALSE(window.isWindowModified());

    chooseCurrency([](CurrencyDialog& dialog) {
        auto& filter = *dialog.findChild<FilterLine*>();
        filter.setText(QStringLiteral("no such money"));
        EXPECT_EQ(dialog.currency(), u"");
        QTest::keyClick(&filter, Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible()) << "nothing is chosen";
        dialog.reject();
    });
    EXPECT_FALSE(window.isWindowModified());
}

TEST(CurrenciesTest, EachHasACodeAndANameInTheUsersLanguage)
{
    const auto nameOf = [](const char* locale, const char* code) {
        for (const CurrencyName& currency : currencies(locale)) {
            if (currency.code == QLatin1String(code)) {
                return currency.name.toStdString();
            }
        }
        return std::string("none");
    };
    EXPECT_EQ(nameOf("en_US", "CHF"), "Swiss Franc");
    EXPECT_EQ(nameOf("de_DE", "CHF"), "Schweizer Franken");
    EXPECT_EQ(nameOf("en_US", "DEM"), "none") << "not in use any more";
    EXPECT_GT(currencies("C").size(), 100U);
    const CurrencyDialog dialog(currencies("en_US"), QStringLiteral("DEM"), nullptr);
    EXPECT_EQ(dialog.currency(), u"DEM") << "what an old quote has can be kept";
}

} // namespace
} // namespace orvan::desk
