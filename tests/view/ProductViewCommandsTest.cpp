#include "tests/support/ViewFixture.h"

namespace orvan::test {
namespace {

class ProductViewCommandsTest : public ViewFixture {
public:
    /// The names in list order.
    std::string names()
    {
        std::string text;
        for (std::int32_t i = 1; i < view->flexGrid().rowCount(); ++i) {
            text += (i == 1 ? "" : " ") + view->flexGrid().visibleTexts(i)[1];
        }
        return text;
    }
};

TEST_F(ProductViewCommandsTest, DeletingAsksFirst)
{
    struct Row {
        const char* what;
        std::int32_t currentRow;
        ui::MessageResult answer;
        const char* question;
        const char* names;
        const char* total;
        bool dirty;
        std::int32_t rowAfter;
    };
    const char* const kQuestion = "Are you sure you want to delete the selected product?";
    for (const Row& row : std::initializer_list<Row>{
             {"no row", 0, ui::MessageResult::ok, "Please select a product first", "Desk Lamp Chair", "$1,965.43",
              false, 0},
             {"answered No", 2, ui::MessageResult::no, kQuestion, "Desk Lamp Chair", "$1,965.43", false, 2},
             {"the first", 1, ui::MessageResult::yes, kQuestion, "Lamp Chair", "$987.43", true, 1},
             {"the last", 3, ui::MessageResult::yes, kQuestion, "Desk Lamp", "$1,090.43", true, 2}}) {
        makeView();
        view->Show(threeProducts());
        if (row.currentRow > 0) {
            view->flexGrid().chooseRow(row.currentRow);
        }
        platform.messageBox().answer(row.answer);
        button("cmdDelete").click();
        EXPECT_EQ(platform.messageBox().shown().back().text, row.question) << row.what;
        EXPECT_EQ(platform.messageBox().shown().back().title, "Orvan") << row.what;
        EXPECT_EQ(names(), row.names) << row.what;
        EXPECT_EQ(view->txtTotal().text(), row.total) << row.what;
        EXPECT_EQ(view->Dirty(), row.dirty) << row.what;
        EXPECT_EQ(view->flexGrid().currentRow(), row.rowAfter) << row.what;
    }
}

TEST_F(ProductViewCommandsTest, MovingStopsAtTheEnds)
{
    struct Row {
        const char* button;
        std::int32_t currentRow;
        const char* names;
        bool dirty;
        std::int32_t rowAfter;
    };
    for (const Row& row : std::initializer_list<Row>{{"cmdMoveUp", 0, "Desk Lamp Chair", false, 0},
                                                     {"cmdMoveUp", 1, "Desk Lamp Chair", false, 1},
                                                     {"cmdMoveUp", 3, "Desk Chair Lamp", true, 2},
                                                     {"cmdMoveDown", 2, "Desk Chair Lamp", true, 3},
                                                     {"cmdMoveDown", 3, "Desk Lamp Chair", false, 3}}) {
        makeView();
        view->Show(threeProducts());
        if (row.currentRow > 0) {
            view->flexGrid().chooseRow(row.currentRow);
        }
        button(row.button).click();
        EXPECT_EQ(names(), row.names) << row.button << ' ' << row.currentRow;
        EXPECT_EQ(view->Dirty(), row.dirty) << row.button << ' ' << row.currentRow;
        EXPECT_EQ(view->flexGrid().currentRow(), row.rowAfter) << row.button << ' ' << row.currentRow;
        EXPECT_EQ(view->txtTotal().text(), "$1,965.43") << row.button << ' ' << row.currentRow;
    }
}

TEST_F(ProductViewCommandsTest, DirtyOutlivesAnotherList)
{
    makeView();
    view->Show(threeProducts());
    view->flexGrid().chooseRow(1);
    button("cmdMoveDown").click();
    view->Show(threeProducts());
    EXPECT_TRUE(view->Dirty());
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
        view->Show(threeProducts());
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
