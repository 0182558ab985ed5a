#include "CatalogueMenu.h"
#include "MainWindow.h"

#include "orvan/components/catalogue/Catalogue.h"
#include "orvan/components/catalogue/CatalogueFile.h"
#include "orvan/components/products/ProductsString.h"
#include "orvan/hosting/ProductViewWidget.h"
#include "orvan/hosting/QtHost.h"
#include "orvan/lookup/LookUpValue.h"
#include "orvan/ui/qt/QtSettingsStore.h"
#include "tests/support/QtEnvironment.h"
#include "tests/support/Rows.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QDateEdit>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

namespace orvan::desk {
namespace {

using test::forEachRow;
using testing::HasSubstr;

class DeskTest : public testing::Test {
public:
    QString write(const QByteArray& bytes, const QString& name)
    {
        QString path = QDir(folder.path()).filePath(name); // an absolute name stays
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return path;
    }

    /// Answers the next message box, and keeps its text.
    void answerNext(QMessageBox::StandardButton button)
    {
        test::whenModal([this, button](QWidget& window) {
            auto& box = dynamic_cast<QMessageBox&>(window);
            asked = box.text().toStdString();
            QTest::mouseClick(box.button(button), Qt::LeftButton);
        });
    }

    static std::int64_t entriesIn(const QString& catalogue)
    {
        SqliteFile file = openCatalogue(catalogue.toStdString());
        return catalogueStatistics(file).entries;
    }

    QTemporaryDir folder;
    std::string asked;
};

const QByteArray kGood = R"({"format": "orvan-desk-quote", "version": 1, "customer": "c", "number": "n",
 "date": "2026-11-20", "products": ""})";

QByteArray with(const char* from, const char* to)
{
    return QByteArray(kGood).replace(from, to);
}

std::string problemOf(const QString& path)
{
    try {
        static_cast<void>(readQuote(path, [](const std::string& products) {
            if (products == "bad") {
                throw std::runtime_error("Product 3: too short");
            }
        }));
    } catch (const QuoteFileError& error) {
        return error.what();
    }
    return "";
}

TEST_F(DeskTest, ADamagedFileSaysWhatAndWhere)
{
    struct Row {
        const char* name;
        QByteArray bytes;
        const char* problem;
    };
    const Row rows[] = {
        {"good", kGood, ""},
        {"cut", kGood.left(kGood.size() - 4), "line 2, column"},
        {"empty", "", "line 1, column 1"},
        {"not ours", "[1, 2]", "not a quote file"},
        {"another format", with("orvan-desk-quote", "recipe"), "not a quote file"},
        {"a later version", with("1,", "7,"), "another version of the desk (7)"},
        {"no customer", with("customer", "costumer"), "\"customer\" is missing"},
        {"number no text", with("\"n\"", "12"), "\"number\" is not a text"},
        {"no date", with("2026-11-20", "2026-02-30"), "\"2026-02-30\" is not a date"},
        {"a date and a time", with("2026-11-20", "2026-11-20T10:00"), "\"2026-11-20T10:00\" is not a date"},
        {"a currency", with("\"n\"", "\"n\", \"currency\": \"USD\""), ""},
        {"a currency in small letters", with("\"n\"", "\"n\", \"currency\": \"usd\""),
         "\"currency\" is not the code of a currency, which is three capital letters: \"usd\""},
        {"a currency of four letters", with("\"n\"", "\"n\", \"currency\": \"USDX\""), "\"USDX\""},
        {"a currency of other letters", with("\"n\"", "\"n\", \"currency\": \"ÄÖÜ\""), "\"ÄÖÜ\""},
        {"an empty currency", with("\"n\"", "\"n\", \"currency\": \"\""), "three capital letters"},
        {"currency no text", with("\"n\"", "\"n\", \"currency\": 978"), "\"currency\" is not a text"},
        {"products", with("\"products\": \"\"", "\"products\": \"bad\""), "Product 3: too short"},
    };
    forEachRow(rows, [&](const Row& row) {
        const std::string found = problemOf(write(row.bytes, QStringLiteral("a.json")));
        EXPECT_THAT(found, HasSubstr(row.problem));
        EXPECT_EQ(found.empty(), std::string_view(row.problem).empty()) << found;
    });
    EXPECT_THAT(problemOf(folder.filePath("nowhere")), HasSubstr("No such file"));
}

