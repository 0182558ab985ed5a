// What the keys and the mouse do to the rows of a grid: the current one, the selected ones, and dragging.

#include "tests/contract/ContractDriver.h"

#include <functional>
#include <sstream>

namespace orvan::contract {
namespace {

TEST_P(GridContract, KeysAndClicksMoveTheCurrentRowAndSelect)
{
    using Rows = std::vector<std::int32_t>;
    struct Row {
        const char* name;
        std::function<void()> user;
        std::int32_t current;
        Rows selected;
    };
    const auto press = [this](const char* keys) {
        return [this, keys] {
            std::istringstream all(keys);
            for (std::string key; all >> key;) {
                driver->pressKey(grid(), key);
            }
        };
    };
    const auto click = [this](std::int32_t row, ui::RowChoice choice = ui::RowChoice::only) {
        driver->chooseRow(grid(), row, choice);
    };
    using ui::RowChoice;
    const Row rows[] = {
        {"nothing", [] {}, 0, {}},
        {"the first key goes to the first row", press("Down"), 1, {1}},
        {"so does Up", press("Up"), 1, {1}},
        {"down and up", press("Down Down Down Up"), 2, {2}},
        {"beyond the ends", press("End Down Home Up"), 1, {1}},
        {"a page", press("PgDown PgDown PgDown"), 5, {5}},
        {"with Shift", press("Down Shift+Down Shift+Down"), 3, {1, 2, 3}},
        {"with Shift and back", press("End Shift+Up Shift+Up Shift+Down"), 4, {4, 5}},
        {"with Shift to an end", press("Down Down Shift+End"), 5, {2, 3, 4, 5}},
        {"Ctrl+Space takes the row out", press("Down Down Ctrl+Space"), 2, {}},
        {"Shift and a click", [&] { click(4), click(2, RowChoice::upTo); }, 2, {2, 3, 4}},
        {"Ctrl and clicks", [&] { click(4), click(2, RowChoice::toggle), click(3, RowChoice::toggle); }, 3, {2, 3, 4}},
        {"Ctrl takes out of the middle",
         [&] { click(1), click(5, RowChoice::upTo), click(3, RowChoice::toggle); },
         3,
         {1, 2, 4, 5}},
        {"a click leaves one", [&] { click(1), click(5, RowChoice::upTo), click(3); }, 3, {3}},
    };
    forEachRow(rows, [&](const Row& row) {
        grid().setCurrentRow(0);
        row.user();
        EXPECT_EQ(grid().currentRow(), row.current);
        EXPECT_EQ(grid().selection().rows(), row.selected);
        EXPECT_EQ(driver->selectedRows(grid()), row.selected) << "as shown";
    });
    grid().setMultiSelect(false);
    click(1), click(4, RowChoice::upTo);
    EXPECT_EQ(driver->selectedRows(grid()), Rows{4}) << "where only one row may be selected";
}

TEST_P(GridContract, AKeyThatTheHandlerTakesDoesNothingElse)
{
    std::string pressed;
    grid().onKeyDown = [&](ui::KeyStroke& key) {
        for (const char* name : {"Return", "Ins", "Del", "Alt+Up", "Ctrl+D", "F2", "Shift+F10", "End", "a"}) {
            if (key == ui::keyStroke(name)) {
                pressed += std::string(name) + ' ';
                key.key = ui::Key::none;
                return;
            }
        }
    };
    for (const char* key : {"Return", "Ins", "Del", "Alt+Up", "Ctrl+D", "F2", "Shift+F10", "End", "a", "Home"}) {
        driver->pressKey(grid(), key);
    }
    EXPECT_EQ(pressed, "Return Ins Del Alt+Up Ctrl+D F2 Shift+F10 End a ");
    EXPECT_EQ(grid().currentRow(), 1) << "Home, which the handler left";
    EXPECT_THROW(static_cast<void>(ui::keyStroke("Ctrl+Nothing")), RuntimeError);
}

TEST_P(GridContract, RowsAreDraggedOnlyWhereSomebodyTakesThem)
{
    driver->chooseRow(grid(), 2);
    driver->chooseRow(grid(), 3, ui::RowChoice::upTo);
    std::vector<std::int32_t> dropped;
    grid().onDragRows = [&](std::int32_t before) { dropped.push_back(before); };
    for (const std::int32_t before : {1, 5, 6}) {
        driver->dragRows(grid(), 3, before);
    }
    EXPECT_EQ(dropped, (std::vector<std::int32_t>{1, 5, 6}));
    EXPECT_EQ(driver->selectedRows(grid()), (std::vector<std::int32_t>{2, 3}))
        << "the handler moves them, not the grid";
}

TEST_P(GridContract, AColumnFitsItsTextsAndAMenuDoesWhatADragDoes)
{
    int reports = 0;
    grid().onAfterUserResize = [&] { ++reports; };
    grid().setColumnWidth(1, 1200);
    grid().setValue(3, 1, std::string("word"));
    const std::int32_t shorter = grid().fittingWidth(1);
    grid().setValue(4, 1, std::string("a longer text"));
    const std::int32_t longer = grid().fittingWidth(1);
    EXPECT_GT(longer, shorter);
    EXPECT_EQ(grid().shownWidth(1), 1200);
    EXPECT_EQ(reports, 0) << "asking changes nothing";
    grid().dragToWidth(1, longer);
    EXPECT_EQ(grid().columnWidth(1), longer);
    EXPECT_EQ(grid().shownWidth(1), longer);
    EXPECT_EQ(reports, 1);
}

TEST_P(GridContract, EnterPressesTheButtonWithTheFocus)
{
    auto& button = surface->control<ui::Button>("button");
    int clicks = 0;
    button.onClick = [&] { ++clicks; };
    button.setFocus();
    driver->pressKey(button, "Return");
    EXPECT_EQ(clicks, 1);
}

} // namespace
} // namespace orvan::contract
