// The list view as a widget: what its slots may call, its properties, its switch for reading, its services.
#include "orvan/editor/ProductDlg.h"
#include "orvan/hosting/ProductViewWidget.h"
#include "orvan/hosting/QtHost.h"
#include "tests/hosting/HostServices.h"
#include "tests/support/FaultyProductMgr.h"
#include "tests/support/QtEnvironment.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMetaProperty>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

#include <stdexcept>

namespace orvan::test {
namespace {

using ::testing::HasSubstr;

const QString kTwo = QStringLiteral("2~Desk::D-1:489:2:0:978:~Lamp::L-7:74.95:1:0:74.95:blue~");

/// The second screen is too small for the editor. Set before there is an application.
const bool kTwoScreens = qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" TWO_SCREENS);

class WidgetTest : public testing::Test {
protected:
    WidgetTest()
    {
        HostOptions options;
        options.locale = {.monetary = "en_US", .numeric = "en_US"};
        options.messageBox = box;
        options.makeProductMgr = [this] {
            return std::make_shared<FaultyProductMgr>(std::dynamic_pointer_cast<ProductMgr>(productMgrFactory()()),
                                                      faults);
        };
        host.emplace(options);
        view.emplace(host->platform());
        view->resize(600, 400);
        view->show();
        settle();
    }

    /// The next call of a manager throws.
    void fail(const std::function<void()>& how)
    {
        faults.failAtCall = 1;
        faults.act = how;
    }
    static void settle() { QCoreApplication::processEvents(); }
    QTableView& table() { return *view->findChild<QTableView*>(); }
    void dragFirstRowDown()
    {
        const auto centre = [&](int row) { return table().visualRect(table().model()->index(row, 1)).center(); };
        QWidget* const rows = table().viewport();
        const QPoint below = centre(1) + QPoint(0, 8);
        QTest::mousePress(rows, Qt::LeftButton, {}, centre(0));
        QTest::mouseMove(rows, centre(0) + QPoint(0, 12));
        QTest::mouseMove(rows, below);
        QTest::mouseRelease(rows, Qt::LeftButton, {}, below);
    }

