#include "MainWindow.h"
#include "WatchedProducts.h"
#include "undo/ProductsJournal.h"

#include "orvan/components/products/InProcessProductMgr.h"
#include "orvan/hosting/ProductViewWidget.h"
#include "orvan/testing/ProductRecordConformance.h"
#include "tests/support/QtEnvironment.h"
#include "tests/support/Rows.h"

#include <QAbstractButton>
#include <QAction>
#include <QDateEdit>
#include <QLineEdit>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

#include <array>
#include <random>

namespace orvan::desk {
namespace {

using test::forEachRow;

constexpr const char* kThree = "3~Desk::D-1:489:2:0:978:~Lamp::L-7:74.95:1:0:74.95:~Chair::C-3:1000:1:0:1000:blue~";

/// The managers of the desk's list: those that note each change. The limit is low, so that the rows are quick.
std::shared_ptr<ui::Component> journalledManager()
{
    const auto inner = productMgrFactory({.maxDataSize = 4096, .rules = {}})();
    return journalled(std::dynamic_pointer_cast<ProductMgr>(inner), [](const auto&) {});
}

const std::array kConformance{conformance::addProductMgrTests("Journalled", journalledManager),
                              conformance::addProductRecordTests("Journalled", journalledManager)};

class UndoTest : public testing::Test {
protected:
    UndoTest()
    {
        window.show();
        window.openSample(QStringLiteral("coffee-bar"));
        products = window.findChild<ProductViewWidget*>();
        history = window.findChild<QuoteHistory*>();
        // A person who says yes to everything.
        yes.setInterval(0);
        QObject::connect(&yes, &QTimer::timeout, [] {
            if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                box->button(QMessageBox::Yes)->click();
            }
        });
        yes.start();
    }
    ~UndoTest() override
    {
        window.onProblem = [](const QString&) {};
    }

