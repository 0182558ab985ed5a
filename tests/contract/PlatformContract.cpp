#include "tests/contract/HeadlessDriver.h"

#include <cmath>
#include <limits>

namespace orvan::contract {

using ui::ControlKind;

constexpr ui::ToolDesign kMenuTools[] = {{.id = "one", .caption = "First"},
                                         {.id = "two", .caption = "Second", .mnemonic = 'S'},
                                         {},
                                         {.id = "three", .caption = "Third"}};
// clang-format off
constexpr ui::ControlDesign kControls[] = {
    {.name = "grid", .kind = ControlKind::grid, .width = 6000, .height = 3000, .tabIndex = 2, .gridColumns = 5},
    {.name = "frame", .kind = ControlKind::frame, .left = 7, .top = 3015, .width = 3000, .height = 450},
    {.name = "button", .kind = ControlKind::button, .parent = "frame", .left = 37, .width = 375, .height = 375,
     .toolTip = "Add <one>", .picture = "add", .tabIndex = 1},
    {.name = "label", .kind = ControlKind::label, .left = 3300, .top = 3015, .width = 900, .height = 375,
     .caption = "Total && tax", .mnemonic = 'T'},
    {.name = "box", .kind = ControlKind::textBox, .left = 4200, .top = 3015, .width = 1500, .height = 375,
     .tabIndex = 0, .readOnly = true, .alignment = ui::Alignment::right},
    {.name = "menu", .kind = ControlKind::popupMenu, .caption = "View", .tools = kMenuTools},
};
// clang-format on
const ui::FormDesign kDesign{.name = "Contract", .width = 6000, .height = 3600, .controls = kControls};

void PlatformContract::SetUp()
{
    driver = GetParam()();
    driver->platform().onUnhandledError = [this](const RuntimeError& error) { unhandled.push_back(error.number()); };
    surface = driver->load(kDesign);
}

namespace {

using Texts = std::vector<std::string>;

TEST_P(PlatformContract, LengthsReadBackAsSet)
{
    auto& box = surface->control<ui::TextBox>("box");
    EXPECT_EQ(surface->control<ui::Control>("frame").left(), 7) << "as designed";
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    struct Row {
        const char* name;
        float left, top, width, height;
        std::int32_t error = 0;
    };
    const Row rows[] = {
        {.name = "no whole pixels", .left = 7, .top = 1, .width = 22, .height = 250},
        {.name = "fractions, negative places", .left = -7.5F, .top = -30, .width = 0, .height = 0.3F},
        {.name = "beyond any screen", .left = 1e9F, .top = -1e9F, .width = 3e9F, .height = 1e30F},
        {.name = "negative width", .left = 0, .top = 0, .width = -1, .height = 5, .error = 380},
        {.name = "negative height", .left = 0, .top = 0, .width = 5, .height = -0.1F, .error = 380},
        {.name = "no number", .left = kNan, .top = 0, .width = 5, .height = 5, .error = 6},
        {.name = "infinite", .left = 0, .top = 0, .width = 5, .height = HUGE_VALF, .error = 6},
    };
    forEachRow(rows, [&](const Row& row) {
        const auto place = [&] { return std::vector{box.left(), box.top(), box.width(), box.height()}; };
        const std::vector placeBefore = place();
        EXPECT_EQ(errorOf([&] { box.move(row.left, row.top, row.width, row.height); }), row.error);
        const std::vector asked{row.left, row.top, row.width, row.height};
        EXPECT_EQ(place(), row.error == 0 ? asked : placeBefore);
    });
}

TEST_P(PlatformContract, AWrongDesignFailsWhenItIsLoaded)
{
    EXPECT_EQ(errorOf([&] { surface->control<ui::Grid>("gird"); }), 424);
    EXPECT_EQ(errorOf([&] { surface->control<ui::Grid>("button"); }), 13);
    EXPECT_EQ(errorOf([&] { surface->control<ui::Button>("button"); }), 0);
    constexpr ui::ControlDesign kOrphan[] = {{.name = "b", .kind = ControlKind::button, .parent = "frame"}};
    const ui::FormDesign orphan{.name = "Orphan", .controls = kOrphan};
    EXPECT_EQ(errorOf([&] { driver->load(orphan); }), 424);
}

TEST_P(PlatformContract, ColumnWidthsStayExactThroughEverythingTheProgramDoes)
{
    int resized = 0;
    grid().onAfterUserResize = [&] { ++resized; };
    const std::vector<std::int32_t> widths = {1, 7, 250, 2500, 32767};
    for (std::int32_t column = 0; column < 5; ++column) {
        grid().setColumnWidth(column, widths[static_cast<std::size_t>(column)]);
    }
    grid().setColumnHidden(1, true);
    grid().setColumnWidth(0, 0);
    grid().setColumnWidth(0, 1);
    grid().setRowCount(40);
    int reports = 0;
    surface->onResize = [&] { ++reports; };
    driver->resize(*surface, 7500, 4515);
    EXPECT_TRUE(surface->innerWidth() == 7500 && surface->innerHeight() == 4515 && reports == 1);
    grid().setColumnHidden(1, false);
    for (std::int32_t column = 0; column < 5; ++column) {
        EXPECT_EQ(grid().columnWidth(column), widths[static_cast<std::size_t>(column)]) << column;
    }
    EXPECT_EQ(errorOf([&] { grid().setColumnWidth(0, -1); }), 380);
    EXPECT_EQ(errorOf([&] { grid().setColumnWidth(5, 1); }), 9);
    EXPECT_EQ(resized, 0) << "the program's own widths are no event";
}

TEST_P(PlatformContract, AUsersDragWritesThatWidthAndReportsOnce)
{
    std::vector<std::int32_t> seen;
    grid().onAfterUserResize = [&] { seen.push_back(grid().columnWidth(1)); };
    grid().setUserResizing(true);
    grid().setColumnWidth(0, 257);
    grid().setColumnWidth(1, 1007);
    driver->dragColumn(grid(), 1, 1500);
    EXPECT_EQ(seen, std::vector<std::int32_t>{1500}) << "the new width stands when the event is raised";
    EXPECT_EQ(grid().columnWidth(0), 257) << "a neighbour's width is nobody's business";
    grid().setColumnHidden(0, true);
    grid().moveColumn(1, 3);
    driver->dragColumn(grid(), 3, 600);
    EXPECT_EQ(grid().columnWidth(3), 600);
    EXPECT_EQ(seen.size(), 2U);
    grid().onAfterUserResize = [] { throw RuntimeError(9); };
    driver->dragColumn(grid(), 2, 450);
    expectedUnhandled = {9};
}

TEST_P(PlatformContract, EverythingOfAColumnMovesWithIt)
{
    grid().setRowCount(2);
    for (std::int32_t column = 0; column < 5; ++column) {
        grid().setColumnKey(column, "k" + std::to_string(column));
        grid().setColumnWidth(column, 1000 + column);
        grid().setValue(0, column, "h" + std::to_string(column));
        grid().setValue(1, column, column);
    }
    grid().setColumnHidden(2, true);
    grid().setColumnFormat(4, "0.0");
    struct Row {
        const char* name;
        std::int32_t from, to;
        Texts shown;
    };
    const Row rows[] = {
        {"to the left", 4, 1, {"0", "4.0", "1", "3"}},
        {"from one end to the other", 0, 4, {"4.0", "1", "3", "0"}},
        {"a hidden one", 2, 0, {"4.0", "1", "3", "0"}},
        {"to its own place", 3, 3, {"4.0", "1", "3", "0"}},
    };
    forEachRow(rows, [&](const Row& row) {
        grid().moveColumn(row.from, row.to);
        EXPECT_EQ(driver->shown(grid(), 1), row.shown);
    });
    EXPECT_EQ(driver->shown(grid(), 0), (Texts{"h4", "h1", "h3", "h0"}));
    EXPECT_TRUE(grid().columnHidden(grid().columnIndex("k2")));
    EXPECT_EQ(grid().columnWidth(grid().columnIndex("k4")), 1004);
    EXPECT_EQ(grid().columnIndex("k5"), -1);
    EXPECT_EQ(errorOf([&] { grid().moveColumn(0, 5); }), 9);
}

TEST_P(PlatformContract, AmountsAreShownByTheirFormat)
{
    constexpr const char* kMoney = "$###,##0.00";
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
    grid().setRowCount(2);
    struct Row {
        std::int64_t name; // the amount in ten-thousandths
        const char *format, *shown;
    };
    const Row rows[] = {
        {0, kMoney, "$0.00"},
        {12'345'000, kMoney, "$1,234.50"},
        {-50'000, kMoney, "-$5.00"},
        {50, kMoney, "$0.01"},
        {-49, kMoney, "-$0.00"},
        {-1, kMoney, "-$0.00"},
        {-50, kMoney, "-$0.01"},
        {9'999'999'950, kMoney, "$1,000,000.00"},
        {kMost, kMoney, "$922,337,203,685,477.58"},
        {-kMost - 1, kMoney, "-$922,337,203,685,477.58"},
        {25'000, "", "2.5"},
        {12'340'000, "", "1234"},
        {-1, "", "-0.0001"},
    };
    forEachRow(rows, [&](const Row& row) {
        grid().setColumnFormat(0, row.format);
        grid().setValue(1, 0, Currency::fromScaled(row.name));
        EXPECT_EQ(driver->shown(grid(), 1)[0], row.shown);
    });
    driver->locale.thousands = "\xE2\x80\xAF";
    driver->locale.decimal = ",";
    surface = driver->load(kDesign);
    grid().setColumnFormat(0, kMoney);
    grid().setRowCount(2);
    grid().setValue(1, 0, Currency::fromScaled(12'345'000));
    EXPECT_EQ(driver->shown(grid(), 1)[0], "$1\xE2\x80\xAF"
                                           "234,50");
}

TEST_P(PlatformContract, ChangesWhileRedrawIsOffAreShownWhenItIsOn)
{
    grid().setRowCount(5);
    grid().setRedraw(false);
    grid().setRowCount(2);
    grid().setColumnCount(2);
    grid().setRowCount(4);
    grid().setValue(3, 1, std::string("last"));
    grid().setRedraw(true);
    EXPECT_EQ(driver->shown(grid(), 3), (Texts{"", "last"}));
    grid().setValue(3, 0, 7);
    EXPECT_EQ(driver->shown(grid(), 3), (Texts{"7", "last"})) << "and at once from then on";
    EXPECT_EQ(errorOf([&] { grid().setValue(4, 0, 1); }), 9);
}

TEST_P(PlatformContract, RowsAfterARemovedOneMoveUp)
{
    grid().setColumnCount(2);
    grid().setRowCount(4);
    for (std::int32_t row = 1; row < 4; ++row) {
        grid().setValue(row, 0, row);
        grid().setValue(row, 1, std::string("product"));
    }
    driver->chooseRow(grid(), 3);
    grid().removeRow(2);
    EXPECT_EQ(grid().rowCount(), 3);
    EXPECT_EQ(driver->shown(grid(), 1), (Texts{"1", "product"}));
    EXPECT_EQ(driver->shown(grid(), 2), (Texts{"3", "product"}));
    EXPECT_EQ(grid().currentRow(), 2) << "the last one";
    EXPECT_EQ(errorOf([&] { grid().removeRow(3); }), 9);
}

TEST_P(PlatformContract, ACellTakesEachValueInPlaceOfAnyOther)
{
    // A cell keeps texts of up to fifteen bytes in another way than longer ones.
    const std::vector<ui::GridValue> values = {{},
                                               std::string(),
                                               std::string(15, 'a'),
                                               std::string(16, 'b'),
                                               std::string(16, 'c'),
                                               7,
                                               std::string(300, 'd'),
                                               std::string(17, 'e'),
                                               Currency::fromScaled(-1),
                                               std::string("\0x", 2),
                                               -2'000'000'000};
    grid().setRowCount(2);
    for (const ui::GridValue& former : values) {
        for (const ui::GridValue& value : values) {
            grid().setValue(1, 0, former);
            grid().setValue(1, 0, value);
            EXPECT_EQ(grid().value(1, 0), value) << "after the value of kind " << former.index();
        }
    }
}

TEST_P(PlatformContract, OneRowIsCurrentByUserOrProgram)
{
    EXPECT_EQ(grid().currentRow(), 0);
    grid().setRowCount(6);
    driver->chooseRow(grid(), 3);
    EXPECT_EQ(grid().currentRow(), 3);
    grid().setRedraw(false);
    grid().setRowCount(9);
    grid().setRedraw(true);
    EXPECT_EQ(grid().currentRow(), 3) << "a refresh keeps it";
    grid().setCurrentRow(5);
    driver->chooseRow(grid(), 1);
    EXPECT_EQ(grid().currentRow(), 1);
    EXPECT_EQ(errorOf([&] { grid().setCurrentRow(9); }), 9);
    grid().setCurrentRow(8);
    grid().setRowCount(4);
    EXPECT_EQ(grid().currentRow(), 3) << "cut off: the last";
    grid().setRowCount(1);
    EXPECT_EQ(grid().currentRow(), 0);
    grid().setRowCount(4);
    EXPECT_EQ(grid().currentRow(), 0) << "rows that come choose nothing";
}

TEST_P(PlatformContract, ADoubleClickTellsItsRowAndChoosesIt)
{
    grid().setRowCount(4);
    grid().setColumnWidth(0, 1500);
    std::vector<std::int32_t> rows;
    grid().onDblClick = [&] { rows.insert(rows.end(), {grid().mouseRow(), grid().currentRow()}); };
    for (const std::int32_t row : {2, 0, -1, 3}) {
        driver->doubleClick(grid(), row);
    }
    EXPECT_EQ(rows, (std::vector<std::int32_t>{2, 2, 0, 2, -1, 2, 3, 3}));
    grid().onDblClick = [&] { surface.reset(); };
    driver->doubleClick(grid(), 1);
    EXPECT_FALSE(surface);
}

TEST_P(PlatformContract, ARightClickTellsRowAndColumnAlsoAfterColumnsHaveMoved)
{
    grid().setRowCount(4);
    for (std::int32_t column = 0; column < 5; ++column) {
        grid().setColumnWidth(column, 750 + 15 * column);
    }
    grid().setColumnHidden(1, true);
    grid().moveColumn(4, 0);
    grid().setCurrentRow(1);
    int clicks = 0;
    grid().onRightClick = [&] { ++clicks; };
    const std::pair<std::int32_t, std::int32_t> places[] = {{0, 0}, {0, 1},  {0, 4},  {0, -1}, {1, 3},
                                                            {3, 0}, {3, -1}, {-1, 4}, {-1, -1}};
    for (const auto& [row, column] : places) {
        driver->rightClick(grid(), row, column);
        EXPECT_EQ((std::pair{grid().mouseRow(), grid().mouseColumn()}), (std::pair{row, column}));
    }
    EXPECT_EQ(clicks, 9);
    EXPECT_EQ(grid().currentRow(), 1) << "it chooses nothing";
    grid().onRightClick = [&] { surface.reset(); };
    driver->rightClick(grid(), 0, 0);
    EXPECT_FALSE(surface);
}

TEST_P(PlatformContract, AMenuComesUpAndReportsWhatIsChosen)
{
    auto& menu = surface->control<ui::PopupMenu>("menu");
    std::string log;
    menu.onToolClick = [&](std::string_view id) { log.append(id).append(driver->isUp(menu) ? " up, " : ", "); };
    EXPECT_EQ(errorOf([&] { menu.setToolEnabled("One", false); }), 5);
    for (const char* choice : {"two", "", "three", "one"}) {
        EXPECT_FALSE(driver->isUp(menu)) << choice;
        menu.setToolEnabled("one", *choice == 'o');
        menu.popUp();
        EXPECT_TRUE(driver->isUp(menu)) << choice;
        driver->choose(menu, choice);
    }
    EXPECT_EQ(log, "two, three, one, ");
    menu.onToolClick = [](std::string_view) { throw RuntimeError(9); };
    menu.popUp();
    driver->choose(menu, "two");
    expectedUnhandled = {9};
    menu.onToolClick = [&](std::string_view) { surface.reset(); };
    menu.popUp();
    driver->choose(menu, "two");
    EXPECT_FALSE(surface);
}

TEST_P(PlatformContract, AHandlerMayThrowOrEndItsSurface)
{
    auto& button = surface->control<ui::Button>("button");
    button.onClick = [] { throw RuntimeError(91); };
    driver->click(button);
    button.onClick = [] { throw 1; };
    driver->click(button);
    expectedUnhandled = {91, 440};
    bool ended = false;
    button.onClick = [&] {
        surface.reset();
        ended = true;
    };
    driver->click(button);
    EXPECT_TRUE(ended);
}

TEST_P(PlatformContract, SettingsHoldAnyTextUnderAnyName)
{
    using namespace std::string_view_literals;
    ui::SettingsStore& store = driver->platform().settings();
    EXPECT_EQ(store.get("Orvan", "s", "k"), "");
    const std::string_view texts[] = {
        ""sv,        "k"sv,           "K"sv,        "a/b"sv,    "a\\b"sv,  "a%2Fb"sv,        "a=b"sv,
        "[a]"sv,     ";a"sv,          " a "sv,      "a\nb\r"sv, "\0x\0"sv, "äÄ\U0001F600"sv, "\xFF\xFE"sv,
        "General"sv, "@Variant(1)"sv, "a, \"b\""sv, "1.5"sv};
    for (std::string_view text : texts) {
        store.set(text, "section", "key", std::string("1:") + std::string(text));
        store.set("application", text, "key", std::string("2:") + std::string(text));
        store.set("application", "section", text, text);
    }
    for (std::string_view text : texts) {
        EXPECT_EQ(store.get(text, "section", "key"), std::string("1:") + std::string(text)) << text;
        EXPECT_EQ(store.get("application", text, "key"), std::string("2:") + std::string(text)) << text;
        EXPECT_EQ(store.get("application", "section", text), text) << text;
    }
    store.set("application", "section", "k", "again");
    EXPECT_EQ(store.get("application", "section", "k"), "again");
}

} // namespace
namespace {

std::unique_ptr<Driver> makeHeadless()
{
    return std::make_unique<HeadlessDriver>();
}
INSTANTIATE_TEST_SUITE_P(Headless, PlatformContract, testing::Values(makeHeadless));
INSTANTIATE_TEST_SUITE_P(Headless, FormContract, testing::Values(makeHeadless));
INSTANTIATE_TEST_SUITE_P(Headless, GridContract, testing::Values(makeHeadless));
INSTANTIATE_TEST_SUITE_P(Headless, EntryContract, testing::Values(makeHeadless));

} // namespace
} // namespace orvan::contract