    const std::shared_ptr<OwnBox> box = std::make_shared<OwnBox>();
    Faults faults;
    std::optional<QtHost> host;
    std::optional<ProductViewWidget> view;
};

TEST(HostOptionsOnQt, EachServiceCanBeReplaced)
{
    checkServices<QtHost>();
    checkFailingFactories<QtHost>();
}

TEST_F(WidgetTest, WhateverFailsBecomesAReason)
{
    struct Row {
        const char* name;
        std::function<void()> how;
        const char* reason;
    };
    const Row rows[] = {
        {"an error with a text", [] { throw RuntimeError(321, "Acme", userText("The file has %1 holes", 3)); },
         "The file has 3 holes"},
        {"an error without one", [] { throw RuntimeError(91); }, "Object variable"},
        {"no memory", [] { throw std::bad_alloc(); }, "Out of memory"},
        {"a host's exception", [] { throw std::runtime_error("no licence"); }, "no licence"},
        {"a number", [] { throw 42; }, "Automation error"},
    };
    const std::function<bool(QString * reason)> operations[] = {
        [&](QString* reason) { return view->products(reason).has_value(); },
        [&](QString* reason) { return view->total(reason).has_value(); },
        [&](QString* reason) { return view->load(kTwo, reason); },
    };
    forEachRow(rows, [&](const Row& row) {
        ASSERT_TRUE(view->load(kTwo));
        for (const auto& operation : operations) {
            QString reason;
            fail(row.how);
            EXPECT_FALSE(operation(&reason));
            EXPECT_THAT(reason.toStdString(), HasSubstr(row.reason));
            fail(row.how);
            EXPECT_FALSE(operation(nullptr));
        }
    });
    static_assert(noexcept(view->load(kTwo))&& noexcept(view->products())&& noexcept(view->total()));
}

TEST_F(WidgetTest, ATextIsLoadedAndGivenBackOrRefusedWithAReason)
{
    struct Row {
        const char* name;
        QString text;
        const char* reason = "";
    };
    const QString more = QStringLiteral("1~Łóżko 🛏:::5:1:0:5:~");
    const Row rows[] = {
        {"two products", kTwo},
        {"letters beyond ASCII and beyond 16 bits", more},
        {"half a character", QStringLiteral("1~A") + QChar(0xD83D) + QStringLiteral(":::5:1:0:5:~"),
         "half a character"},
        {"the other half", QStringLiteral("1~A") + QChar(0xDECF) + QStringLiteral(":::5:1:0:5:~"), "half a character"},
        {"no products string", QStringLiteral("nonsense"), "products"},
    };
    forEachRow(rows, [&](const Row& row) {
        QString reason = QStringLiteral("as before");
        const bool loads = *row.reason == '\0';
        EXPECT_EQ(view->load(row.text, &reason), loads);
        if (loads) {
            EXPECT_EQ(view->products(&reason), row.text);
            EXPECT_EQ(reason, QStringLiteral("as before"));
        } else {
            EXPECT_THAT(reason.toStdString(), HasSubstr(row.reason));
        }
    });
    ASSERT_TRUE(view->load(more));
    EXPECT_FALSE(view->load(rows[2].text));
    EXPECT_EQ(view->products(), more) << "the list stays";
    EXPECT_EQ(view->total(), Currency::fromText("5"));

    QString reason;
    view->Show("1~Desk\xFF:::5:1:0:5:~");
    EXPECT_FALSE(view->products(&reason));
    EXPECT_THAT(reason.toStdString(), HasSubstr("no text"));
}

TEST_F(WidgetTest, TheReasonOfAnEarlierErrorIsNotTheOneOfALaterOne)
{
    ASSERT_TRUE(view->load(kTwo));
    fail([] { throw RuntimeError(91, {}, "the first"); });
    QString reason;
    EXPECT_FALSE(view->total(&reason));
    EXPECT_EQ(reason, QStringLiteral("the first"));
    fail([] { throw RuntimeError(91); });
    EXPECT_FALSE(view->total(&reason));
    EXPECT_FALSE(reason.contains(QStringLiteral("the first"))) << reason.toStdString();
}

TEST_F(WidgetTest, AListIsLoadedWhileTheEditorIsOpen)
{
    ASSERT_TRUE(view->load(kTwo));
    view->setCurrentProduct(1);
    whenModal([&](QWidget& editor) {
        EXPECT_TRUE(view->load(QStringLiteral("1~Shelf:::5:1:0:5:~")));
        EXPECT_EQ(view->total(), Currency::fromText("5"));
        editor.findChild<QPushButton*>(QStringLiteral("cmdCancel"))->click();
    });
    view->action(Command::edit)->trigger();
    EXPECT_EQ(view->products(), QStringLiteral("1~Shelf:::5:1:0:5:~"));
    EXPECT_FALSE(view->Dirty());
}

TEST_F(WidgetTest, PropertiesTellWhenTheyChange)
{
    struct Row {
        const char* name;
        std::function<void()> change;
        QVariant before, after;
    };
    const Row rows[] = {
        {"total", [&] { view->load(kTwo); }, QString(QStringLiteral("$0")), QStringLiteral("$1,052.95")},
        {"currentRow", [&] { view->setProperty("currentRow", 2); }, 0, 2},
        {"hostTypeName", [&] { view->setProperty("hostTypeName", QStringLiteral("Quote")); }, QString(),
         QStringLiteral("Quote")},
        {"dirty", [&] { view->action(Command::moveUp)->trigger(); }, false, true},
        {"readOnly", [&] { view->setProperty("readOnly", true); }, false, true},
    };
    ASSERT_TRUE(view->load(QString()));
    settle();
    forEachRow(rows, [&](const Row& row) {
        const QMetaObject& type = *view->metaObject();
        const QMetaProperty property = type.property(type.indexOfProperty(row.name));
        ASSERT_TRUE(property.isValid() && property.hasNotifySignal());
        QSignalSpy told(&*view, property.notifySignal());
        EXPECT_EQ(property.read(&*view), row.before);
        row.change();
        EXPECT_EQ(told.count(), 0) << "signals come from the event loop";
        settle();
        EXPECT_EQ(property.read(&*view), row.after);
        EXPECT_EQ(told.count(), 1);
        view->setProperty(row.name, row.after); // the same value, as far as it can be set
        settle();
        EXPECT_EQ(told.count(), 1) << "nothing has changed";
    });
    EXPECT_FALSE(view->setProperty("dirty", false)) << "the host cannot set it";
}

TEST_F(WidgetTest, AListToReadTakesNoInput)
{
    ASSERT_TRUE(view->load(kTwo));
    QAction* const edit = view->action(Command::edit);
    QAction* const remove = view->action(Command::remove);
    view->setCurrentProduct(1);
    view->setReadOnly(true);
    EXPECT_EQ(edit->text(), QStringLiteral("View Product"));
    EXPECT_TRUE(edit->isEnabled());
    EXPECT_FALSE(remove->isEnabled());
    EXPECT_EQ(view->action(Command::paste)->isEnabled(), false) << "one that is asked for later";

    QTest::keyClick(&table(), Qt::Key_Delete);
    dragFirstRowDown();
    EXPECT_EQ(view->products(), kTwo);
    EXPECT_TRUE(box->shown.empty());
    view->action(Command::rowMenu)->trigger();
    auto* const menu = view->findChild<QMenu*>(QStringLiteral("mnuRow"));
    EXPECT_EQ(menu->findChild<QAction*>(QStringLiteral("edit"))->text(), QStringLiteral("View Product"));
    EXPECT_FALSE(menu->findChild<QAction*>(QStringLiteral("delete"))->isEnabled());
    menu->close();
    for (const char* name : {"cmdNew", "cmdDelete", "cmdMoveUp", "cmdMoveDown"}) {
        EXPECT_FALSE(view->findChild<QPushButton*>(QString::fromLatin1(name))->isEnabled()) << name;
    }
    view->setReadOnly(false);
    EXPECT_EQ(edit->text(), QStringLiteral("Edit"));
    EXPECT_TRUE(remove->isEnabled());
    dragFirstRowDown();
    EXPECT_NE(view->products(), kTwo) << "the rows can be dragged again";
}

TEST_F(WidgetTest, TheEditorToReadHasBoxesThatCanBeCopied)
{
    ASSERT_TRUE(view->load(kTwo));
    view->setReadOnly(true);
    view->setCurrentProduct(2);
    whenModal([&](QWidget& editor) {
        EXPECT_TRUE(editor.findChildren<QComboBox*>().isEmpty());
        for (auto* const line : editor.findChildren<QLineEdit*>()) {
            EXPECT_TRUE(line->isReadOnly()) << line->objectName().toStdString();
        }
        auto* const note = editor.findChild<QPlainTextEdit*>();
        note->setFocus();
        QTest::keyClicks(note, QStringLiteral("x"));
        QTest::keyClick(note, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(note->toPlainText(), QStringLiteral("blue"));
        QTest::keyClick(note, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(note, Qt::Key_C, Qt::ControlModifier);
        EXPECT_FALSE(editor.findChild<QPushButton*>(QStringLiteral("cmdSaveClose")));
        EXPECT_EQ(editor.findChild<QMenuBar*>()->actions().size(), 1);
        auto* const close = editor.findChild<QPushButton*>(QStringLiteral("cmdCancel"));
        EXPECT_EQ(close->text(), QStringLiteral("&Close"));
        close->click();
    });
    QTest::keyClick(&table(), Qt::Key_Return);
    EXPECT_EQ(host->platform().clipboard().text(), "blue");
    EXPECT_EQ(view->products(), kTwo);
    EXPECT_TRUE(box->shown.empty()) << "nothing is asked";
}

TEST_F(WidgetTest, TheDialogOpensAboveTheWindowThatOwnsIt)
{
    const auto list = ui::createComponent<ProductMgr>(host->components(), kProductMgrClassName);
    list->SetProductsString(kTwo.toStdString(), kRecordSeparator, kFieldSeparator, false);
    ASSERT_TRUE(kTwoScreens);
    QWidget active, other, onTheSmallScreen;
    auto* const inside = new QWidget(&other);
    active.setGeometry(0, 0, 300, 200);
    other.setGeometry(460, 430, 300, 200);
    onTheSmallScreen.setGeometry(1220, 40, 100, 100);
    active.show();
    other.show();
    onTheSmallScreen.show();
    active.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&active));
    auto gone = std::make_unique<QWidget>();
    const std::int32_t goneWindow = ownerWindow(gone.get());
    gone.reset();
    struct Row {
        const char* name;
        std::int32_t owner;
        QWidget* above;
    };
    const Row rows[] = {
        {"the window itself", ownerWindow(&other), &other},
        {"a widget in it", ownerWindow(inside), &other},
        {"one on the other screen", ownerWindow(&onTheSmallScreen), &onTheSmallScreen},
        {"none", ownerWindow(nullptr), &active},
        {"one that is gone", goneWindow, &active},
    };
    forEachRow(rows, [&](const Row& row) {
        ProductDlg dialog(host->platform(), row.owner);
        whenModal([&](QWidget& editor) {
            EXPECT_EQ(editor.windowHandle()->transientParent(), row.above->windowHandle());
            EXPECT_EQ(editor.screen(), row.above->screen());
            EXPECT_TRUE(editor.screen()->availableGeometry().contains(editor.frameGeometry()));
            const QPoint away = editor.geometry().center() - other.frameGeometry().center();
            if (row.above ==
                &other) { // the other window is in a corner, where the editor has no place above its middle
                EXPECT_LT(away.manhattanLength(), 64);
            }
            editor.close();
        });
        dialog.Show(list, 1);
        active.activateWindow();
        settle();
    });
}

} // namespace
} // namespace orvan::test
