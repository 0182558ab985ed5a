#include "orvan/editor/frmProductDesign.h"
#include "orvan/ui/Surface.h"
#include "tests/support/EditorFixture.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"

namespace orvan::test {
namespace {

using headless::FormDriver;

class EditorTest : public EditorFixture {
public:
    /// Which of first, previous, next, last can be pressed; each tool is as its button.
    static std::string ways(FormDriver& form)
    {
        std::string letters;
        const auto& tools = form.toolBar("atbMain");
        for (const auto& [button, tool, letter] :
             {std::tuple("cmdGotoFirst", "ID_GotoFirst", 'f'), std::tuple("cmdPrevious", "ID_GotoPrevious", 'p'),
              std::tuple("cmdNext", "ID_GotoNext", 'n'), std::tuple("cmdGotoLast", "ID_GotoLast", 'l')}) {
            EXPECT_EQ(form.button(button).canTakeFocus(), tools.toolEnabled(tool)) << button;
            letters += form.button(button).canTakeFocus() ? letter : '-';
        }
        return letters;
    }
    static void choose(FormDriver& form, std::string_view tool) { form.toolBar("atbMain").choose(tool); }
};

TEST_F(EditorTest, AProductIsShownInEveryBox)
{
    const std::string longName(300, 'n');
    const std::string longNote(5000, 'x');
    load("2~" + longName + "::P:1234.5:2.5:12.5:2700.4688:" + longNote + "~:::0:3:10:0:~");
    edit(1, [&](FormDriver& form) {
        EXPECT_EQ(form.caption(), std::string(25, 'n') + " (1/2)");
        struct Row {
            const char* name;
            std::string text;
        };
        const Row rows[] = {
            {"cboProductName", longName.substr(0, 255)},
            {"txtNote", longNote.substr(0, 4095)},
            {"txtUnitPrice", "$1,234.50"},
            {"txtDiscount", "12.5000%"},
            {"txtQty", "2.5000"},
            {"txtExtPrice", "$2,700.47"},
            {"txtTotal", "$2,700.47"},
        };
        forEachRow(rows, [&](const Row& row) { EXPECT_EQ(entry(form, row.name).text(), row.text); });
        EXPECT_EQ(form.focusedControl(), "cboPartNum");
        form.button("cmdNext").click();
        EXPECT_EQ(form.caption(), " (2/2)");
        EXPECT_EQ(form.textBox("txtQty").text(), "3");
        EXPECT_EQ(form.textBox("txtDiscount").text(), "10%");
        form.clickCloseBox();
    });
    EXPECT_FALSE(dialog.Dirty()); // the long texts were cut while the seek loaded, which marks nothing
    EXPECT_EQ(dialog.CurrentProductIndex(), 0);
}

TEST_F(EditorTest, EachKeyDoesWhatItsMenuEntryDoes)
{
    struct Row {
        const char *name, *box;
        std::vector<const char*> keys;
        const char *caption, *focus, *names;
        bool dirty = false;
    };
    const Row rows[] = {
        {"next and previous",
         "txtQty",
         {"Ctrl+PgDown", "Ctrl+PgDown", "Ctrl+PgUp"},
         "Lamp (2/3)",
         "txtQty",
         "Desk Lamp Chair"},
        {"last and first", "txtQty", {"Ctrl+End", "Ctrl+Home"}, "Desk (1/3)", "txtQty", "Desk Lamp Chair"},
        {"greyed at the end", "txtQty", {"Ctrl+End", "Ctrl+PgDown"}, "Chair (3/3)", "txtQty", "Desk Lamp Chair"},
        {"the note's own", "txtNote", {"Ctrl+End", "Ctrl+Home"}, "Desk (1/3)", "txtNote", "Desk Lamp Chair"},
        {"next from the note", "txtNote", {"Ctrl+PgDown"}, "Lamp (2/3)", "txtNote", "Desk Lamp Chair"},
        {"new, at its part number", "txtQty", {"Ctrl+N"}, " (4/4)", "cboPartNum", "Desk Lamp Chair ", true},
        {"duplicate", "txtQty", {"Ctrl+D"}, "Desk (2/4)", "txtQty", "Desk Desk Lamp Chair", true},
        {"a letter that no entry shows", "txtQty", {"Ctrl+Q"}, "Desk (1/3)", "txtQty", "Desk Lamp Chair"},
    };
    forEachRow(rows, [&](const Row& row) {
        load(kThreeProducts);
        edit(1, [&](FormDriver& form) {
            form.focus(row.box);
            for (const char* key : row.keys) {
                form.pressKey(key);
            }
            EXPECT_EQ(form.caption(), row.caption);
            EXPECT_EQ(form.focusedControl(), row.focus);
            if (row.dirty) {
                platform.messageBox().answer(ui::MessageResult::yes);
            }
            form.clickCloseBox();
        });
        std::string names;
        for (std::int32_t i = 1; i <= manager->GetProductCount(); ++i) {
            names.append(i > 1 ? " " : "").append(manager->GetProduct(i)->Name());
        }
        EXPECT_EQ(names, row.names);
        EXPECT_EQ(dialog.Dirty(), row.dirty);
    });
    platform.editing = ui::EditingWay::careful;
    edit(1, [&](FormDriver& form) {
        form.textBox("txtQty").type("7");
        form.pressKey("Ctrl+Return");
        EXPECT_FALSE(form.loaded()) << "saved and closed";
    });
    EXPECT_NE(products().find("Desk::D-1:489:7"), std::string::npos) << products();
}

TEST_F(EditorTest, ButtonsAndMenuMoveThroughTheList)
{
    load(kThreeProducts);
    edit(2, [&](FormDriver& form) {
        EXPECT_EQ(ways(form), "fpnl");
        struct Row {
            const char *name, *tool, *caption, *ways, *focus;
        };
        const Row rows[] = {
            {"cmdNext", "ID_GotoNext", "Chair (3/3)", "fp--", "cmdPrevious"},
            {"cmdGotoFirst", "ID_GotoFirst", "Desk (1/3)", "--nl", "cmdNext"},
            {"cmdGotoLast", "ID_GotoLast", "Chair (3/3)", "fp--", "cmdPrevious"},
            {"cmdPrevious", "ID_GotoPrevious", "Desk (1/3)", "--nl", "cmdNext"},
        };
        forEachRow(rows, [&](const Row& row) {
            form.button(row.name).click();
            EXPECT_EQ(form.focusedControl(), row.focus) << "a button that went grey hands the focus on";
            for (const bool byMenu : {false, true}) {
                if (byMenu) {
                    choose(form, row.tool);
                }
                EXPECT_EQ(form.caption(), row.caption);
                EXPECT_EQ(ways(form), row.ways);
                choose(form, ways(form) == "fp--" ? "ID_GotoPrevious" : "ID_GotoNext");
                EXPECT_EQ(form.caption(), "Lamp (2/3)");
            }
        });
        choose(form, "ID_Product");
        choose(form, "ID_Goto");
        EXPECT_EQ(form.caption(), "Lamp (2/3)") << "opening a menu moves nothing";
        EXPECT_EQ(errorOf([&] { choose(form, "id_gotofirst"); }), 5) << "IDs are compared exactly";
        form.clickCloseBox();
    });
    EXPECT_FALSE(dialog.Dirty());
}

TEST_F(EditorTest, AProductIsAddedAtTheEndAndMarksTheSession)
{
    struct Row {
        const char* name;
        std::string list;
        bool byButton = false;
        const char* caption;
    };
    const Row rows[] = {
        {.name = "an empty list", .list = "", .caption = " (1/1)"},
        {.name = "opened on a new product", .list = kThreeProducts, .caption = " (4/4)"},
        {.name = "the new button", .list = kThreeProducts, .byButton = true, .caption = " (4/4)"},
    };
    forEachRow(rows, [&](const Row& row) {
        load(row.list);
        answer({ui::MessageResult::yes});
        edit(row.byButton ? 1 : 0, [&](FormDriver& form) {
            if (row.byButton) {
                form.button("cmdNew").click();
                EXPECT_EQ(form.focusedControl(), "cboProductName");
            }
            EXPECT_EQ(form.caption(), row.caption);
            EXPECT_EQ(form.textBox("txtQty").text(), "1");
            EXPECT_EQ(form.textBox("txtDiscount").text(), "0%");
            form.clickCloseBox();
        });
        EXPECT_TRUE(dialog.Dirty());
        EXPECT_EQ(manager->GetProduct(manager->GetProductCount())->Qty(), Currency::fromInteger(1));
    });
}

TEST_F(EditorTest, AFormKeptOpenOnAnEmptyListHasOnlyANewProductToOffer)
{
    using enum ui::MessageResult;
    load("1~Desk::D-1:489:2:0:978:~");
    answer({yes, cancel, no});
    edit(1, [&](FormDriver& form) {
        form.textBox("txtNote").type("n");
        form.button("cmdDelete").click();
        EXPECT_EQ(form.caption(), " (0/0)");
        EXPECT_EQ(form.focusedControl(), "cmdNew");
        EXPECT_FALSE(form.textBox("txtQty").canTakeFocus());
        EXPECT_EQ(errorOf([&] { choose(form, "ID_DeleteProduct"); }), 5);
        form.button("cmdNew").click();
        EXPECT_EQ(form.caption(), " (1/1)");
        EXPECT_TRUE(form.textBox("txtQty").canTakeFocus());
        form.clickCloseBox();
    });
    EXPECT_EQ(products(), "1~Desk::D-1:489:2:0:978:~");
}

TEST_F(EditorTest, NothingMovesNorIsAddedWhileTheListIsTooLarge)
{
    load(kThreeProducts);
    const auto ok = ui::MessageResult::ok;
    edit(2, [&](FormDriver& form) {
        faults.maxDataSize = 10;
        answer({ok, ok, ok, ok}); // the seek that follows the refused product saves again
        trace->declareError(ErrorNumber::outOfStringSpace, 4);
        for (const char* button : {"cmdNext", "cmdGotoLast", "cmdNew"}) {
            form.button(button).click();
            EXPECT_EQ(form.caption() + ways(form), "Lamp (2/3)fpnl");
        }
        EXPECT_EQ(prompts(), "ssss");
        form.clickCloseBox();
    });
    EXPECT_FALSE(dialog.Dirty());
}

TEST_F(EditorTest, TheManagerSaysWhichPositionsHoldAProduct)
{
    const auto yes = ui::MessageResult::yes;
    load(kThreeProducts);
    faults.seekMovesBy = 1; // a position further than asked for
    edit(1, [&](FormDriver& form) {
        EXPECT_EQ(form.caption(), "Lamp (2/3)") << "opening asks for the product's own position";
        faults.seekMovesBy = 0;
        faults.notFoundFrom = 3;
        choose(form, "ID_GotoLast"); // an absolute move asks too, and finds nothing to show
        EXPECT_EQ(form.caption(), "Lamp (2/3)");
        faults.notFoundFrom = 0;
        form.button("cmdPrevious").click();
        EXPECT_EQ(form.caption(), "Lamp (2/3)") << "counted from the position that was asked for";
        answer({yes, yes});
        form.button("cmdDelete").click();
        EXPECT_EQ(form.caption(), "Chair (2/2)");
        form.clickCloseBox(); // asks: showing the next product in the boxes has marked the session
    });
    EXPECT_EQ(prompts(), "dm");
    EXPECT_EQ(manager->GetProductCount(), 2);
}

TEST_F(EditorTest, AHandlerMayFindItsFormClosed)
{
    using ui::MessageResult;
    const auto failing = [&](const char* procedure, const std::function<void()>& act) {
        trace->declareError(1000, 2);
        trace->failEntering(std::string("KTVOrvanProduct.frmProduct::").append(procedure), 1000);
        act();
        trace->failEntering({}, 0);
    };
    load(kThreeProducts);
    answer({MessageResult::ok, MessageResult::yes, MessageResult::ok});
    edit(2, [&](FormDriver& form) {
        platform.messageBox().onWaiting = [&, asked = false](const ui::Message&) mutable {
            if (!std::exchange(asked, true)) { // while the question waits, another event fails and closes the dialog
                failing("PrvSaveNoteFld", [&] { form.textBox("txtNote").paste("x"); });
            }
        };
        form.button("cmdDelete").click();
        EXPECT_FALSE(form.loaded());
    });
    EXPECT_EQ(manager->GetProductCount(), 3);
    platform.messageBox().onWaiting = nullptr;
    edit(2, [&](FormDriver& form) {
        form.focus("txtQty"); // the box that is left closes the form: the button pressed does nothing more
        failing("PrvSaveQtyFld", [&] { form.button("cmdSaveClose").click(); });
        EXPECT_FALSE(form.loaded());
    });
    EXPECT_EQ(prompts(), "dee");
}

TEST_F(EditorTest, TheFieldsFillTheWindowAndTheButtonsFollow)
{
    load(kThreeProducts);
    edit(1, [&](FormDriver& form) {
        using Places = std::vector<float>;
        const auto places = [&] {
            Places all;
            for (const char* name : {"fraWizProducts", "fraLeftButtons", "cmdSaveClose", "cmdCancel"}) {
                const auto& control = dynamic_cast<ui::Surface&>(form).control<ui::Control>(name);
                all.insert(all.end(), {control.left(), control.top(), control.width(), control.height()});
            }
            return all;
        };
        const Places designed = places();
        struct Row {
            const char* name;
            float x, y;
            bool moves = true;
        };
        const Row rows[] = {
            {.name = "wider", .x = 1500, .y = 0},
            {.name = "higher", .x = 0, .y = 900},
            {.name = "smaller", .x = -600, .y = -300},
            {.name = "as designed", .x = 0, .y = 0},
            {.name = "no space for any frame", .x = -9e5F, .y = -9e5F, .moves = false},
        };
        forEachRow(rows, [&](const Row& row) {
            form.resize(kProductFormDesign.width + row.x, kProductFormDesign.height + row.y);
            const Places moved = {0, 0, row.x, row.y, 0, row.y, 0, 0, row.x, row.y, 0, 0, row.x, row.y, 0, 0};
            for (std::size_t i = 0; i < moved.size(); ++i) {
                EXPECT_EQ(places()[i], designed[i] + (row.moves ? moved[i] : 0)) << i;
            }
        });
        form.clickCloseBox();
    });
}

} // namespace
} // namespace orvan::test