    void show(const char* list)
    {
        products->Show(list);
        history->restart();
        settle();
    }
    static void settle() { QCoreApplication::processEvents(); }
    void run(Command command)
    {
        settle(); // actions are enabled from the event loop
        products->action(command)->trigger();
        settle();
    }
    /// Opens the editor with the command, runs `user` in it, and saves and closes it.
    void edit(Command command, const std::function<void(QWidget& editor)>& user, const char* close = "cmdSaveClose")
    {
        settle();
        test::whenModal([&](QWidget& editor) {
            user(editor);
            editor.findChild<QAbstractButton*>(QString::fromLatin1(close))->click();
        });
        products->action(command)->trigger();
        settle();
    }
    static void type(QWidget& editor, const char* box, const char* text)
    {
        auto* const entry = editor.findChild<QWidget*>(QString::fromLatin1(box));
        entry->setFocus();
        QTest::keyClick(entry, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(entry, QString::fromLatin1(text));
    }
    static void press(QWidget& editor, const char* button)
    {
        editor.findChild<QAbstractButton*>(QString::fromLatin1(button))->click();
    }
    std::string undoText() { return history->stack().undoText().toStdString(); }
    void undo()
    {
        history->stack().undo();
        settle();
    }

    MainWindow window;
    ProductViewWidget* products;
    QuoteHistory* history;
    QTimer yes;
};

TEST_F(UndoTest, EachCommandIsOneNamedStep)
{
    struct Row {
        const char* name;
        std::function<void()> user;
        std::vector<std::string> steps; ///< As undone, the last one first.
    };
    const auto quantity = [](const char* text) { return [text](QWidget& editor) { type(editor, "txtQty", text); }; };
    const Row rows[] = {
        {"delete", [&] { run(Command::remove); }, {"Delete 'Lamp'"}},
        {"delete all", [&] { run(Command::selectAll), run(Command::remove); }, {"Delete 3 Products"}},
        {"duplicate", [&] { run(Command::duplicate); }, {"Duplicate 'Lamp'"}},
        {"cut and paste", [&] { run(Command::cut), run(Command::paste); }, {"Paste 'Lamp'", "Delete 'Lamp'"}},
        {"move twice", [&] { run(Command::moveUp), run(Command::moveDown); }, {"Move Products", "Move Products"}},
        {"edit", [&] { edit(Command::edit, quantity("7")); }, {"Edit 'Lamp'"}},
        {"edit and revisit",
         [&] {
             edit(Command::edit, [&](QWidget& editor) {
                 quantity("7")(editor);
                 press(editor, "cmdNext"), quantity("8")(editor);
                 press(editor, "cmdPrevious"), quantity("9")(editor);
             });
         },
         {"Edit 'Chair'", "Edit 'Lamp'"}},
        {"add",
         [&] { edit(Command::add, [](QWidget& editor) { type(editor, "cboProductName", "Rug"); }); },
         {"Add 'Rug'"}},
        {"look and close", [&] { edit(Command::edit, [](QWidget&) {}); }, {}},
    };
    forEachRow(rows, [&](const Row& row) {
        show(kThree);
        products->setCurrentProduct(2);
        settle();
        row.user();
        const std::string after = products->Products();
        std::vector<std::string> steps;
        while (history->stack().canUndo()) {
            steps.push_back(undoText());
            undo();
        }
        EXPECT_EQ(steps, row.steps);
        EXPECT_EQ(products->Products(), kThree);
        while (history->stack().canRedo()) {
            history->stack().redo();
        }
        EXPECT_EQ(products->Products(), after);
    });
}

TEST_F(UndoTest, ASessionThatIsTakenBackLeavesNoStep)
{
    show(kThree);
    products->setCurrentProduct(1);
    settle();
    yes.stop();
    test::whenModal([&](QWidget& editor) {
        type(editor, "txtQty", "5");
        test::whenModal([](QWidget& box) { dynamic_cast<QMessageBox&>(box).button(QMessageBox::No)->click(); });
        press(editor, "cmdCancel");
    });
    products->action(Command::edit)->trigger();
    settle();
    EXPECT_EQ(products->Products(), kThree);
    EXPECT_FALSE(history->stack().canUndo()) << undoText();
}

TEST_F(UndoTest, ThousandRandomCommandsAreUndoneAndDoneAgain)
{
    show(kThree);
    constexpr unsigned kSeed = 20261122;
    std::mt19937 random(kSeed);
    const Command commands[] = {Command::duplicate, Command::moveUp, Command::moveDown, Command::remove,
                                Command::duplicate, Command::edit,   Command::add};
    int tries = 0;
    while (history->stack().count() < 1000 && ++tries < 10'000) {
        const Command command = commands[random() % std::size(commands)];
        const auto* const grid = products->findChild<QTableView*>();
        const int rows = grid->model()->rowCount();
        products->setCurrentProduct(static_cast<int>(random()) % (rows + 1));
        if (random() % 100 == 0) {
            run(Command::selectAll);
        }
        const bool many = rows > 60;
        if (command == Command::edit || command == Command::add) {
            if (random() % 8 == 0 && (command == Command::add || products->currentProduct() > 0)) {
                edit(command, [&](QWidget& editor) {
                    type(editor, "txtQty", std::to_string(random() % 100).c_str());
                    press(editor, "cmdNext");
                    type(editor, "txtUnitPrice", std::to_string(random() % 1000).c_str());
                });
            }
        } else if (!(command == Command::duplicate && many) &&
                   !(command == Command::remove && products->currentProduct() == 0)) { // which only tells to select one
            run(command);
        }
    }
    const std::string last = products->Products();
    ASSERT_GE(history->stack().count(), 1000);
    while (history->stack().canUndo()) {
        history->stack().undo();
    }
    EXPECT_EQ(products->Products(), kThree);
    while (history->stack().canRedo()) {
        history->stack().redo();
    }
    EXPECT_EQ(products->Products(), last);
}

TEST_F(UndoTest, FieldsAreUndoneAndTheMarkGoesWithTheSavedState)
{
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    ASSERT_FALSE(window.isWindowModified());
    auto* const customer = window.findChild<QLineEdit*>();
    const QString before = customer->text();
    customer->setFocus();
    QTest::keyClicks(customer, QStringLiteral("!?"));
    window.findChild<QDateEdit*>()->setFocus();
    EXPECT_EQ(undoText(), "Customer");
    products->setCurrentProduct(3);
    run(Command::duplicate);
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_EQ(products->currentProduct(), 4);
    undo();
    EXPECT_EQ(products->currentProduct(), 3) << "the row comes back";
    EXPECT_TRUE(window.isWindowModified());
    undo();
    EXPECT_EQ(customer->text(), before);
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_TRUE(products->Dirty()) << "which never goes down";
}

TEST_F(UndoTest, TheWidgetTellsWhatHappens)
{
    struct Row {
        const char* name;
        std::function<void()> act;
        int changed, total, row, opened;
    };
    QSignalSpy changed(products, &ProductViewWidget::changed);
    QSignalSpy total(products, &ProductViewWidget::totalChanged);
    QSignalSpy row(products, &ProductViewWidget::currentProductChanged);
    QSignalSpy opened(products, &ProductViewWidget::editorOpened);
    QSignalSpy closed(products, &ProductViewWidget::editorClosed);
    const Row rows[] = {
        {"another list", [&] { products->Show("1~Rug::R:5:1:0:5:~"); }, 0, 1, 1, 0},
        {"another row", [&] { products->setCurrentProduct(1); }, 0, 0, 1, 0},
        {"the same row", [&] { products->setCurrentProduct(2); }, 0, 0, 0, 0},
        {"move", [&] { products->setCurrentProduct(2), run(Command::moveUp); }, 1, 0, 1, 0},
        {"delete", [&] { products->setCurrentProduct(2), run(Command::remove); }, 1, 1, 0, 0},
        {"look and close",
         [&] {
             edit(
                 Command::edit, [](QWidget&) {}, "cmdCancel");
         },
         0, 0, 0, 1},
    };
    forEachRow(rows, [&](const Row& expected) {
        show(kThree);
        products->setCurrentProduct(2);
        settle();
        for (QSignalSpy* spy : {&changed, &total, &row, &opened, &closed}) {
            spy->clear();
        }
        expected.act();
        settle();
        EXPECT_EQ(changed.count(), expected.changed);
        EXPECT_EQ(total.count(), expected.total);
        EXPECT_EQ(row.count(), expected.row);
        EXPECT_EQ(opened.count(), expected.opened);
        EXPECT_EQ(closed.count(), expected.opened);
    });
    show("");
    EXPECT_FALSE(products->action(Command::edit)->isEnabled());
    EXPECT_TRUE(products->action(Command::add)->isEnabled());
}

TEST_F(UndoTest, AListToReadKeepsItsStepsAndTakesNone)
{
    show(kThree);
    products->setCurrentProduct(1);
    run(Command::remove);
    const std::string afterwards = products->Products();
    const auto actions = window.findChildren<QAction*>();
    const auto found = std::find_if(actions.begin(), actions.end(),
                                    [](const QAction* a) { return a->iconText() == QStringLiteral("Undo"); });
    ASSERT_NE(found, actions.end());
    QAction* const undo = *found;
    ASSERT_TRUE(undo->isEnabled());
    products->setReadOnly(true);
    undo->trigger(); // by a key that came before the action was disabled
    EXPECT_EQ(products->Products(), afterwards);
    settle();
    EXPECT_FALSE(undo->isEnabled());
    products->setReadOnly(false);
    settle();
    undo->trigger();
    EXPECT_EQ(products->Products(), kThree);
}

} // namespace
} // namespace orvan::desk
