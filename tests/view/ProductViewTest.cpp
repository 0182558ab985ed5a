#include "orvan/view/ProductView.h"
#include "orvan/ui/Frame.h"
#include "orvan/view/ProductViewDesign.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"
#include "tests/support/ViewFixture.h"

#include <gmock/gmock.h>

#include <cmath>

namespace orvan::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ProductViewTest : public ViewFixture {};

TEST_F(ProductViewTest, StartsEmptyAndShowsWhatItIsGiven)
{
    makeView();
    EXPECT_FALSE(view->Dirty());
    EXPECT_EQ(view->TotalValue(), Currency());
    EXPECT_EQ(view->Products(), "");
    EXPECT_EQ(view->flexGrid().rowCount(), 1);
    EXPECT_EQ(columns(), "Number Name Qty ExtPrice [Key] [PartNum] [DiscPrcnt] [UnitPrice] [Note]");
    EXPECT_EQ(row(0), "# | Product | Qty | Ext Price");
    EXPECT_THAT(view->changedProperties(), ElementsAre("Dummy"));

    const int painted = view->flexGrid().paintCount();
    const std::size_t traced = trace->lines().size();
    view->Show(kThreeProducts);
    EXPECT_EQ(view->flexGrid().paintCount(), painted + 1);
    EXPECT_THAT(
        std::vector(trace->lines().begin() + static_cast<std::ptrdiff_t>(traced), trace->lines().end()),
        ElementsAre("enter KTVOrvanProduct.ProductView::Show", "enter KTVOrvanProduct.ProductView::PrvRefreshView",
                    "exit KTVOrvanProduct.ProductView::PrvRefreshView", "exit KTVOrvanProduct.ProductView::Show"));
    EXPECT_EQ(row(1), "1 | Desk | 2 | $978.00");
    EXPECT_EQ(row(2), "2 | Lamp | 1.5 | $112.43");
    EXPECT_EQ(row(3), "3 | Chair | 1 | $875.00");
    EXPECT_EQ(view->txtTotal().text(), "$1,965.43");
    EXPECT_EQ(view->Products(), kThreeProducts);
    EXPECT_EQ(view->TotalValue().toText(), "1965.425");
    EXPECT_FALSE(view->Dirty());
    EXPECT_EQ(view->flexGrid().currentRow(), 0) << "a refresh chooses no row";

    view->Show("");
    EXPECT_EQ(view->flexGrid().rowCount(), 1);
    EXPECT_EQ(view->txtTotal().text(), "$0");
    EXPECT_EQ(managersMade, 3) << "one at the start, one for each list";
    EXPECT_EQ(faults.managersAlive, 1);
}

TEST_F(ProductViewTest, CellsAreCutInCharacters)
{
    std::string longText;
    for (int i = 0; i < 300; ++i) {
        longText += "ü";
    }
    makeView();
    view->Show("1~" + longText + ':' + longText + ':' + longText + ":0:1:0:0:a\n" + longText + '~');
    for (const char* key : {"Name", "Key", "PartNum"}) {
        EXPECT_EQ(grid().displayText(1, grid().columnIndex(key)), longText.substr(0, 510)) << key;
    }
    EXPECT_EQ(grid().displayText(1, grid().columnIndex("Note")), "a\n" + longText.substr(0, 506));
    EXPECT_GT(view->Products().size(), 4U * 2 * 300) << "the list itself is not cut";
}

TEST_F(ProductViewTest, AnErrorReachesTheHostAsANumber)
{
    makeView();
    view->Show(kThreeProducts);
    trace->declareError(321);
    const Raised error = raisedBy([&] { view->Show("1~no product~"); });
    EXPECT_EQ(error.number, ErrorNumber::invalidFileFormat);
    EXPECT_EQ(error.source + error.description, "") << "the number alone";
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
        EXPECT_THROW(view->Show(kThreeProducts), RuntimeError) << "call " << nth;
        EXPECT_EQ(grid().redraw(), !inRefresh) << "call " << nth;
        view->Show(kThreeProducts);
        EXPECT_TRUE(grid().redraw()) << "call " << nth;
        EXPECT_EQ(row(3), "3 | Chair | 1 | $875.00") << "call " << nth;
    }
    faults.failAtCall = kCallsOfShow + 1;
    view->Show(kThreeProducts);
    EXPECT_EQ(faults.failAtCall, 1) << "Show makes no further call";
    faults.failAtCall = 0;
}

