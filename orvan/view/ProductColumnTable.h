// The columns of the list view's grid as data: everything that sets one column apart stands in its row here.
//
// For the sources of this folder; hosts have no use for it.
#pragma once

#include "orvan/core/ProductMgr.h"
#include "orvan/ui/Grid.h"
#include "orvan/view/ProductColumns.h"

#include <iterator>
#include <optional>
#include <span>

namespace orvan {

struct ColumnRow {
    std::string_view key;
    std::string_view caption; ///< Of the header and of the items of the View menus.
    /// The type that the grid's column gets at first. `none`: it keeps the type that a new column of a grid has.
    ui::GridType type;
    /// What the cells show: a text or an amount of the record, or the product's position where both are null.
    std::string_view ProductFields::*text = nullptr;
    Currency ProductFields::*amount = nullptr;

    // Only for columns that can be shown as One or Two.
    std::optional<ViewFieldEnum> field = std::nullopt;
    ui::GridType shownType = ui::GridType::none; ///< The type from the first time on that it is shown as One or Two.
    std::string_view shownFormat = {};
    std::array<std::string_view, 2> menuItems = {}; ///< Its item in mnuViewCboOne and in mnuViewCboTwo; index: Place.
};

/// The dollar sign is literal, whatever the user's currency, unless Deviation::gridShowsTheUsersMoney applies.
inline constexpr std::string_view kMoneyFormat = "$###,##0.00";

// clang-format off
/// The columns in the order that they have in the grid at first. Those that can be chosen are in ViewFieldEnum's order.
inline constexpr ColumnRow kColumns[] = {
    {.key = "Number", .caption = "#", .type = ui::GridType::int32},
    {.key = "Name", .caption = "Product", .type = ui::GridType::string, .text = &ProductFields::name},
    {.key = "Key", .caption = "Key", .type = ui::GridType::string, .text = &ProductFields::key},
    {.key = "PartNum", .caption = "Part#", .type = ui::GridType::string, .text = &ProductFields::partNum,
     .field = ViewFieldEnum::PartNum, .shownType = ui::GridType::string,
     .menuItems = {"mnuViewCboOnePartNum", "mnuViewCboTwoPartNum"}},
    {.key = "ExtPrice", .caption = "Ext Price", .type = ui::GridType::currency, .amount = &ProductFields::extPrice,
     .field = ViewFieldEnum::ExtPrice, .shownType = ui::GridType::currency, .shownFormat = kMoneyFormat,
     .menuItems = {"mnuViewCboOneExtPrice", "mnuViewCboTwoExtPrice"}},
    {.key = "DiscPrcnt", .caption = "Disc%", .type = ui::GridType::none, .amount = &ProductFields::discPrcnt,
     .field = ViewFieldEnum::DiscPrcnt, .shownType = ui::GridType::float64,
     .menuItems = {"mnuViewCboOneDiscPrcnt", "mnuViewCboTwoDiscPrcnt"}},
    {.key = "UnitPrice", .caption = "Unit Price", .type = ui::GridType::currency, .amount = &ProductFields::unitPrice,
     .field = ViewFieldEnum::UnitPrice, .shownType = ui::GridType::currency, .shownFormat = kMoneyFormat,
     .menuItems = {"mnuViewCboOneUnitPrice", "mnuViewCboTwoUnitPrice"}},
    {.key = "Qty", .caption = "Qty", .type = ui::GridType::decimal, .amount = &ProductFields::qty,
     .field = ViewFieldEnum::Qty, .shownType = ui::GridType::float64,
     .menuItems = {"mnuViewCboOneQty", "mnuViewCboTwoQty"}},
    {.key = "Note", .caption = "Note", .type = ui::GridType::string, .text = &ProductFields::note,
     .field = ViewFieldEnum::Note, .shownType = ui::GridType::string,
     .menuItems = {"mnuViewCboOneNote", "mnuViewCboTwoNote"}},
};
// clang-format on
static_assert(std::size(kColumns) == ProductColumns::kColumnCount);

inline constexpr std::int32_t kNumberColumnWidth = 250; ///< Twips, of a new grid.
inline constexpr std::size_t kNumberColumn = 0;
inline constexpr std::size_t kNameColumn = 1;
inline constexpr std::size_t kPartNumColumn = 3;
static_assert(kColumns[kNumberColumn].key == "Number" && kColumns[kNameColumn].key == "Name" &&
              kColumns[kPartNumColumn].key == "PartNum");

/// The columns that can be chosen; a field's ViewFieldEnum value is the index of its column.
inline constexpr auto kFieldColumns = std::span(kColumns).subspan<3>();
static_assert([] {
    for (std::size_t i = 0; i < kFieldColumns.size(); ++i) {
        const ColumnRow& row = kFieldColumns[i];
        if (row.field != static_cast<ViewFieldEnum>(i) ||
            !row.menuItems[ProductColumns::One].starts_with("mnuViewCboOne") ||
            !row.menuItems[ProductColumns::Two].starts_with("mnuViewCboTwo")) {
            return false;
        }
    }
    return true;
}());

/// What the menu of a row offers for the width of a column.
enum class WidthChange : std::uint8_t { wider, narrower, fit };
struct WidthItem {
    WidthChange change;
    std::string_view caption;
    /// Its item for the name, and for columns One and Two.
    std::array<std::string_view, 3> items;
};
inline constexpr WidthItem kWidthItems[] = {
    {WidthChange::wider, "Wider", {"mnuRowNameWider", "mnuRowOneWider", "mnuRowTwoWider"}},
    {WidthChange::narrower, "Narrower", {"mnuRowNameNarrower", "mnuRowOneNarrower", "mnuRowTwoNarrower"}},
    {WidthChange::fit, "Fit to Texts", {"mnuRowNameFit", "mnuRowOneFit", "mnuRowTwoFit"}},
};
inline constexpr std::string_view kResetColumnsItem = "mnuRowResetColumns";

} // namespace orvan
