#include "tests/support/ViewFixture.h"

#include <gmock/gmock.h>

#include <limits>

namespace orvan::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ProductViewTest : public ViewFixture {};

TEST_F(ProductViewTest, StartsEmptyAndClean)
{
    makeView();
    EXPECT_FALSE(view->Dirty());
    EXPECT_EQ(view->TotalValue(), Currency());
    EXPECT_EQ(view->Products(), productsOf({}));
    EXPECT_EQ(view->flexGrid().rowCount(), 1);
    EXPECT_EQ(columns(), "Number Name Qty ExtPrice [Key] [PartNum] [DiscPrcnt] [UnitPrice] [Note]");
    EXPECT_EQ(row(0), "# | Product | Qty | Ext Price");
    EXPECT_THAT(view->site().changedProperties(), ElementsAre("Dummy"));
}

TEST_F(ProductViewTest, ShowsWhatItIsGiven)
{
    makeView();
    view->Show(threeProducts());
    EXPECT_EQ(row(1), "1 | Desk | 2 | $978.00");
    EXPECT_EQ(row(2), "2 | Lamp | 1.5 | $112.43");
    EXPECT_EQ(row(3), "3 | Chair | 1 | $875.00");
    EXPECT_EQ(view->txtTotal().text(), "$1,965.43");
    EXPECT_EQ(view->Products(), threeProducts());
    EXPECT_EQ(view->TotalValue().toText(), "1965.425");
    EXPECT_FALSE(view->Dirty());
    EXPECT_EQ(view->flexGrid().currentRow(), 0) << "a refresh chooses no row";

    view->Show("");
    EXPECT_EQ(view->flexGrid().rowCount(), 1);
    EXPECT_EQ(view->txtTotal().text(), "$0");
}

TEST_F(ProductViewTest, EachShowHasAManagerOfItsOwn)
{
    makeView();
    view->Show(threeProducts());
    view->Show(productsOf({{.name = "Other"}}));
    EXPECT_EQ(managersMade, 3) << "one at the start, one for each list";
    EXPECT_EQ(faults.managersAlive, 1);
    EXPECT_EQ(row(1), "1 | Other | 1 | $0.00");
    EXPECT_EQ(view->flexGrid().rowCount(), 2);
}

TEST_F(ProductViewTest, CellsAreCutInCharacters)
{
    std::string longText;
    for (int i = 0; i < 300; ++i) {
        longText += "ü";
    }
    storePrefs("0~5~250");
    makeView();
    view->Show(productsOf({{.name = longText, .partNum = longText, .note = "a\n" + longText, .key = longText}}));
    const auto& grid = view->flexGrid();
    EXPECT_EQ(grid.displayText(1, grid.columnIndex("Name")), longText.substr(0, 2 * 255));
    EXPECT_EQ(grid.displayText(1, grid.columnIndex("PartNum")), longText.substr(0, 2 * 255));
    EXPECT_EQ(grid.displayText(1, grid.columnIndex("Key")), longText.substr(0, 2 * 255));
    EXPECT_EQ(grid.displayText(1, grid.columnIndex("Note")), "a\n" + longText.substr(0, 2 * 253));
    EXPECT_GT(view->Products().size(), 4U * 2 * 300) << "the list itself is not cut";
}

TEST_F(ProductViewTest, EachFieldIsShownInItsFormat)
{
    struct Row {
        int field;
        const char* header;
        const char* cell;
        ui::GridType type;
    };
    const std::string products = productsOf({{.name = "n", .partNum = "P~1", .unitPrice = "1234.5", .qty = "2.25",
                                              .discPrcnt = "12.5", .extPrice = "-5", .note = "x:y"}});
    for (const Row& expected : std::initializer_list<Row>{{0, "Part#", "P~1", ui::GridType::string},
                                                          {1, "Ext Price", "-$5.00", ui::GridType::currency},
                                                          {2, "Disc%", "12.5", ui::GridType::float64},
                                                          {3, "Unit Price", "$1,234.50", ui::GridType::currency},
                                                          {4, "Qty", "2.25", ui::GridType::float64},
                                                          {5, "Note", "x:y", ui::GridType::string}}) {
        const int other = expected.field == 4 ? 1 : 4;
        storePrefs(std::to_string(expected.field) + "~" + std::to_string(other) + "~");
        makeView();
        view->Show(products);
        EXPECT_EQ(view->flexGrid().visibleTexts(0)[2], expected.header) << "field " << expected.field;
        EXPECT_EQ(view->flexGrid().visibleTexts(1)[2], expected.cell) << "field " << expected.field;
        EXPECT_EQ(view->flexGrid().columnType(2), expected.type) << "field " << expected.field;
    }
}

TEST_F(ProductViewTest, ARefreshPaintsOnce)
{
    makeView();
    const int before = view->flexGrid().paintCount();
    view->Show(threeProducts());
    EXPECT_EQ(view->flexGrid().paintCount(), before + 1);
}

TEST_F(ProductViewTest, AnErrorReachesTheHostAsANumber)
{
    makeView();
    view->Show(threeProducts());
    trace->declareError(321);
    try {
        view->Show("1~no product~");
        ADD_FAILURE() << "an unreadable list was shown";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), ErrorNumber::invalidFileFormat);
        EXPECT_EQ(error.source() + error.description(), "") << "the number alone";
    }
    EXPECT_THAT(trace->errors().at(0).description(), HasSubstr("1")) << "the trace knows the position";
    EXPECT_EQ(row(1), "1 | Desk | 2 | $978.00") << "the grid is as it was";
}

