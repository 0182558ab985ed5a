#include "tests/support/Rows.h"
#include "tests/support/ViewFixture.h"

namespace orvan::test {
namespace {

class ProductViewCommandsTest : public ViewFixture {};

TEST_F(ProductViewCommandsTest, ARowIsDeletedOnceAnsweredAndMovedWithinTheEnds)
{
    struct Row {
        const char *name, *button;
        std::string list = kThreeProducts;
        std::int32_t row = 0, rowAfter = 0;
        std::optional<ui::MessageResult> answer = {};
        const char *question = nullptr, *names = "Desk Lamp Chair", *total = "$1,965.43";
        bool dirty = false;
    };
    const char* const kSelect = "Please select a product first";
    const char* const kSure = "Are you sure you want to delete the selected product?";
    const auto ok = ui::MessageResult::ok;
    const auto yes = ui::MessageResult::yes;
    const auto no = ui::MessageResult::no;
    // clang-format off
    const Row rows[] = {
        {.name = "delete, none selected", .button = "cmdDelete", .answer = ok, .question = kSelect},
        {.name = "delete, No", .button = "cmdDelete", .row = 2, .rowAfter = 2, .answer = no, .question = kSure},
        {.name = "delete the first", .button = "cmdDelete", .row = 1, .rowAfter = 1, .answer = yes, .question = kSure,
         .names = "Lamp Chair", .total = "$987.43", .dirty = true},
        {.name = "delete the last", .button = "cmdDelete", .row = 3, .rowAfter = 2, .answer = yes, .question = kSure,
         .names = "Desk Lamp", .total = "$1,090.43", .dirty = true},
        {.name = "up, none selected", .button = "cmdMoveUp"},
        {.name = "the first up", .button = "cmdMoveUp", .row = 1, .rowAfter = 1},
        {.name = "the last up", .button = "cmdMoveUp", .row = 3, .rowAfter = 2, .names = "Desk Chair Lamp",
         .dirty = true},
        {.name = "down", .button = "cmdMoveDown", .row = 2, .rowAfter = 3, .names = "Desk Chair Lamp", .dirty = true},
        {.name = "the last down", .button = "cmdMoveDown", .row = 3, .rowAfter = 3},
        {.name = "down, none selected", .button = "cmdMoveDown"},
        {.name = "delete, empty list", .button = "cmdDelete", .list = "", .answer = ok, .question = kSelect,
         .names = "", .total = "$0"},
        {.name = "up, empty list", .button = "cmdMoveUp", .list = "", .names = "", .total = "$0"},
        {.name = "down, empty list", .button = "cmdMoveDown", .list = "", .names = "", .total = "$0"},
    };
    // clang-format on
    forEachRow(rows, [&](const Row& row) {
        makeView().Show(row.list);
        if (row.row > 0) {
            view->flexGrid().chooseRow(row.row);
        }
        if (row.answer) {
            platform.messageBox().answer(*row.answer);
        }
        const std::size_t asked = platform.messageBox().shown().size();
        button(row.button).click();
        ASSERT_EQ(platform.messageBox().shown().size(), asked + (row.question ? 1 : 0));
        if (row.question) {
            EXPECT_EQ(platform.messageBox().shown().back().text, row.question);
            EXPECT_EQ(platform.messageBox().shown().back().title, "Orvan");
        }
        EXPECT_EQ(names(), row.names);
        EXPECT_EQ(view->txtTotal().text(), row.total);
        EXPECT_EQ(view->Dirty(), row.dirty);
        EXPECT_EQ(view->flexGrid().currentRow(), row.rowAfter);
        view->Show(kThreeProducts);
        EXPECT_EQ(view->Dirty(), row.dirty) << "outlives another list";
    });
}

TEST_F(ProductViewCommandsTest, AHostMayDestroyTheViewWhileItAsks)
{
    for (const bool answered : {true, false}) {
        makeView();
        view->Show(kThreeProducts);
        view->flexGrid().chooseRow(2);
        platform.messageBox().onWaiting = [&](const ui::Message&) {
            view.reset();
            if (!answered) {
                trace->declareError(1000, 2);
                throw RuntimeError(1000);
            }
        };
        if (answered) {
            platform.messageBox().answer(ui::MessageResult::yes);
        }
        button("cmdDelete").click();
        EXPECT_EQ(faults.managersAlive, 0) << answered;
    }
    EXPECT_EQ(trace->lines().back(), "show 0");
}

TEST_F(ProductViewCommandsTest, AnErrorIsShownWithTheHostWindowAsOwner)
{
    struct Row {
        const char *name, *button;
        int failAtCall, recorded;
    };
    const Row rows[] = {
        {.name = "the seek of a move up", .button = "cmdMoveUp", .failAtCall = 1, .recorded = 2},
        {.name = "the move up", .button = "cmdMoveUp", .failAtCall = 2, .recorded = 2},
        {.name = "the refresh after a move down", .button = "cmdMoveDown", .failAtCall = 3, .recorded = 3},
        {.name = "the deletion", .button = "cmdDelete", .failAtCall = 1, .recorded = 2},
        {.name = "the refresh after a deletion", .button = "cmdDelete", .failAtCall = 2, .recorded = 3},
    };
    forEachRow(rows, [&](const Row& row) {
        makeView("TestForm", 77).Show(kThreeProducts);
        view->flexGrid().chooseRow(2);
        if (std::string_view(row.button) == "cmdDelete") {
            platform.messageBox().answer(ui::MessageResult::yes);
        }
        trace->declareError(1000, row.recorded);
        faults.failAtCall = row.failAtCall;
        button(row.button).click();
        EXPECT_EQ(trace->lines().back(), "show 77");
    });
}

TEST_F(ProductViewCommandsTest, TheEditorOpensOnARowOrOnANewProduct)
{
    struct Row {
        const char* name;
        std::optional<std::int32_t> doubleClick = {}; // none: the add button
        bool lost = false;                            // the manager no longer finds the product
        const char* caption = nullptr;
        bool typed = false;
        std::int32_t shownRow = 0;
        const char* shown = "# | Product | Qty | Ext Price";
    };
    // clang-format off
    const Row rows[] = {
        {.name = "beside all rows", .doubleClick = -1},
        {.name = "the header", .doubleClick = 0},
        {.name = "nothing edited", .doubleClick = 2, .caption = "Lamp (2/3)", .shownRow = 2,
         .shown = "2 | Lamp | 1.5 | $112.43"},
        {.name = "edited", .doubleClick = 2, .caption = "Lamp (2/3)", .typed = true, .shownRow = 2,
         .shown = "2 | Lamp | 4 | $299.80"},
        {.name = "a product no longer there", .doubleClick = 3, .lost = true, .caption = "Desk (1/3)", .shownRow = 1,
         .shown = "1 | Desk | 2 | $978.00"},
        {.name = "the add button", .caption = " (4/4)", .typed = true, .shownRow = 4, .shown = "4 |  | 4 | $0.00"},
    };
    // clang-format on
    forEachRow(rows, [&](const Row& row) {
        makeView().Show(kThreeProducts);
        bool opened = false;
        if (row.caption) {
            platform.drive([&](headless::FormDriver& form) {
                opened = true;
                EXPECT_EQ(form.caption(), row.caption);
                if (row.typed) {
                    form.focus("txtQty");
                    form.textBox("txtQty").type("4");
                    platform.messageBox().answer(ui::MessageResult::yes);
                }
                form.clickCloseBox();
            });
        }
        faults.notFoundFrom = row.lost ? *row.doubleClick : 0;
        row.doubleClick ? view->flexGrid().doubleClick(*row.doubleClick) : button("cmdNew").click();
        faults.notFoundFrom = 0;
        EXPECT_EQ(opened, row.caption != nullptr);
        EXPECT_EQ(view->Dirty(), row.typed);
        EXPECT_EQ(this->row(row.shownRow), row.shown);
    });
}

TEST_F(ProductViewCommandsTest, AHostMayDestroyTheViewWhileTheEditorIsOpen)
{
    makeView().Show(kThreeProducts);
    platform.drive([&](headless::FormDriver& form) {
        view.reset();
        form.button("cmdNext").click();
        EXPECT_EQ(form.caption(), "Chair (3/3)");
        form.clickCloseBox();
    });
    view->flexGrid().doubleClick(2);
    EXPECT_EQ(faults.managersAlive, 0);
}

} // namespace
} // namespace orvan::test
