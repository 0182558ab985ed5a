#include "tests/support/Raised.h"
#include "tests/support/ViewFixture.h"

#include <algorithm>

namespace orvan::test {
namespace {

struct Field {
    const char *key, *header, *cell;
    ui::GridType type;
};
/// By ViewFieldEnum value.
constexpr Field kFields[] = {{"PartNum", "Part#", "P~1", ui::GridType::string},
                             {"ExtPrice", "Ext Price", "-$5.00", ui::GridType::currency},
                             {"DiscPrcnt", "Disc%", "12.5", ui::GridType::float64},
                             {"UnitPrice", "Unit Price", "$1,234.50", ui::GridType::currency},
                             {"Qty", "Qty", "2.25", ui::GridType::float64},
                             {"Note", "Note", "x:y", ui::GridType::string}};
constexpr std::size_t kQty = 4;
constexpr std::size_t kExtPrice = 1;
constexpr const char* kMenus[] = {"mnuViewCboOne", "mnuViewCboTwo"};

class ProductViewMenusTest : public ViewFixture {
protected:
    headless::PopupMenuDriver& menu(std::size_t which) { return view->surface().popupMenu(kMenus[which]); }
    /// The user opens the menu at the header of column One (0) or Two (1).
    headless::PopupMenuDriver& open(std::size_t which)
    {
        view->flexGrid().rightClick(0, 2 + static_cast<std::int32_t>(which));
        return menu(which);
    }
    void choose(std::size_t which, std::size_t field)
    {
        open(which).choose(std::string(kMenus[which]) + kFields[field].key);
    }
    /// What a menu offers that leaves one field out.
    static std::string allBut(std::size_t which, std::size_t field)
    {
        std::string ids;
        for (std::size_t i = 0; i < std::size(kFields); ++i) {
            if (i != field) {
                ids.append(ids.empty() ? "" : " ").append(kMenus[which]).append(kFields[i].key);
            }
        }
        return ids;
    }
    std::int32_t width(std::int32_t column) { return view->flexGrid().columnWidth(column); }
    void start(const std::string& prefs)
    {
        storePrefs(prefs);
        makeView().Show("1~n::P\\~1:1234.5:2.25:12.5:-5:x\\:y~");
    }
    void expectShown(std::size_t one, std::size_t two)
    {
        const std::string keys = std::string("Number Name ") + kFields[one].key + ' ' + kFields[two].key + " [";
        EXPECT_EQ(columns().substr(0, keys.size()), keys);
        EXPECT_EQ(row(0), std::string("# | Product | ") + kFields[one].header + " | " + kFields[two].header);
        EXPECT_EQ(row(1), std::string("1 | n | ") + kFields[one].cell + " | " + kFields[two].cell);
        EXPECT_EQ(grid().columnType(2), kFields[one].type);
        EXPECT_EQ(grid().columnType(3), kFields[two].type);
        for (const std::size_t which : {0U, 1U}) {
            auto& opened = open(which);
            EXPECT_EQ(opened.offered(), allBut(which, which == 0 ? two : one));
            opened.dismiss();
        }
    }
};

TEST_F(ProductViewMenusTest, EveryPairOfFieldsIsChosenInBothOrdersAndStaysAfterARestart)
{
    const std::string kWidths = "~250^1800^702^703^704^705^706^707^708";
    for (std::size_t one = 0; one < std::size(kFields); ++one) {
        for (std::size_t two = 0; two < std::size(kFields); ++two) {
            for (std::size_t first = 0; first < 2 && one != two; ++first) {
                SCOPED_TRACE(testing::Message() << one << ' ' << two << ", first " << first);
                // The field that is chosen first must not be the other column's.
                const bool blocked = first == 0 ? one == kExtPrice : two == kQty;
                start((blocked ? "5~3" : "4~1") + kWidths);
                const std::pair widthsBefore{width(2), width(3)};
                choose(first, first == 0 ? one : two);
                choose(1 - first, first == 0 ? two : one);
                expectShown(one, two);
                EXPECT_EQ((std::pair{width(2), width(3)}), widthsBefore) << "the places keep their widths";
                const std::string atClosing = widths();
                std::string stored = std::to_string(one) + '~' + std::to_string(two) + '~' + widths();
                std::replace(stored.begin(), stored.end(), ' ', '^');
                EXPECT_EQ(storedPrefs(), stored);

                start(stored);
                expectShown(one, two);
                EXPECT_EQ(widths(), atClosing);
            }
        }
    }
}

TEST_F(ProductViewMenusTest, TheOtherColumnsFieldAndRightClicksElsewhereChooseNothing)
{
    trace->declareError(1000, 2); // there is no field 9, so the defaults are taken
    start("6~9~300");
    expectShown(kQty, kExtPrice);
    EXPECT_EQ(errorOf([&] { choose(0, kExtPrice); }), 5);
    menu(0).dismiss();
    choose(0, kQty); // its own field, which is offered
    EXPECT_EQ(storedPrefs(), "4~1~250^960^700^700^700^700^700^700^700");
    const std::size_t traced = trace->lines().size();
    for (const auto& [row, column] : {std::pair(0, 0), std::pair(0, 1), std::pair(0, -1), std::pair(1, 2),
                                      std::pair(1, 3), std::pair(1, -1), std::pair(-1, 2), std::pair(-1, -1)}) {
        view->flexGrid().rightClick(row, column);
        EXPECT_FALSE(menu(0).isUp() || menu(1).isUp()) << row << ' ' << column;
        if (row != 0) {
            view->surface().popupMenu("mnuRow").dismiss();
        }
    }
    EXPECT_EQ(trace->lines().size(), traced);
    EXPECT_FALSE(view->Dirty());
}

TEST_F(ProductViewMenusTest, AnErrorOfAMenuReachesThePlatform)
{
    std::vector<std::int32_t> unhandled;
    start("");
    platform.onUnhandledError = [&](const RuntimeError& error) { unhandled.push_back(error.number()); };
    grid().setColumnKey(grid().columnIndex("Note"), "");
    choose(1, 5);
    EXPECT_EQ(unhandled, std::vector<std::int32_t>{9}) << "no such column";
    EXPECT_EQ(storedPrefs(), "");
    EXPECT_TRUE(grid().redraw()) << "the grid still reacts";
    start("");
    open(0);
    makeView();
    EXPECT_EQ(unhandled, (std::vector<std::int32_t>{9, 51})) << "a menu that nobody drove";
}

TEST_F(ProductViewMenusTest, AFieldThatIsChosenAfterAFailedRefreshShowsNoHalfList)
{
    start("");
    trace->declareError(1000, 2);
    faults.failAtCall = 3;
    EXPECT_EQ(errorOf([&] { view->Show(kThreeProducts); }), 1000);
    const int painted = view->flexGrid().paintCount();
    choose(0, 5);
    EXPECT_EQ(view->flexGrid().paintCount(), painted);
    view->Show(kThreeProducts);
    EXPECT_EQ(row(3), "3 | Chair | blue | $875.00");
}

} // namespace
} // namespace orvan::test
