// The list view as a widget: what its slots may call, its properties, its switch for reading, its services.
#include "orvan/editor/ProductDlg.h"
#include "orvan/hosting/ProductViewWidget.h"
#include "orvan/hosting/QtHost.h"
#include "tests/hosting/HostServices.h"
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

/// A manager whose calls fail as a test says; otherwise it is the library's.
class FailingMgr final : public ProductMgr {
public:
    using Fail = std::function<void()>;
    explicit FailingMgr(const Fail& fail) : fail_(fail) {}

    std::int32_t GetProductCount() override { return inner().GetProductCount(); }
    Currency GetTotalValue() override { return inner().GetTotalValue(); }
    void SeekIndex(std::int32_t& lIndex, std::int32_t lOffset, bool& found) override
    {
        inner().SeekIndex(lIndex, lOffset, found);
    }
    std::shared_ptr<ProductRecord> AddNewProduct() override { return inner().AddNewProduct(); }
    std::shared_ptr<ProductRecord> GetProduct(std::int32_t lIndex) override { return inner().GetProduct(lIndex); }
    void DeleteProduct(std::int32_t lIndex) override { inner().DeleteProduct(lIndex); }
    void MoveProduct(std::int32_t from, std::int32_t to) override { inner().MoveProduct(from, to); }
    void SetProductsString(std::string_view sProducts, const std::string& recordSeparator,
                           const std::string& fieldSeparator, bool flag) override
    {
        inner().SetProductsString(sProducts, recordSeparator, fieldSeparator, flag);
    }
    std::string GetProductsString(const std::string& recordSeparator, const std::string& fieldSeparator) override
    {
        return inner().GetProductsString(recordSeparator, fieldSeparator);
    }
    std::int32_t GetMaxDataSize() override { return inner().GetMaxDataSize(); }

private:
    ProductMgr& inner()
    {
        if (fail_) {
            fail_();
        }
        return *inner_;
    }

    const Fail& fail_;
    std::shared_ptr<ProductMgr> inner_ = std::dynamic_pointer_cast<ProductMgr>(productMgrFactory()());
};

class WidgetTest : public testing::Test {
protected:
    WidgetTest()
    {
        HostOptions options;
        options.locale = {.monetary = "en_US", .numeric = "en_US"};
        options.messageBox = box;
        options.makeProductMgr = [this] { return std::make_shared<FailingMgr>(fail); };
        host.emplace(options);
        view.emplace(host->platform());
        view->resize(600, 400);
        view->show();
        settle();
    }
    ~WidgetTest() override
    {
        fail = nullptr;
        view.reset();
    }

    static void settle() { QCoreApplication::processEvents(); }
    QTableView& table() { return *view->findChild<QTableView*>(); }

    const std::shared_ptr<OwnBox> box = std::make_shared<OwnBox>();
    FailingMgr::Fail fail;
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
        FailingMgr::Fail fail;
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
    forEachRow(rows, [&](const Row& row) {
        fail = nullptr;
        ASSERT_TRUE(view->load(kTwo));
        fail = row.fail;
        QString loading, reading, adding;
        EXPECT_FALSE(view->products(&reading));
        EXPECT_FALSE(view->total(&adding));
        EXPECT_FALSE(view->load(kTwo, &loading));
        for (const QString& reason : {loading, reading, adding}) {
            EXPECT_THAT(reason.toStdString(), HasSubstr(row.reason));
        }
        EXPECT_FALSE(view->load(kTwo));
        EXPECT_FALSE(view->products());
        EXPECT_FALSE(view->total());
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
    fail = [] { throw RuntimeError(91, {}, "the first"); };
    QString reason;
    EXPECT_FALSE(view->total(&reason));
    EXPECT_EQ(reason, QStringLiteral("the first"));
    fail = [] { throw RuntimeError(91); };
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
    const auto rowCentre = [&](int row) { return table().visualRect(table().model()->index(row, 1)).center(); };
    QWidget* const rows = table().viewport();
    QTest::mousePress(rows, Qt::LeftButton, {}, rowCentre(0));
    QTest::mouseMove(rows, rowCentre(0) + QPoint(0, 12));
    QTest::mouseMove(rows, rowCentre(1) + QPoint(0, 12));
    QTest::mouseRelease(rows, Qt::LeftButton, {}, rowCentre(1) + QPoint(0, 12));
    EXPECT_EQ(view->products(), kTwo);
    EXPECT_TRUE(box->shown.empty());
    for (const char* name : {"cmdNew", "cmdDelete", "cmdMoveUp", "cmdMoveDown"}) {
        EXPECT_FALSE(view->findChild<QPushButton*>(QString::fromLatin1(name))->isEnabled()) << name;
    }
    view->setReadOnly(false);
    EXPECT_EQ(edit->text(), QStringLiteral("Edit"));
    EXPECT_TRUE(remove->isEnabled());
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