TEST_F(DeskTest, AQuoteComesBackAsItWasSaved)
{
    const Quote quote{.customer = QStringLiteral("Ä \"quoted\" \\ ✓ 𝄞"),
                      .number = QStringLiteral("a\nb"),
                      .date = QDate(2026, 2, 28),
                      .products = std::string("1~a\0\\~:\xF0\x9D\x84\x9E\x01~", 13),
                      .currency = QStringLiteral("JPY")};
    const QString path = folder.filePath(QStringLiteral("q.quote.json"));
    EXPECT_EQ(writeQuote(path, quote).warning, "");
    EXPECT_EQ(readQuote(path, [](const std::string&) {}).quote, quote);

    Quote bad = quote;
    bad.products = "\xC3";
    EXPECT_THROW(static_cast<void>(writeQuote(path, bad)), QuoteFileError);
    EXPECT_THROW(static_cast<void>(writeQuote(folder.filePath(QStringLiteral("no/such/folder.json")), quote)),
                 QuoteFileError);
    EXPECT_EQ(readQuote(path, [](const std::string&) {}).quote, quote) << "a failed save leaves the earlier file";
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1) << "and nothing beside it";
}

TEST_F(DeskTest, EverySampleOpensAndSellsWhatIsInTheCatalogue)
{
    const QString file = folder.filePath(QStringLiteral("goods.catalogue"));
    CatalogueMenu(file, nullptr, {}).importSampleIfNone();
    SqliteCatalogue catalogue({.file = file.toStdString()});
    MainWindow window;
    const auto samples = QDir(QStringLiteral(":/samples")).entryInfoList();
    ASSERT_EQ(samples.size(), 3);
    for (const QFileInfo& sample : samples) {
        EXPECT_TRUE(window.openSample(sample.baseName())) << sample.baseName().toStdString();
        EXPECT_GT(window.findChild<ProductViewWidget*>()->TotalValue(), Currency());
        EXPECT_FALSE(window.isWindowModified()) << sample.baseName().toStdString();

        const std::string products = window.findChild<ProductViewWidget*>()->Products();
        ProductValues product;
        for (ProductsReader reader(products, {}); reader.more();) {
            reader.next(product);
            const LookUpList found = catalogue.GetPartNumList(product.partNum, false);
            EXPECT_TRUE(found) << product.partNum;
            catalogue.SeekItem(found ? static_cast<std::int32_t>(found->front().itemId) : 0);
            EXPECT_EQ(toText(catalogue.GetFieldValue(3)), product.name);
            EXPECT_EQ(toText(catalogue.GetFieldValue(4)), product.key) << product.name;
            EXPECT_EQ(catalogue.GetFieldValue(6), LookUpValue(product.unitPrice)) << product.name;
        }
    }
}

