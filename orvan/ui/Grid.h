// Grid: rows and keyed columns of values, with a header.
//
// Rows and columns count from 0. Rows below fixedRows() are headers. Everything a column has (key,
// type, format, width, hidden, cells) moves with it. Widths are in twips. The grid keeps values; a
// platform asks for displayText() of the cells that it paints, so that a long list costs nothing to
// show.
//
// Redraw: while it is off, changes are collected; turning it on hands them to the platform once.
// Raises 9 for a row or column outside the grid 380 for a negative width or count, and 7 for more rows
// than kMostRows.
// Ownership: the Surface. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/Control.h"
#include "orvan/ui/GridFormat.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace orvan::ui {

/// What cells of a column hold; numbers are shown at the right edge, text at the left.
enum class GridType { none, string, int32, currency, decimal, float64 };

/// What changed since the platform last looked.
struct GridChanges {
    bool cells = false;      ///< Values, types or formats.
    bool layout = false;     ///< Rows, columns, keys, order, widths, hidden columns.
    bool currentRow = false; ///< The program chose another current row.
};

class Grid : public Control {
public:
    Grid(const ControlDesign& design, NumberSeparators separators);

    bool redraw() const { return redraw_; }
    void setRedraw(bool redraw);

    /// A toolkit counts the height of all rows in 31 bits of pixels, which is 200 pixels for each of so many.
    static constexpr std::int32_t kMostRows = 10'000'000;
    std::int32_t rowCount() const { return rowCount_; }
    /// Header rows included. Added rows are empty; a current row that is cut off becomes the last.
    void setRowCount(std::int32_t count);
    std::int32_t columnCount() const { return static_cast<std::int32_t>(columns_.size()); }
    void setColumnCount(std::int32_t count);
    std::int32_t fixedRows() const { return fixedRows_; }
    void setFixedRows(std::int32_t count);
    bool userResizing() const { return userResizing_; }
    /// Whether the user can change column widths with the mouse.
    void setUserResizing(bool allowed);

    const std::string& columnKey(std::int32_t column) const { return at(column).key; }
    void setColumnKey(std::int32_t column, std::string_view key);
    /// -1 when no column has the key; an empty key is no key.
    std::int32_t columnIndex(std::string_view key) const;
    /// The columns between the two places move by one.
    void moveColumn(std::int32_t column, std::int32_t to);

    GridType columnType(std::int32_t column) const { return at(column).type; }
    void setColumnType(std::int32_t column, GridType type);
    using AmountText = std::function<std::string(Currency)>;
    /// A picture as GridFormat describes; empty for none. Amounts are shown by `text` where one is given, and by the
    /// picture where that raises. It is kept as long as the grid, and called for the cells that are painted.
    void setColumnFormat(std::int32_t column, std::string_view picture, AmountText text = {});
    bool columnHidden(std::int32_t column) const { return at(column).hidden; }
    void setColumnHidden(std::int32_t column, bool hidden);
    /// Twips, exactly as set or as the user dragged it.
    std::int32_t columnWidth(std::int32_t column) const { return at(column).width; }
    void setColumnWidth(std::int32_t column, std::int32_t twips);

    const GridValue& value(std::int32_t row, std::int32_t column) const;
    void setValue(std::int32_t row, std::int32_t column, GridValue value);
    std::string displayText(std::int32_t row, std::int32_t column) const;

    /// 0 (the header) until the user or the program chooses a row.
    std::int32_t currentRow() const { return currentRow_; }
    void setCurrentRow(std::int32_t row);

    /// The user changed a column's width; the new width stands already.
    std::function<void()> onAfterUserResize;
    /// The user double clicked, on a row or where there is none.
    std::function<void()> onDblClick;
    /// The user clicked with the right button, on a cell, on a header or elsewhere. Chooses no row.
    std::function<void()> onRightClick;
    /// The row under the mouse at the user's last double or right click, header rows included; -1 for none.
    std::int32_t mouseRow() const { return mouseRow_; }
    /// The column under the mouse at the user's last right click; -1 for none.
    std::int32_t mouseColumn() const { return mouseColumn_; }

protected:
    /// Show what changed: called after each change while redraw is on, and once when it is turned on.
    virtual void doUpdate(const GridChanges& changes) = 0;
    /// Called when redraw goes off, before any change: stop painting until doUpdate.
    virtual void doSuspend() = 0;

    /// The user dragged a column's edge. Raises the event.
    void userResizedColumn(std::int32_t column, std::int32_t twips);
    /// The user chose a row.
    void userChoseRow(std::int32_t row);
    /// The user double clicked; -1 for no row. Raises the event.
    void userDoubleClicked(std::int32_t row);
    /// The user clicked with the right button; -1 for no row or column. Raises the event.
    void userRightClicked(std::int32_t row, std::int32_t column);

private:
    struct Column {
        std::string key;
        GridType type = GridType::none;
        GridFormat format;
        AmountText amountText;
        std::int32_t width = 0;
        bool hidden = false;
        std::vector<GridValue> cells;
    };

    const Column& at(std::int32_t column) const;
    Column& at(std::int32_t column);
    void appendColumns(std::int32_t count);
    void requireRow(std::int32_t row) const;
    void changed(bool GridChanges::*what);

    NumberSeparators separators_;
    std::vector<std::unique_ptr<Column>> columns_;
    std::int32_t rowCount_ = 1;
    std::int32_t fixedRows_ = 1;
    std::int32_t currentRow_ = 0;
    bool userResizing_ = false;
    std::int32_t mouseRow_ = -1;
    std::int32_t mouseColumn_ = -1;
    bool redraw_ = true;
    GridChanges pending_;
};

} // namespace orvan::ui
