#include "orvan/ui/headless/HeadlessForm.h"
#include "tests/support/Rows.h"
#include "tests/support/ViewFixture.h"

namespace orvan::test {
namespace {

class ProductViewCommandsTest : public ViewFixture {};

TEST_F(ProductViewCommandsTest, ARowIsDeletedOnceAnsweredAndMovedWithinTheEnds)
{
    using Answer = ui::MessageResult;
    const char* const kSure = "Are you sure you want to delete the selected product?";
    for (const auto& [name, currentRow, answer, question, namesAfter, total, dirty, rowAfter] :
         Rows<const char*, int, std::optional<Answer>, const char*, const char*, const char*, bool, int>{
             {"cmdDelete", 0, Answer::ok, "Please select a product first", "Desk Lamp Chair", "$1,965.43", false, 0},
             {"cmdDelete", 2, Answer::no, kSure, "Desk Lamp Chair", "$1,965.43", false, 2},
             {"cmdDelete", 1, Answer::yes, kSure, "Lamp Chair", "$987.43", true, 1},
             {"cmdDelete", 3, Answer::yes, kSure, "Desk Lamp", "$1,090.43", true, 2},
             {"cmdMoveUp", 0, {}, nullptr, "Desk Lamp Chair", "$1,965.43", false, 0},
             {"cmdMoveUp", 1, {}, nullptr, "Desk Lamp Chair", "$1,965.43", false, 1},
             {"cmdMoveUp", 3, {}, nullptr, "Desk Chair Lamp", "$1,965.43", true, 2},
             {"cmdMoveDown", 2, {}, nullptr, "Desk Chair Lamp", "$1,965.43", true, 3},
             {"cmdMoveDown", 3, {}, nullptr, "Desk Lamp Chair", "$1,965.43", false, 3},
             {"cmdMoveDown", 0, {}, nullptr, "Desk Lamp Chair", "$1,965.43", false, 0},
             // -1: an empty list
             {"cmdDelete", -1, Answer::ok, "Please select a product first", "", "$0", false, 0},
             {"cmdMoveUp", -1, {}, nullptr, "", "$0", false, 0},
             {"cmdMoveDown", -1, {}, nullptr, "", "$0", false, 0}}) {
        SCOPED_TRACE(name + std::to_string(currentRow));
        makeView().Show(currentRow < 0 ? "" : kThreeProducts);
        if (currentRow > 0) {
            view->flexGrid().chooseRow(currentRow);
        }
        if (answer) {
            platform.messageBox().answer(*answer);
        }
        const std::size_t asked = platform.messageBox().shown().size();
        button(name).click();
        ASSERT_EQ(platform.messageBox().shown().size(), asked + (question ? 1 : 0));
        if (question) {
            EXPECT_EQ(platform.messageBox().shown().back().text, question);
            EXPECT_EQ(platform.messageBox().shown().back().title, "Orvan");
        }
        EXPECT_EQ(names(), namesAfter);
        EXPECT_EQ(view->txtTotal().text(), total);
        EXPECT_EQ(view->Dirty(), dirty);
        EXPECT_EQ(view->flexGrid().currentRow(), rowAfter);
        view->Show(kThreeProducts);
        EXPECT_EQ(view->Dirty(), dirty) << "outlives another list";
    }
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
    for (const auto& [name, failAtCall, recorded] : Rows<const char*, int, int>{{"cmdMoveUp", 1, 2},    // the seek
                                                                                {"cmdMoveUp", 2, 2},    // the move
                                                                                {"cmdMoveDown", 3, 3},  // the refresh
                                                                                {"cmdDelete", 1, 2},    // the deletion
                                                                                {"cmdDelete", 2, 3}}) { // the refresh
        makeView();
        view->site() = headless::HeadlessSite("TestForm", 77);
        view->Show(kThreeProducts);
        view->flexGrid().chooseRow(2);
        if (std::string(name) == "cmdDelete") {
            platform.messageBox().answer(ui::MessageResult::yes);
        }
        trace->declareError(1000, recorded);
        faults.failAtCall = failAtCall;
        button(name).click();
        EXPECT_EQ(trace->lines().back(), "show 77") << name << ' ' << failAtCall;
    }
}

TEST_F(ProductViewCommandsTest, TheEditorOpensOnARowOrOnANewProduct)
{
    // Row 0 is the header, -1 beside all rows; row 9 stands for the add button.
    for (const auto& [row, lost, caption, typed, dirty, rowAfter] :
         Rows<std::int32_t, bool, const char*, bool, bool, const char*>{
             {-1, false, nullptr, false, false, ""},
             {0, false, nullptr, false, false, ""},
             {2, false, "Lamp (2/3)", false, false, "2 | Lamp | 1.5 | $112.43"},
             {2, false, "Lamp (2/3)", true, true, "2 | Lamp | 4 | $299.80"},
             {3, true, "Desk (1/3)", false, false, "1 | Desk | 2 | $978.00"}, // no such product any more
             {9, false, " (4/4)", true, true, "4 |  | 4 | $0.00"}}) {
        SCOPED_TRACE(row);
        makeView().Show(kThreeProducts);
        bool opened = false;
        if (caption) {
            platform.drive([&, text = caption, type = typed](headless::HeadlessForm& form) {
                opened = true;
                EXPECT_EQ(form.caption(), text);
                if (type) {
                    form.focus("txtQty");
                    form.textBox("txtQty").type("4");
                }
                if (type) {
                    platform.messageBox().answer(ui::MessageResult::yes);
                }
                form.clickCloseBox();
            });
        }
        faults.notFoundFrom = lost ? row : 0;
        row == 9 ? button("cmdNew").click() : view->flexGrid().doubleClick(row);
        faults.notFoundFrom = 0;
        EXPECT_EQ(opened, caption != nullptr);
        EXPECT_EQ(view->Dirty(), dirty);
        if (opened) {
            EXPECT_EQ(this->row(rowAfter[0] - '0'), rowAfter);
        }
    }
}

TEST_F(ProductViewCommandsTest, AHostMayDestroyTheViewWhileTheEditorIsOpen)
{
    makeView().Show(kThreeProducts);
    platform.drive([&](headless::HeadlessForm& form) {
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