/// The careful way: whatever call fails, the user sees what was there before, and no command takes it for the list.
TEST_F(ProductViewTest, AFailedRefreshShowsTheFormerRows)
{
    platform.editing = ui::EditingWay::careful;
    constexpr int kCallsOfShow = 1 + 1 + 2 * 2 + 1;
    for (int nth = 1; nth <= kCallsOfShow; ++nth) {
        SCOPED_TRACE(testing::Message() << "call " << nth);
        makeView().Show(kThreeProducts);
        view->flexGrid().chooseRow(3);
        const int painted = view->flexGrid().paintCount();
        faults.failAtCall = nth;
        trace->declareError(1000, nth > 1 ? 2 : 1);
        EXPECT_EQ(errorOf([&] { view->Show("2~A:::0:1:0:5:~B:::0:1:0:0:~"); }), 1000);
        EXPECT_EQ(names(), "Desk Lamp Chair");
        EXPECT_EQ(row(3), "3 | Chair | 1 | $875.00");
        EXPECT_EQ(view->flexGrid().currentRow(), 3);
        EXPECT_EQ(view->txtTotal().text(), "$1,965.43");
        EXPECT_TRUE(grid().redraw());
        EXPECT_EQ(view->flexGrid().paintCount(), painted);
    }
    for (const char* command : {"cmdDelete", "cmdMoveUp", "double click"}) { // shows the list, and no more
        SCOPED_TRACE(command);
        makeView().Show(kThreeProducts);
        view->flexGrid().chooseRow(2);
        faults.failAtCall = 2;
        trace->declareError(1000, 2);
        EXPECT_EQ(errorOf([&] { view->Show("2~A:::0:1:0:5:~B:::0:1:0:0:~"); }), 1000);
        std::string_view(command) == "double click" ? view->flexGrid().doubleClick(2) : button(command).click();
        EXPECT_EQ(names(), "A B");
        EXPECT_FALSE(view->Dirty());
    }
}

TEST_F(ProductViewTest, AManagerMayEndTheListOrMoveTheIndex)
{
    makeView();
    view->Show(kThreeProducts);
    faults.notFoundFrom = 3;
    view->Show("3~A:::0:1:0:0:~B:::0:1:0:0:~C:::0:1:0:0:~");
    EXPECT_EQ(row(2), "2 | B | 1 | $0.00");
    EXPECT_EQ(row(3), "3 | Chair | 1 | $875.00") << "rows behind the end stay as they were";

    faults = {.seekMovesBy = 1, .managersAlive = faults.managersAlive};
    view->Show("4~A:::0:1:0:0:~B:::0:1:0:0:~C:::0:1:0:0:~D:::0:1:0:0:~");
    EXPECT_EQ(row(1), "2 | B | 1 | $0.00") << "each row shows the index that the manager moved to";
    EXPECT_EQ(row(2), "4 | D | 1 | $0.00");
}

