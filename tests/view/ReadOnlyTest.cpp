// The list and the editor for a user who only looks.

#include "orvan/editor/ProductDlg.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"
#include "tests/support/ViewFixture.h"

#include <sstream>

namespace orvan::test {
namespace {

using headless::FormDriver;

/// The second product has more decimals, longer texts, and other signs than the editor's boxes take.
const std::string kUnusual = "3~Desk::D-1:489:2:0:978:~" + std::string(300, 'n') +
                             "::L-7:-74.9512:1.5:0:112.425:" + std::string(5000, 'x') +
                             "~Chair::C-3:1000:1:12.5:875:blue~";

class ReadOnlyTest : public ViewFixture {
protected:
    void show(std::string_view products = kThreeProducts)
    {
        makeView().Show(products);
        view->setReadOnly(true);
        view->surface().focus("flexGrid");
    }
    void press(const char* keys)
    {
        std::istringstream all(keys);
        for (std::string key; all >> key;) {
            view->surface().pressKey(key);
        }
    }
    /// Opens the row's product to read, and lets `user` look.
    void read(std::int32_t row, const std::function<void(FormDriver& form)>& user)
    {
        platform.drive([&](FormDriver& form) {
            user(form);
            form.pressEscape();
        });
        view->flexGrid().doubleClick(row);
    }
};

TEST_F(ReadOnlyTest, NothingThatTheUserDoesChangesTheList)
{
    struct Row {
        const char *name, *keys;
        std::string clipboard = "kept";
        const char* selected = "1";
    };
    const Row rows[] = {
        {"add", "Down Ins"},
        {"duplicate", "Down Ctrl+D"},
        {"delete", "Down Del"},
        {"move up", "End Alt+Up", "kept", "3"},
        {"move down", "Down Alt+Down"},
        {"cut", "Down Ctrl+X"},
        {"paste", "Down Ctrl+V"},
        {"copy", "End Ctrl+C", "C-3", "3"},
        {"select all and copy", "Ctrl+A Ctrl+C", "L-7", "1 2 3"},
        {"find", "C h", "kept", "3"},
    };
    forEachRow(rows, [&](const Row& row) {
        show();
        platform.clipboard().setText("kept");
        press(row.keys);
        EXPECT_EQ(view->Products(), kThreeProducts);
        EXPECT_FALSE(view->Dirty());
        EXPECT_NE(platform.clipboard().text().find(row.clipboard), std::string::npos) << platform.clipboard().text();
        const auto selected = view->flexGrid().selectedRows();
        EXPECT_EQ(joined(0, static_cast<std::int32_t>(selected.size()),
                         [&](auto i) { return std::to_string(selected[static_cast<std::size_t>(i)]); }),
                  row.selected);
    });
    for (const char* name : {"cmdNew", "cmdDelete", "cmdMoveUp", "cmdMoveDown"}) {
        EXPECT_FALSE(button(name).canTakeFocus()) << name;
    }
    view->flexGrid().chooseRow(1);
    EXPECT_EQ(errorOf([&] { view->flexGrid().dragRows(3); }), 5);
}

TEST_F(ReadOnlyTest, TheMenuAndTheEmptyListSayWhatCanBeDone)
{
    show();
    view->flexGrid().rightClick(2, 1);
    auto& menu = view->surface().popupMenu("mnuRow");
    EXPECT_TRUE(menu.offered().starts_with("edit copy selectAll ")) << menu.offered();
    EXPECT_EQ(menu.caption("edit"), "View Product");
    menu.dismiss();
    view->setReadOnly(false);
    view->flexGrid().rightClick(2, 1);
    EXPECT_TRUE(menu.offered().starts_with("edit add duplicate delete ")) << menu.offered();
    EXPECT_EQ(menu.caption("edit"), "Edit");
    menu.dismiss();
    EXPECT_TRUE(button("cmdNew").canTakeFocus());
    show("");
    EXPECT_EQ(view->flexGrid().shownEmptyText(), "No products.");
}

TEST_F(ReadOnlyTest, AButtonThatHasTheFocusGivesItToTheList)
{
    makeView().Show(kThreeProducts);
    view->surface().focus("cmdMoveUp");
    view->setReadOnly(true);
    EXPECT_EQ(view->surface().focusedControl(), "flexGrid");
}

TEST_F(ReadOnlyTest, TheEditorShowsProductsAsTheyAreAndChangesNothing)
{
    int catalogues = 0;
    registry.registerClass(std::string(kProductLkpMgrClassName), [&] {
        ++catalogues;
        return std::make_shared<NoCatalogue>();
    });
    for (const auto way : {ui::EditingWay::classic, ui::EditingWay::careful}) {
        platform.editing = way;
        show(kUnusual);
        read(2, [&](FormDriver& form) {
            EXPECT_EQ(form.caption(), std::string(25, 'n') + " (2/3)");
            struct Row {
                const char* name;
                std::string text;
            };
            const Row boxes[] = {
                {"cboPartNum", "L-7"},       {"cboProductName", std::string(300, 'n')},
                {"txtUnitPrice", "-$74.95"}, {"txtQty", "1.5000"},
                {"txtDiscount", "0%"},       {"txtNote", std::string(5000, 'x')},
                {"txtExtPrice", "$112.43"},
            };
            std::string clipboard;
            forEachRow(boxes, [&](const Row& row) {
                auto& box = form.textBox(row.name);
                form.focus(row.name);
                box.type("9\n");
                box.paste("9");
                box.backspace();
                box.deleteForward();
                box.pressControl('A', clipboard);
                box.pressControl('X', clipboard);
                EXPECT_EQ(box.text(), row.text);
                EXPECT_EQ(clipboard, row.text) << "copied";
                platform.clock().advance(1000);
            });
            for (const char* name : {"cmdNew", "cmdDelete", "cmdSaveClose"}) {
                EXPECT_EQ(errorOf([&] { form.button(name); }), 424) << name;
            }
            EXPECT_EQ(errorOf([&] { static_cast<void>(form.toolBar("atbMain").toolEnabled("ID_NewProduct")); }), 5);
            for (const char* key : {"Ctrl+N", "Ctrl+D", "Ctrl+Return"}) {
                form.pressKey(key);
                EXPECT_TRUE(form.loaded()) << key;
            }
            form.pressKey("Ctrl+PgDown");
            EXPECT_EQ(form.textBox("txtNote").text(), "blue");
            form.button("cmdGotoFirst").click();
            form.toolBar("atbMain").choose("ID_GotoNext");
            form.toolBar("atbMain").choose("ID_GotoLast");
            EXPECT_EQ(form.caption(), "Chair (3/3)");
            EXPECT_FALSE(form.button("cmdNext").canTakeFocus());
        });
        EXPECT_EQ(view->Products(), kUnusual);
        EXPECT_FALSE(view->Dirty());
    }
    EXPECT_EQ(catalogues, 0);
}

TEST_F(ReadOnlyTest, AListThatCannotBeSavedOrReadOpensOrSaysWhy)
{
    show();
    faults.maxDataSize = 10;
    read(1, [](FormDriver& form) { EXPECT_EQ(form.textBox("txtQty").text(), "2"); });
    faults.maxDataSize.reset();

    platform.supportAddress = "help@acme.example";
    trace->declareError(1000, 2);
    platform.messageBox().answer(ui::MessageResult::ok);
    platform.drive([&](FormDriver& form) {
        faults.failAtCall = 1;
        form.button("cmdNext").click();
        EXPECT_FALSE(form.loaded());
    });
    view->flexGrid().doubleClick(1);
    EXPECT_TRUE(platform.messageBox().shown().back().text.english().ends_with(" at help@acme.example"));
    EXPECT_EQ(view->Products(), kThreeProducts);
}

TEST_F(ReadOnlyTest, AQuestionThatIsOpenWhenTheListIsSwitchedChangesNothing)
{
    for (const char* keys : {"Down Del", "Down Ctrl+X", "Down Ctrl+C Ctrl+V"}) {
        SCOPED_TRACE(keys);
        makeView().Show(kThreeProducts);
        view->surface().focus("flexGrid");
        platform.messageBox().onWaiting = [&](const ui::Message&) { view->setReadOnly(true); };
        platform.messageBox().answer(ui::MessageResult::yes);
        press(keys);
        platform.messageBox().onWaiting = nullptr;
        EXPECT_EQ(view->Products(), kThreeProducts);
        EXPECT_FALSE(view->Dirty());
    }
}

TEST_F(ReadOnlyTest, AnOpenEditorGoesOnAsItWasOpened)
{
    platform.editing = ui::EditingWay::careful;
    makeView().Show(kThreeProducts);
    platform.drive([&](FormDriver& form) {
        view->setReadOnly(true);
        form.textBox("txtQty").type("7");
        form.button("cmdSaveClose").click();
    });
    view->flexGrid().doubleClick(1);
    EXPECT_TRUE(view->Dirty());
    EXPECT_EQ(view->flexGrid().visibleTexts(1)[2], "7");

    read(1, [&](FormDriver& form) {
        view->setReadOnly(false);
        form.textBox("txtQty").type("8");
        EXPECT_EQ(form.textBox("txtQty").text(), "7");
    });
    platform.drive([&](FormDriver& form) {
        form.textBox("txtQty").type("8");
        form.button("cmdSaveClose").click();
    });
    view->flexGrid().doubleClick(1);
    EXPECT_EQ(view->flexGrid().visibleTexts(1)[2], "8");
}

TEST_F(ReadOnlyTest, TheDialogAloneOpensToReadForItsOwner)
{
    const auto list = makeManager();
    list->SetProductsString(kThreeProducts, kRecordSeparator, kFieldSeparator, false);
    for (const std::int32_t owner : {0, 4711}) {
        ProductDlg dialog(platform, owner);
        platform.drive([&](FormDriver& form) {
            EXPECT_EQ(form.ownerWindow(), owner);
            form.clickCloseBox();
        });
        dialog.showReadOnly(list, 2);
        EXPECT_FALSE(dialog.Dirty());
        trace->declareError(91, 2);
        EXPECT_EQ(errorOf([&] { dialog.showReadOnly(nullptr, 1); }), 91);
    }
}

} // namespace
} // namespace orvan::test