/// A price list's ways into the catalogue: the answers to what is asked, and what the catalogue holds then.
TEST_F(DeskTest, APriceListIsImportedAsAWholeOrNotAtAll)
{
    const QString catalogue = folder.filePath(QStringLiteral("new/goods.catalogue"));
    const QByteArray head = "part number,product,price\n";
    std::string problem;
    CatalogueMenu menu(catalogue, nullptr, [&](const QString& what, const QString& why, const QString& details) {
        problem = (what + why + details).toStdString();
    });
    menu.importSampleIfNone();
    EXPECT_GT(entriesIn(catalogue), 290) << problem;
    struct Row {
        const char* name;
        QByteArray list;
        const char* press = ""; // the button of the progress
        std::int64_t entries;
        const char* problem = ""; // for which the dialog that shows the list cannot import it
    };
    // clang-format off
    const Row rows[] = {
        {.name = "good", .list = head + "A,Alpha,1\nB,Beta,2.50\n", .entries = 2},
        {.name = "a bad price", .list = head + "A,Alpha,1\nB,Beta,free\n", .entries = 2,
         .problem = "Line 3: the unit price \"free\""},
        {.name = "no price list", .list = "nothing", .entries = 2, .problem = "Choose above which column has the name"},
        {.name = "ambiguous", .list = head + "A,Alpha,\"1,234\"\n", .entries = 2, .problem = "Choose the decimals"},
        {.name = "another one", .list = head + "A,Alpha,1\n", .entries = 1},
        {.name = "long, cancelled", .list = head + QByteArray("A,Alpha,1.5\n").repeated(400'000), .press = "Cancel",
         .entries = 1},
    };
    // clang-format on
    forEachRow(rows, [&](const Row& row) {
        problem.clear();
        std::string told;
        QTimer user;
        QObject::connect(&user, &QTimer::timeout, [&] {
            if (QWidget* const window = QApplication::activeModalWidget()) {
                QAbstractButton* button = nullptr;
                const bool shown = window->inherits("orvan::desk::PriceListDialog");
                for (const auto* const label : window->findChildren<QLabel*>()) {
                    told += shown && label->wordWrap() ? label->text().toStdString() : "";
                }
                for (const auto* const box : window->findChildren<QPlainTextEdit*>()) {
                    told += shown ? box->toPlainText().toStdString() : "";
                }
                for (auto* each : window->findChildren<QAbstractButton*>()) {
                    const std::string text = each->text().remove(u'&').toStdString();
                    const bool imports = text.starts_with("Import") && each->isEnabled();
                    const bool cancels = shown && text == "Cancel" && !button; // where nothing can be imported
                    const bool presses = !shown && (text == row.press || (!button && text == "OK"));
                    button = imports || cancels || presses ? each : button;
                    if (imports || text == "Replace") { // the question whether the catalogue may be replaced
                        button = each;
                        break;
                    }
                }
                QTest::mouseClick(button, Qt::LeftButton);
            }
        });
        user.start(10);
        menu.importFrom(write(row.list, QStringLiteral("list.csv")));
        EXPECT_EQ(entriesIn(catalogue), row.entries);
        EXPECT_THAT(told, HasSubstr(row.problem));
        EXPECT_EQ(problem, "");
    });
    EXPECT_EQ(QDir(folder.filePath(QStringLiteral("new"))).entryList(QDir::Files),
              QStringList({QStringLiteral("goods.catalogue"), QStringLiteral("goods.catalogue.former")}));
    menu.importSampleIfNone();
    EXPECT_EQ(entriesIn(catalogue), 1) << "the user's own catalogue stays";
}

TEST_F(DeskTest, TheDeskOpensWithDamagedSettings)
{
    const QString path = QString::fromStdString(qt::QtSettingsStore::defaultPath());
    QDir().mkpath(QFileInfo(path).path());
    QFile::rename(path, path + QStringLiteral(".good"));
    write("no settings\n", path);
    EXPECT_TRUE(MainWindow().openSample(QStringLiteral("coffee-bar")));
    QFile::remove(path);
    QFile::rename(path + QStringLiteral(".good"), path);
}

TEST_F(DeskTest, ADamagedFileLeavesTheOpenQuoteAlone)
{
    MainWindow window;
    window.openSample(QStringLiteral("coffee-bar"));
    const std::string products = window.findChild<ProductViewWidget*>()->Products();
    const QString title = window.windowTitle();
    const QString path = write(with("\"products\": \"\"", "\"products\": \"2~one~\""), QStringLiteral("a.quote.json"));
    answerNext(QMessageBox::Ok);
    EXPECT_FALSE(window.open(path));
    EXPECT_THAT(asked, HasSubstr("a.quote.json"));
    EXPECT_THAT(asked, HasSubstr("Its products cannot be read."));

    std::string problem;
    window.onProblem = [&](const QString& text) { problem = text.toStdString(); };
    const QByteArray tooLarge = "\"products\": \"1~" + QByteArray(qsizetype{1024} * 1024, 'x') + ":::0:0:0:0:~\"";
    const QByteArray file = with("\"products\": \"\"", tooLarge.constData());
    EXPECT_FALSE(window.open(write(file, QStringLiteral("large.quote.json"))));
    EXPECT_THAT(problem, HasSubstr("1048576"));
    EXPECT_EQ(window.findChild<ProductViewWidget*>()->Products(), products);
    EXPECT_EQ(window.windowTitle(), title);
}

TEST_F(DeskTest, UnsavedChangesAreMarkedAndAskedFor)
{
    MainWindow window;
    window.show();
    window.openSample(QStringLiteral("coffee-bar"));
    auto* customer = window.findChild<QLineEdit*>();
    ASSERT_TRUE(customer);
    QTest::keyClicks(customer, QStringLiteral("!"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.isWindowModified(); }, 2000));

    answerNext(QMessageBox::Cancel);
    EXPECT_FALSE(window.close());
    EXPECT_THAT(asked, HasSubstr("Save the changes"));
    answerNext(QMessageBox::Cancel);
    EXPECT_FALSE(window.openSample(QStringLiteral("office-refit"))) << "opening another asks as well";
    QTest::keyClick(customer, Qt::Key_Backspace);
    EXPECT_TRUE(window.close()) << "nothing is left to save";
}

