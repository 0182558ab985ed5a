// Grid: rows and keyed columns of values, with a header.
//
// Rows and columns count from 0. Rows with a number less than fixedRows() are headers. Everything a column has (key,
// type, format, width, hidden, cells) moves with it. Widths are in twips. The grid keeps values; a
// platform asks for displayText() of the cells that it paints, so that a long list costs nothing to
// show.
//
// Redraw: while it is off, changes are collected; turning it on hands them to the platform once.
// Raises 9 for a row or column outside the grid, 380 for a negative width or count, and 7 for more rows
// than kMostRows.
// Ownership: the Surface. Thread: the user-interface thread.
#pragma once

#include "orvan/base/UserText.h"
#include "orvan/core_export.h"
#include "orvan/ui/Control.h"
#include "orvan/ui/GridCell.h"
#include "orvan/ui/GridFormat.h"
#include "orvan/ui/KeyStroke.h"
#include "orvan/ui/RowSelection.h"

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace orvan::ui {

/// What the cells of a column hold. Numbers are shown at the right edge of a cell, and text at the left.
enum class GridType { none, string, int32, currency, decimal, float64 };

/// What changed since the platform last looked.
struct GridChanges {
    bool cells = false;      ///< Values, types or formats.
    bool layout = false;     ///< Rows, columns, keys, order, widths, hidden columns.
    bool currentRow = false; ///< The program chose another current row or selected other rows.
    bool restWidth = false;  ///< The program set the width of the column that takes the free width.
};

/// What choosing a row does to the selection.
enum class RowChoice {
    only,   ///< The row alone is selected.
    upTo,   ///< The rows from the last one that was chosen otherwise up to this one are selected (Shift).
    toggle, ///< The row is added to the selection or taken out of it (Ctrl).
};

class ORVAN_CORE_INTERNAL Grid : public Control {
public:
    Grid(const ControlDesign& design, NumberSeparators separators);

    bool redraw() const { return redraw_; }
    void setRedraw(bool redraw);

    /// A toolkit counts the height of all rows in 31 bits of pixels, which is 200 pixels for each of so many.
    static constexpr std::int32_t kMostRows = 10'000'000;
    std::int32_t rowCount() const { return rowCount_; }
    /// The count includes the header rows. New rows are empty. If the current row is removed, the last row becomes the
    /// current one.
    void setRowCount(std::int32_t count);
    /// Removes a row; those after it move up. Otherwise as setRowCount.
    void removeRow(std::int32_t row);
    std::int32_t columnCount() const { return static_cast<std::int32_t>(columns_.size()); }
    void setColumnCount(std::int32_t count);
    std::int32_t fixedRows() const { return fixedRows_; }
    void setFixedRows(std::int32_t count);
    bool userResizing() const { return userResizing_; }
    /// Whether the user can change column widths with the mouse.
    void setUserResizing(bool allowed);

    const std::string& columnKey(std::int32_t column) const { return at(column).key; }
    void setColumnKey(std::int32_t column, std::string_view key);
    /// The column with that key; -1 if there is none, and for an empty key.
    std::int32_t columnIndex(std::string_view key) const;
    /// Moves one column to the place `to`; the columns between move by one place.
    void moveColumn(std::int32_t column, std::int32_t to);

    GridType columnType(std::int32_t column) const { return at(column).type; }
    void setColumnType(std::int32_t column, GridType type);
    using AmountText = std::function<std::string(Currency)>;
    /// Sets a number picture (see orvan/ui/GridFormat.h); an empty text removes it. Where `text` is given, it makes the
    /// texts of amounts instead, for the cells that are painted; where it raises, the picture is used. The grid keeps
    /// it.
    void setColumnFormat(std::int32_t column, std::string_view picture, AmountText text = {});
    bool columnHidden(std::int32_t column) const { return at(column).hidden; }
    void setColumnHidden(std::int32_t column, bool hidden);
    static constexpr std::int32_t kDefaultColumnWidth = 960; ///< A new column's, in twips.
    /// The width in twips, exactly as the program set it or the user dragged it.
    std::int32_t columnWidth(std::int32_t column) const { return at(column).width; }
    void setColumnWidth(std::int32_t column, std::int32_t twips);
    bool columnTakesRest(std::int32_t column) const { return at(column).takesRest; }
    /// The column is shown wider than its width where the others leave space, and narrower where not all fit. A grid
    /// with such a column also shows the others wide enough for their numbers and headers. This changes no columnWidth.
    void setColumnTakesRest(std::int32_t column, bool takes);
    /// The width in twips that the user sees.
    std::int32_t shownWidth(std::int32_t column) const { return measuredBy(surface(), "shown", measureShown(column)); }
    /// The least width in twips that shows all texts of the column whole.
    std::int32_t fittingWidth(std::int32_t column) const
    {
        return measuredBy(surface(), "fitting", measureFitting(column));
    }
    /// Does what the user does who drags the column's edge: sets the width that is then seen, and raises
    /// onAfterUserResize.
    virtual void dragToWidth(std::int32_t column, std::int32_t twips) = 0;

    const UserText& headerTip(std::int32_t column) const { return at(column).headerTip; }
    /// Marks the column's header as one that opens a menu, by an arrow and this tool tip; an empty text removes both. A
    /// left click on the header then raises onRightClick, too.
    void setHeaderTip(std::int32_t column, UserText tip);
    const UserText& emptyText() const { return emptyText_; }
    /// What the grid shows instead of rows while it has none.
    void setEmptyText(UserText text);

    const GridCell& cell(std::int32_t row, std::int32_t column) const
    {
        requireRow(row);
        return at(column).cells[static_cast<std::size_t>(row)];
    }
    /// The cells of all rows, header rows included; valid until the next change of the grid.
    std::span<const GridCell> cells(std::int32_t column) const { return at(column).cells; }
    GridValue value(std::int32_t row, std::int32_t column) const { return cell(row, column).value(); }
    /// Does nothing where the cell has that value. Written here, as what it calls is, because a list is filled by it.
    void setValue(std::int32_t row, std::int32_t column, const GridValueView& value)
    {
        requireRow(row);
        GridCell& cell = at(column).cells[static_cast<std::size_t>(row)];
        if (!cell.holds(value)) {
            cell.set(value);
            changed(&GridChanges::cells);
        }
    }
    /// Moves a cell that was made elsewhere into its place.
    void setCell(std::int32_t row, std::int32_t column, GridCell cell);
    std::string displayText(std::int32_t row, std::int32_t column) const;

    /// The current row; 0 (the header) until the user or the program chooses a row.
    std::int32_t currentRow() const { return currentRow_; }
    /// Makes the row the current one and the only one that is selected.
    void setCurrentRow(std::int32_t row);
    /// Whether the user can select several rows. If not, only the current row is selected.
    bool multiSelect() const { return multiSelect_; }
    void setMultiSelect(bool allowed) { multiSelect_ = allowed; }
    /// Whether the user can drag the selected rows to another place; true at first. Without onDragRows nobody can.
    bool rowDragging() const { return rowDragging_; }
    void setRowDragging(bool allowed) { rowDragging_ = allowed; }
    /// Header rows are never selected. A change of the row count leaves only the current row selected.
    const RowSelection& selection() const { return selection_; }
    /// Selects rows, and makes `current` the current row. Raises 5 if a header row is among them.
    void selectRows(RowSelection rows, std::int32_t current);
    /// What the user has typed to find a row. The grid shows it over its rows until it is set to an empty text.
    const UserText& searchText() const { return searchText_; }
    void setSearchText(UserText text);

    /// The user pressed a key while the grid had the focus. A handler that takes the key sets its `key` to Key::none;
    /// otherwise the keys that move the current row do so.
    std::function<void(KeyStroke& key)> onKeyDown;
    /// Whether that handler would take the key now. Asked first, so that a window does not use the key as a shortcut of
    /// its own. Changes nothing.
    std::function<bool(const KeyStroke& key)> takesKey;
    /// The user chose a row, or changed the selection.
    std::function<void()> onSelect;
    /// The user dragged the selected rows to the place above the row `before`; the row count stands for the end.
    std::function<void(std::int32_t before)> onDragRows;
    /// The user changed a column's width; columnWidth gives the new width.
    std::function<void()> onAfterUserResize;
    /// The user double clicked, on a row or elsewhere; mouseRow() says where.
    std::function<void()> onDblClick;
    /// The user clicked with the right button, on a cell, on a header or elsewhere, or with the left one on a header
    /// that has a tip. The current row stays.
    std::function<void()> onRightClick;
    /// The row under the mouse at the user's last double or right click, header rows included; -1 for none.
    std::int32_t mouseRow() const { return mouseRow_; }
    /// The column under the mouse at the user's last right click; -1 for none.
    std::int32_t mouseColumn() const { return mouseColumn_; }

    void play(const Event& event) override;

protected:
    /// The platform shows what changed. Called after each change while redraw is on, and once when it is turned on.
    virtual void doUpdate(const GridChanges& changes) = 0;
    /// Called when redraw is turned off, before any change: the platform stops painting until doUpdate.
    virtual void doSuspend() = 0;
    /// The platform shows the current row and the selection, which the user has changed, and reveals the current row.
    virtual void doSelect() = 0;
    virtual void doShowSearchText() = 0;
    /// What shownWidth and fittingWidth return.
    virtual std::int32_t measureShown(std::int32_t column) const = 0;
    virtual std::int32_t measureFitting(std::int32_t column) const = 0;
    /// How many rows a page of the list has; at least 1.
    virtual std::int32_t rowsPerPage() const = 0;

    /// The platform reports here what the user did; -1 stands for no row or no column. Each report raises its event.
    void userResizedColumn(std::int32_t column, std::int32_t twips);
    void userChoseRow(std::int32_t row, RowChoice choice = RowChoice::only);
    /// Returns whether the key has been taken. The event's handler may destroy the grid, and has then taken it.
    [[nodiscard]] bool userPressedKey(KeyStroke key);
    /// Does nothing if rows cannot be dragged (any more).
    void userDraggedRows(std::int32_t before);
    void userDoubleClicked(std::int32_t row);
    void userRightClicked(std::int32_t row, std::int32_t column);

private:
    struct Column {
        std::string key;
        GridType type = GridType::none;
        GridFormat format;
        AmountText amountText;
        std::int32_t width = 0;
        bool takesRest = false;
        bool hidden = false;
        UserText headerTip;
        std::vector<GridCell> cells;
    };

    const Column& at(std::int32_t column) const
    {
        if (column < 0 || column >= columnCount()) {
            raiseOutside("column", column, columnCount());
        }
        return *columns_[static_cast<std::size_t>(column)];
    }
    Column& at(std::int32_t column) { return const_cast<Column&>(std::as_const(*this).at(column)); }
    void appendColumns(std::int32_t count);
    void takeRowCount(std::int32_t count);
    void requireRow(std::int32_t row) const
    {
        if (row < 0 || row >= rowCount_) {
            raiseOutside("row", row, rowCount_);
        }
    }
    [[noreturn]] void raiseOutside(const char* what, std::int32_t index, std::int32_t count) const;
    void selectCurrentRow();
    /// Moves the current row as the key says. Returns false for a key that does not do this.
    bool moveByKey(const KeyStroke& key);
    void changed(bool GridChanges::*what);

    NumberSeparators separators_;
    std::vector<std::unique_ptr<Column>> columns_;
    std::int32_t rowCount_ = 1;
    std::int32_t fixedRows_ = 1;
    std::int32_t currentRow_ = 0;
    std::int32_t anchorRow_ = 0; ///< Where a selection of several rows begins.
    bool multiSelect_ = false;
    bool rowDragging_ = true;
    RowSelection selection_;
    UserText searchText_;
    UserText emptyText_;
    bool userResizing_ = false;
    std::int32_t mouseRow_ = -1;
    std::int32_t mouseColumn_ = -1;
    bool redraw_ = true;
    GridChanges pending_;
};

} // namespace orvan::ui
