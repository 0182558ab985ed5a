#include "orvan/view/ProductViewDesign.h"

#include "orvan/core/Command.h"
#include "orvan/view/ProductColumnTable.h"

#include <optional>

namespace orvan {

namespace {

using ui::Alignment;
using ui::ControlKind;

constexpr float kButton = 375; ///< Buttons are square; the bottom band is as high as they are.
constexpr float kButtonStep = 420;
constexpr std::string_view kRight = "fraBottomRight";
constexpr std::string_view kLeft = "fraBottomLeft";

constexpr auto menuTools(ProductColumns::Place menu)
{
    std::array<ui::ToolDesign, kFieldColumns.size()> tools;
    for (std::size_t i = 0; i < tools.size(); ++i) {
        tools[i].id = kFieldColumns[i].menuItems[menu];
        tools[i].caption = kFieldColumns[i].caption;
    }
    return tools;
}

/// The commands in the menu of a row. A separator stands for an empty place.
constexpr std::optional<Command> kRowCommands[] = {
    Command::edit,  Command::add, Command::duplicate, Command::remove,   {}, Command::cut,       Command::copy,
    Command::paste, {},           Command::moveUp,    Command::moveDown, {}, Command::selectAll, {},
};

/// The commands, and a menu for each of the two columns with the fields that it can show.
constexpr auto rowTools()
{
    constexpr std::string_view kColumnMenus[] = {"mnuRowOne", "mnuRowTwo"};
    constexpr std::string_view kColumnCaptions[] = {"First Column", "Second Column"};
    std::array<ui::ToolDesign, std::size(kRowCommands) + 2 * (1 + kFieldColumns.size())> tools;
    std::size_t at = 0;
    for (const auto& command : kRowCommands) {
        if (command) {
            tools[at].id = rowOf(*command).id;
            tools[at].caption = rowOf(*command).text;
            tools[at].key = rowOf(*command).key;
        }
        ++at;
    }
    for (const ProductColumns::Place place : {ProductColumns::One, ProductColumns::Two}) {
        tools[at].id = kColumnMenus[place];
        tools[at++].caption = kColumnCaptions[place];
        for (const ColumnRow& column : kFieldColumns) {
            tools[at].id = column.menuItems[place];
            tools[at].caption = column.caption;
            tools[at++].menu = kColumnMenus[place];
        }
    }
    return tools;
}

constexpr auto kRowMenu = rowTools();
constexpr auto kMenuOne = menuTools(ProductColumns::One);
constexpr auto kMenuTwo = menuTools(ProductColumns::Two);

// clang-format off
constexpr ui::ControlDesign kControls[] = {
    {.name = "flexGrid", .kind = ControlKind::grid, .width = 6000, .height = 2565, .caption = "Products",
     .tabIndex = 0, .gridColumns = ProductColumns::kColumnCount},
    {.name = kLeft, .kind = ControlKind::frame, .top = 2625, .width = 2850, .height = kButton},
    {.name = "lblTotal", .kind = ControlKind::label, .parent = kLeft, .left = 60, .width = 600, .height = kButton,
     .caption = "Total"},
    {.name = "txtTotal", .kind = ControlKind::textBox, .parent = kLeft, .left = 720, .width = 2100,
     .height = kButton, .tabIndex = 1, .readOnly = true, .alignment = Alignment::right},
    {.name = kRight, .kind = ControlKind::frame, .left = 4365, .top = 2625, .width = 1635, .height = kButton},
    {.name = "cmdNew", .kind = ControlKind::button, .parent = kRight, .width = kButton, .height = kButton,
     .toolTip = "Add new product", .picture = "add", .tabIndex = 2},
    {.name = "cmdDelete", .kind = ControlKind::button, .parent = kRight, .left = kButtonStep, .width = kButton,
     .height = kButton, .toolTip = "Delete current product", .picture = "delete", .tabIndex = 3},
    {.name = "cmdMoveUp", .kind = ControlKind::button, .parent = kRight, .left = 2 * kButtonStep, .width = kButton,
     .height = kButton, .toolTip = "Move Product Up In the List", .picture = "up", .tabIndex = 4},
    {.name = "cmdMoveDown", .kind = ControlKind::button, .parent = kRight, .left = 3 * kButtonStep,
     .width = kButton, .height = kButton, .toolTip = "Move Product Down In The List", .picture = "down",
     .tabIndex = 5},
    {.name = "mnuViewCboOne", .kind = ControlKind::popupMenu, .caption = "View", .tools = kMenuOne},
    {.name = "mnuViewCboTwo", .kind = ControlKind::popupMenu, .caption = "View", .tools = kMenuTwo},
    {.name = "mnuRow", .kind = ControlKind::popupMenu, .caption = "Product", .tools = kRowMenu},
};
// clang-format on

} // namespace

const ui::FormDesign kProductViewDesign = {.name = "ProductView", .width = 6000, .height = 3000, .controls = kControls};

} // namespace orvan