TEST_F(DeskTest, ADeletedLineIsUnsavedUntilItIsSaved)
{
    const QString path = folder.filePath(QStringLiteral("own.quote.json"));
    QFile::copy(QStringLiteral(":/samples/coffee-bar.quote.json"), path);
    QFile(path).setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    MainWindow window;
    window.show();
    ASSERT_TRUE(window.open(path));
    auto* products = window.findChild<ProductViewWidget*>();
    const Currency totalBefore = products->TotalValue();
    QTest::keyClick(products->findChild<QWidget*>(QStringLiteral("flexGrid")), Qt::Key_Down);
    answerNext(QMessageBox::Yes);
    QTest::mouseClick(products->findChild<QWidget*>(QStringLiteral("cmdDelete")), Qt::LeftButton);
    EXPECT_THAT(asked, HasSubstr("delete the selected product"));
    EXPECT_LT(products->TotalValue(), totalBefore);
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.isWindowModified(); }, 2000));

    answerNext(QMessageBox::Save);
    EXPECT_TRUE(window.close());
    MainWindow again;
    ASSERT_TRUE(again.open(path));
    EXPECT_EQ(again.findChild<ProductViewWidget*>()->Products(), products->Products());
    EXPECT_TRUE(window.close()) << "the control stays dirty, but nothing differs from the file";
}

TEST_F(DeskTest, TheEditorOutlivesTheListItWasOpenedFrom)
{
    auto view = std::make_unique<ProductViewWidget>();
    view->Show("2~Desk::D-1:489:2:0:978:~Lamp::L-7:74.95:1:0:74.95:~");
    view->resize(500, 300);
    view->show();
    auto* grid = view->findChild<QAbstractItemView*>();
    test::whenModal([&](QWidget& window) {
        view.reset();
        QTest::mouseClick(window.findChild<QAbstractButton*>("cmdNext"), Qt::LeftButton);
        EXPECT_EQ(window.windowTitle(), "Lamp (2/2)");
        QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    });
    const QPoint row = grid->visualRect(grid->model()->index(0, 1)).center();
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, row);
    EXPECT_FALSE(view);
}

TEST_F(DeskTest, TheWheelChangesTheDateOnlyWithTheFocus)
{
    MainWindow window;
    window.show();
    window.openSample(QStringLiteral("coffee-bar"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto* const date = window.findChild<QDateEdit*>();
    const QDate before = date->date();
    const auto turn = [&] {
        QWheelEvent wheel({5, 5}, date->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(date, &wheel);
        return date->date() != before;
    };
    window.findChild<QLineEdit*>()->setFocus();
    EXPECT_FALSE(turn());
    date->setFocus();
    EXPECT_TRUE(turn());
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        EXPECT_NE(widget->focusPolicy(), Qt::WheelFocus) << widget->objectName().toStdString();
    }
}

TEST_F(DeskTest, TheTitleShowsWhateverNameAsItIs)
{
    MainWindow window;
    window.show();
    const char* const names[] = {"[*]", "a[*]b[*][*]", "[*].quote.json"}; // Qt has a use of its own for "[*]"
    forEachRow(names, [&](const char* name) {
        ASSERT_TRUE(window.open(write(kGood, QString::fromUtf8(name))));
        EXPECT_EQ(window.windowHandle()->title().toStdString(), name + std::string(" – Orvan Desk"));
    });
    MainWindow without;
    without.show();
    auto* const number = without.findChildren<QLineEdit*>().at(1);
    number->setText(QStringLiteral("\u202e[*]").repeated(20'000)); // \u202e turns the writing direction round
    QTest::keyClick(number, Qt::Key_End);
    const QString title = QStringLiteral("\ufffd[*]").repeated(15) + QStringLiteral("…* – Orvan Desk");
    EXPECT_TRUE(QTest::qWaitFor([&] { return without.windowHandle()->title() == title; }, 2000));
    EXPECT_EQ(without.windowHandle()->title().toStdString(), title.toStdString());
    without.onProblem = [](const QString&) {};
}

TEST_F(DeskTest, AMovedRowStaysInView)
{
    MainWindow window;
    window.resize(640, 420);
    window.show();
    window.openSample(QStringLiteral("exhibition-stand"));
    auto& table = *window.findChild<QTableView*>(QStringLiteral("flexGrid"));
    QTest::keyClick(&table, Qt::Key_Down);
    for (int row = 1; row < table.model()->rowCount(); ++row) {
        table.verticalScrollBar()->setValue(row == 20 ? 0 : table.verticalScrollBar()->value()); // looked elsewhere
        QTest::mouseClick(window.findChild<QWidget*>(QStringLiteral("cmdMoveDown")), Qt::LeftButton);
        EXPECT_TRUE(table.viewport()->rect().contains(table.visualRect(table.currentIndex()))) << row;
    }
    EXPECT_GT(table.verticalScrollBar()->value(), 0);
}

} // namespace
} // namespace orvan::desk