/// The user's own money in the careful way, always with its decimals; the literal dollar sign in the classic one. One
/// rule for the sign: a negative amount that rounds to zero keeps it.
TEST_F(ProductViewTest, AmountsOfTheGridFollowTheWayOfEditing)
{
    icu::IcuLocaleService german{{.monetary = "de_DE", .numeric = "de_DE"}};
    headless::HeadlessPlatform here{german, registry};
    here.settings().set("Orvan", "KTVOrvanProduct_ProductView_Prefs", "ViewSettings_HeadlessHost", "3~1~250");
    struct Row {
        const char* name;
        ui::EditingWay way;
        const char *rowOne, *rowTwo;
    };
    const Row rows[] = {
        {"classic", ui::EditingWay::classic, "1 n $1.234,50 -$5,00", "2 m $12,00 -$0,00"},
        {"careful", ui::EditingWay::careful, "1 n 1.234,50\u00A0€ -5,00\u00A0€", "2 m 12,00\u00A0€ -0,00\u00A0€"},
    };
    forEachRow(rows, [&](const Row& expected) {
        here.editing = expected.way;
        HeadlessProductView list(here);
        list.Show("2~n:::1234.5:1:0:-5:~m:::12:1:0:-0.0049:~");
        const auto texts = [&](std::int32_t row) {
            const auto cells = list.flexGrid().visibleTexts(row);
            return joined(0, 4, [&](auto i) { return cells[static_cast<std::size_t>(i)]; });
        };
        EXPECT_EQ(texts(1), expected.rowOne);
        EXPECT_EQ(texts(2), expected.rowTwo);
        EXPECT_EQ(dynamic_cast<ui::Grid&>(list.flexGrid()).columnType(2), ui::GridType::currency)
            << "aligned as in the classic way";
    });
}

TEST_F(ProductViewTest, LostColumnKeysAreReported)
{
    makeView();
    headless::HeadlessSite site("TestForm");
    ProductView second(platform, surface(), site);
    grid().setColumnKey(8, "");
    trace->declareError(1000);
    second.UserControl_ReadProperties();
    ASSERT_EQ(trace->errors().size(), 1U);
    EXPECT_EQ(trace->errors()[0].description(), "Invalid column index");
    EXPECT_EQ(trace->errors()[0].source(), "KTVOrvanProduct.ProductView::PrvRefreshColumnIndices");
}

TEST_F(ProductViewTest, LayoutFollowsTheSize)
{
    makeView();
    const auto& left = surface().control<ui::Frame>("fraBottomLeft");
    const auto& right = surface().control<ui::Frame>("fraBottomRight");
    struct Row {
        const char* name;
        float width, height, gridWidth, gridHeight, bandTop;
    };
    // clang-format off
    const Row rows[] = {
        {.name = "tall", .width = 6000, .height = 3000, .gridWidth = 6000, .gridHeight = 2565, .bandTop = 2625},
        {.name = "wider", .width = 9000.5F, .height = 3000, .gridWidth = 9000.5F, .gridHeight = 2565, .bandTop = 2625},
        {.name = "just the band", .width = 6000, .height = 435, .gridWidth = 6000, .gridHeight = 0, .bandTop = 60},
        {.name = "lower than the band: the grid stays", .width = 700, .height = 400, .gridWidth = 6000,
         .gridHeight = 0, .bandTop = 60},
        {.name = "narrower than the buttons", .width = 700, .height = 1000, .gridWidth = 700,
         .gridHeight = 565, .bandTop = 625},
        {.name = "beyond measure: nothing moves", .width = HUGE_VALF, .height = 1000, .gridWidth = 700,
         .gridHeight = 565, .bandTop = 625},
    };
    // clang-format on
    forEachRow(rows, [&](const Row& row) {
        view->surface().resize(row.width, row.height);
        EXPECT_THAT(
            (std::vector{grid().width(), grid().height(), left.left(), left.top(), right.left(), right.top()}),
            ElementsAre(row.gridWidth, row.gridHeight, 0, row.bandTop, row.gridWidth - right.width(), row.bandTop));
    });
}

/// Every step of loading and ending ignores errors, those of the trace included.
TEST_F(ProductViewTest, LoadingAndEndingNeverFail)
{
    makeView();
    gobjTrace.reset();
    EXPECT_THROW(view->Show(""), RuntimeError);
    EXPECT_THROW(static_cast<void>(view->Products()), RuntimeError);
    EXPECT_THROW(static_cast<void>(view->TotalValue()), RuntimeError);
    view.reset();
    EXPECT_EQ(faults.managersAlive, 0);
}

} // namespace
} // namespace orvan::test
