#include "tests/support/ViewFixture.h"

namespace orvan::test {
namespace {

class ProductViewCommandsTest : public ViewFixture {};

TEST_F(ProductViewCommandsTest, DeletingAsksFirstAndMovingStopsAtTheEnds)
{
    struct Row {
        const char* button;
        std::int32_t currentRow;
        std::optional<ui::MessageResult> answer;
        const char *question, *names, *total;
        bool dirty;
        std::int32_t rowAfter;
    };
    using Answer = ui::MessageResult;
    const char* const kSure = "Are you sure you want to delete the selected product?";
    for (const Row& row : std::initializer_list<Row>{
             {"cmdDelete", 0, Answer::ok, "Please select a product first", "Desk Lamp Chair", "$1,965.43", false, 0},
             {"cmdDelete", 2, Answer::no, kSure, "Desk Lamp Chair", "$1,965.43", false, 2},
             {"cmdDelete", 1, Answer::yes, kSure, "Lamp Chair", "$987.43", true, 1},
             {"cmdDelete", 3, Answer::yes, kSure, "Desk Lamp", "$1,090.43", true, 2},
             {"cmdMoveUp", 0, {}, nullptr, "Desk Lamp Chair", "$1,965.43", false, 0},
             {"cmdMoveUp", 1, {}, nullptr, "Desk Lamp Chair", "$1,965.43", false, 1},
             {"cmdMoveUp", 3, {}, nullptr, "Desk Chair Lamp", "$1,965.43", true, 2},
             {"cmdMoveDown", 2, {}, nullptr, "Desk Chair Lamp", "$1,965.43", true, 3},
             {"cmdMoveDown", 3, {}, nullptr, "Desk Lamp Chair", "$1,965.43", false, 3}}) {
        SCOPED_TRACE(row.button + std::to_string(row.currentRow));
        makeView();
        view->Show(kThreeProducts);
        if (row.currentRow > 0) {
            view->flexGrid().chooseRow(row.currentRow);
        }
        if (row.answer) {
            platform.messageBox().answer(*row.answer);
        }
        button(row.button).click();
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
    }
}

TEST_F(ProductViewCommandsTest, AHostMayDestroyTheViewWhileItAsks)
{
    makeView();
    view->Show(kThreeProducts);
    view->flexGrid().chooseRow(2);
    platform.messageBox().onWaiting = [this](const ui::Message&) { view.reset(); };
    platform.messageBox().answer(ui::MessageResult::yes);
    button("cmdDelete").click();
    EXPECT_EQ(faults.managersAlive, 0);
}

TEST_F(ProductViewCommandsTest, AnErrorIsShownWithTheHostWindowAsOwner)
{
    struct Row {
        const char* button;
        int failAtCall;
        int recorded; ///< Once by each procedure on the way up.
    };
    for (const Row& row : std::initializer_list<Row>{{"cmdMoveUp", 1, 2},     // the seek
                                                     {"cmdMoveUp", 2, 2},     // the move
                                                     {"cmdMoveDown", 3, 3},   // the refresh
                                                     {"cmdDelete", 1, 2},     // the deletion
                                                     {"cmdDelete", 2, 3}}) {  // the refresh
        makeView();
        view->site() = headless::HeadlessSite("TestForm", 77);
        view->Show(kThreeProducts);
        view->flexGrid().chooseRow(2);
        if (std::string(row.button) == "cmdDelete") {
            platform.messageBox().answer(ui::MessageResult::yes);
        }
        trace->declareError(1000, row.recorded);
        faults.failAtCall = row.failAtCall;
        button(row.button).click();
        EXPECT_EQ(trace->lines().back(), "show 77") << row.button << ' ' << row.failAtCall;
    }
}

} // namespace
} // namespace orvan::test
