#include "orvan/view/ProductViewDesign.h"

#include <array>

namespace orvan {

namespace {

using ui::Alignment;
using ui::ControlKind;

constexpr float kButton = 375; ///< Buttons are square; the bottom band is as high as they are.
constexpr float kButtonStep = 420;
constexpr std::string_view kRight = "fraBottomRight";
constexpr std::string_view kLeft = "fraBottomLeft";

/// An item of the View menus, by its name in either: the menu's name and the key of the column that it chooses.
struct MenuItem {
    std::string_view one;
    std::string_view two;
    std::string_view caption;
};

constexpr std::size_t kMenuItemCount = 6;
constexpr MenuItem kMenuItems[kMenuItemCount] = {
    {"mnuViewCboOnePartNum", "mnuViewCboTwoPartNum", "Part#"},
    {"mnuViewCboOneExtPrice", "mnuViewCboTwoExtPrice", "Ext Price"},
    {"mnuViewCboOneDiscPrcnt", "mnuViewCboTwoDiscPrcnt", "Disc%"},
    {"mnuViewCboOneUnitPrice", "mnuViewCboTwoUnitPrice", "Unit Price"},
    {"mnuViewCboOneQty", "mnuViewCboTwoQty", "Qty"},
    {"mnuViewCboOneNote", "mnuViewCboTwoNote", "Note"},
};

constexpr std::array<ui::ToolDesign, kMenuItemCount> menuTools(std::string_view MenuItem::*name)
{
    std::array<ui::ToolDesign, kMenuItemCount> tools;
    for (std::size_t i = 0; i < kMenuItemCount; ++i) {
        tools[i].id = kMenuItems[i].*name;
        tools[i].caption = kMenuItems[i].caption;
    }
    return tools;
}

constexpr auto kMenuOne = menuTools(&MenuItem::one);
constexpr auto kMenuTwo = menuTools(&MenuItem::two);

// clang-format off
constexpr ui::ControlDesign kControls[] = {
    {.name = "flexGrid", .kind = ControlKind::grid, .width = 6000, .height = 2565, .tabIndex = 0, .gridColumns = 9},
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
};
// clang-format on

} // namespace

const ui::FormDesign kProductViewDesign = {.name = "ProductView", .width = 6000, .height = 3000, .controls = kControls};

} // namespace orvan
