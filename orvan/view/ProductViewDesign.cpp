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

/// The menus of the columns in the menu of a row: of the name, and of One and Two, which have their fields, too.
struct ColumnMenu {
    std::string_view id;
    std::string_view caption;
};
constexpr ColumnMenu kColumnMenus[] = {
    {"mnuRowName", "Product Column"}, {"mnuRowOne", "First Column"}, {"mnuRowTwo", "Second Column"}};
constexpr std::size_t kRowTools = std::size(kRowCommands) + std::size(kColumnMenus) * (1 + std::size(kWidthItems)) +
                                  2 * (kFieldColumns.size() + 1) + 1;

/// The commands, the menus of the columns, and what puts the columns back.
constexpr auto rowTools()
{
    std::array<ui::ToolDesign, kRowTools> tools;
    std::size_t at = 0;
    for (const auto& command : kRowCommands) {
        if (command) {
            tools[at].id = rowOf(*command).id;
            tools[at].caption = rowOf(*command).text;
            tools[at].key = rowOf(*command).key;
        }
        ++at;
    }
    for (std::size_t menu = 0; menu < std::size(kColumnMenus); ++menu) {
        tools[at].id = kColumnMenus[menu].id;
        tools[at++].caption = kColumnMenus[menu].caption;
        if (menu > 0) {
            for (const ColumnRow& column : kFieldColumns) {
                tools[at].id = column.menuItems[menu - 1];
                tools[at].caption = column.caption;
                tools[at++].menu = kColumnMenus[menu].id;
            }
            tools[at++].menu = kColumnMenus[menu].id; // a separator
        }
        for (const WidthItem& item : kWidthItems) {
            tools[at].id = item.items[menu];
            tools[at].caption = item.caption;
            tools[at++].menu = kColumnMenus[menu].id;
        }
    }
    tools[at].id = kResetColumnsItem;
    tools[at].caption = "Reset Columns";
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