/// A failing call anywhere in Show: recorded once by each procedure on the way up, and the next
/// Show starts afresh.
TEST_F(ProductViewTest, EveryFailingManagerCallIsRaisedAndRecovered)
{
    makeView();
    constexpr int kCallsOfShow = 1 + 1 + 3 * 2 + 1; // set, count, seek and get of each product, total
    for (int nth = 1; nth <= kCallsOfShow; ++nth) {
        const bool inRefresh = nth > 1;
        faults.failAtCall = nth;
        trace->declareError(1000, inRefresh ? 2 : 1);
        EXPECT_THROW(view->Show(threeProducts()), RuntimeError) << "call " << nth;
        EXPECT_EQ(view->flexGrid().redraw(), !inRefresh) << "call " << nth;
        view->Show(threeProducts());
        EXPECT_TRUE(view->flexGrid().redraw()) << "call " << nth;
        EXPECT_EQ(row(3), "3 | Chair | 1 | $875.00") << "call " << nth;
    }
    faults.failAtCall = kCallsOfShow + 1;
    view->Show(threeProducts());
    EXPECT_EQ(faults.failAtCall, 1) << "Show makes no further call";
    faults.failAtCall = 0;
}

TEST_F(ProductViewTest, AManagerMayStopOrMoveTheWalk)
{
    makeView();
    view->Show(threeProducts());
    faults.notFoundFrom = 3;
    view->Show(productsOf({{.name = "A"}, {.name = "B"}, {.name = "C"}}));
    EXPECT_EQ(row(2), "2 | B | 1 | $0.00");
    EXPECT_EQ(row(3), "3 | Chair | 1 | $875.00") << "rows after the stop stay as they were";

    faults = {.seekMovesBy = 1, .managersAlive = faults.managersAlive};
    view->Show(productsOf({{.name = "A"}, {.name = "B"}, {.name = "C"}, {.name = "D"}}));
    EXPECT_EQ(row(1), "2 | B | 1 | $0.00") << "each row shows the index that the manager moved to";
    EXPECT_EQ(row(2), "4 | D | 1 | $0.00");
}

TEST_F(ProductViewTest, LostColumnKeysAreReported)
{
    makeView();
    ProductView second(platform, view->surface(), view->site());
    view->flexGrid().setColumnKey(8, "");
    trace->declareError(1000);
    second.UserControl_ReadProperties();
    ASSERT_EQ(trace->errors().size(), 1U);
    EXPECT_EQ(trace->errors()[0].description(), "Invalid column index");
    EXPECT_EQ(trace->errors()[0].source(), "KTVOrvanProduct.ProductView::PrvRefreshColumnIndices");
}

TEST_F(ProductViewTest, LayoutFollowsTheSize)
{
    struct Row {
        const char* what;
        float width, height;
        float gridWidth, gridHeight, leftTop, rightLeft;
    };
    makeView();
    const float rightWidth = view->surface().control<ui::Frame>("fraBottomRight").width();
    for (const Row& row : std::initializer_list<Row>{
             {"tall", 6000, 3000, 6000, 2565, 2625, 6000 - rightWidth},
             {"wider", 9000.5F, 3000, 9000.5F, 2565, 2625, 9000.5F - rightWidth},
             {"just the band", 6000, 435, 6000, 0, 60, 6000 - rightWidth},
             {"lower than the band: the grid stays", 700, 400, 6000, 0, 60, 6000 - rightWidth},
             {"narrower than the buttons", 700, 1000, 700, 565, 625, 700 - rightWidth},
             {"beyond measure: nothing moves", std::numeric_limits<float>::infinity(), 1000, 700, 565, 625,
              700 - rightWidth}}) {
        view->surface().resize(row.width, row.height);
        const auto& left = view->surface().control<ui::Frame>("fraBottomLeft");
        const auto& right = view->surface().control<ui::Frame>("fraBottomRight");
        EXPECT_EQ(view->flexGrid().width(), row.gridWidth) << row.what;
        EXPECT_EQ(view->flexGrid().height(), row.gridHeight) << row.what;
        EXPECT_EQ(left.left(), 0) << row.what;
        EXPECT_EQ(left.top(), row.leftTop) << row.what;
        EXPECT_EQ(right.left(), row.rightLeft) << row.what;
        EXPECT_EQ(right.top(), row.leftTop) << row.what;
    }
}

TEST_F(ProductViewTest, TheTraceOfOneShow)
{
    makeView();
    const std::size_t before = trace->lines().size();
    view->Show(threeProducts());
    EXPECT_THAT(std::vector(trace->lines().begin() + static_cast<std::ptrdiff_t>(before), trace->lines().end()),
                ElementsAre("enter KTVOrvanProduct.ProductView::Show",
                            "enter KTVOrvanProduct.ProductView::PrvRefreshView",
                            "exit KTVOrvanProduct.ProductView::PrvRefreshView",
                            "exit KTVOrvanProduct.ProductView::Show"));
}

/// Every step of loading and ending ignores errors, those of the trace included.
TEST_F(ProductViewTest, LoadingAndEndingNeverFail)
{
    makeView();
    gobjTrace.reset();
    view->site() = headless::HeadlessSite("Other");
    EXPECT_THROW(view->Show(""), RuntimeError);
    EXPECT_THROW(view->Products(), RuntimeError);
    EXPECT_THROW(view->TotalValue(), RuntimeError);
    view.reset();
    EXPECT_EQ(faults.managersAlive, 0);
}

} // namespace
} // namespace orvan::test
