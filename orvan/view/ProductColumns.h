// ProductColumns: the columns of the list view's grid, and the user's choice among them.
//
// There are nine, each described by one row of orvan/view/ProductColumnTable.h. The position and the name
// are always shown, and beside them columns One and Two. Their fields are the user's choice, made in the
// View menus that a right click on the header brings up. The choice and the widths of the columns are kept
// as preferences (orvan/view/ProductViewPrefs.h).
//
// Showing the chosen columns moves them. An index is therefore good only until the next move, and columns
// are found again by their keys.
//
// The trace labels say ProductView, because those who read traces know the view as one object.
//
// Ownership: ProductView; the platform and the surface outlive it. Thread: the user-interface thread.
// Errors: an error while preferences are read leads to the default columns, and preferences that cannot be saved stay
// as they were; both errors are recorded. Everything else raises. The right click and the menu items are not traced:
// their errors reach Platform::onUnhandledError.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvan {

class ScopedHandlers;

namespace ui {
class Grid;
class Platform;
class PopupMenu;
class Surface;
} // namespace ui

enum class WidthChange : std::uint8_t;

/// The fields a user can choose for columns One and Two. Saved preferences hold these numbers; damaged
/// preferences can hold others.
enum class ViewFieldEnum : std::int32_t { PartNum = 0, ExtPrice = 1, DiscPrcnt = 2, UnitPrice = 3, Qty = 4, Note = 5 };

class ProductColumns {
public:
    static constexpr std::int32_t kColumnCount = 9;
    static constexpr std::int32_t kPositionOne = 2; ///< The place of column One in the grid; Two is next to it.
    /// The two columns of the user's choice.
    enum Place : std::size_t { One, Two };

    /// Finds the grid and the menus of kProductViewDesign (orvan/view/ProductViewDesign.h).
    ProductColumns(ui::Platform& platform, const ui::Surface& surface);
    ProductColumns(const ProductColumns&) = delete;
    ProductColumns& operator=(const ProductColumns&) = delete;

    /// Gives the grid its columns and shows the default fields. Called first, and once.
    void setUp();
    /// Sets the handlers of the events that concern columns: resizing, and the items of the View menus.
    void takeEvents(ScopedHandlers& handlers);
    /// Sets the type name of the host's form, under which preferences are read and saved from now on.
    void setHostTypeName(std::string name) { hostTypeName_ = std::move(name); }
    /// Takes the stored fields and widths, or the defaults. PrvApplyColumnLayout then shows the fields.
    void PrvReadPrefs();
    void PrvApplyColumnLayout();

    /// A right click on a header: opens the View menu of column One or Two.
    void flexGrid_RightClick();
    /// Prepares the items of both View menus, which the menu of a row has, too.
    void prepareItems(ui::PopupMenu& menu);
    /// The user chose an item of a View menu, in that menu or in another one.
    void mnuViewCbo_Click(std::string_view item);
    /// The user chose one of the other items about columns in the menu of a row.
    void mnuRowColumns_Click(std::string_view item);

    /// Where each column of kColumns stands in the grid now.
    using Indices = std::array<std::int32_t, kColumnCount>;
    [[nodiscard]] const Indices& indices() const noexcept { return columnIndices_; }
    /// The position in the list that a row shows.
    [[nodiscard]] std::int32_t indexInRow(std::int32_t row) const;
    /// What the list shows instead of rows while it has none.
    void showEmptyText(bool readOnly);

private:
    struct ChosenColumn {
        ui::PopupMenu& menu;
        ViewFieldEnum field{};   ///< What the column shows.
        std::int32_t column = 0; ///< Where that field stands in the grid.
    };

    // ProductColumns.cpp
    [[nodiscard]] static std::string_view PrvGetColKeyByEnum(ViewFieldEnum field);
    [[nodiscard]] std::int32_t PrvGetColIndexByEnum(ViewFieldEnum field) const;
    void PrvInitColumnIndices();
    void PrvSetColumnKeys();
    void PrvInitGrid();
    void PrvSetColumnHeaders();
    void PrvSetColumnFormat(std::int32_t column, ViewFieldEnum field);
    void PrvShowChosenColumns();
    void PrvRefreshColumnIndices();
    void setViewMenu(ui::PopupMenu& menu, Place own);
    void changeWidth(std::int32_t column, WidthChange change);
    void resetColumns();
    void chooseColumn(Place own, std::int32_t column, ViewFieldEnum field);

    // ProductViewPrefs.cpp
    void PrvSetDefaultProps();
    void chooseFields(ViewFieldEnum one, ViewFieldEnum two);
    [[nodiscard]] bool applyStoredPrefs();
    [[nodiscard]] std::vector<std::int32_t> columnsOnceMoved() const;
    void applyDefaultPrefs();
    void PrvSaveViewPrefs();

    ui::Platform& platform_;
    ui::Grid& flexGrid_;
    std::array<ChosenColumn, 2> chosen_; ///< The index is a Place.
    Indices columnIndices_{};
    /// For the grid's first four positions. Filled and cleared, but never read: widths come from the
    /// preferences.
    std::array<std::int32_t, 4> defaultWidths_{};
    std::string hostTypeName_;
};

} // namespace orvan
