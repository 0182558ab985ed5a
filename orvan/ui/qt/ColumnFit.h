// ColumnFit: the widths in which the columns of a grid are shown in a view of some width.
//
// A column has a width of its own, which the program set or the user dragged. If one of them takes the rest, it is shown
// wider than that while the others leave space, and gives the space back when the view narrows; the others are then
// never shown narrower than their numbers and headers need. Otherwise each column is shown in its own width. Lengths
// are in pixels. Thread: any; a ColumnFit is a plain value.
#pragma once

#include <utility>
#include <vector>

namespace orvan::qt {

/// One column that is shown.
struct FittedColumn {
    int column = 0; ///< Its index in the grid.
    int own = 0;
    int least = 0; ///< What its numbers and its header need.
    bool takesRest = false;
};

class ColumnFit {
public:
    /// The columns that are shown. What the user left free stays free.
    void setColumns(std::vector<FittedColumn> columns) { columns_ = std::move(columns); }
    const std::vector<FittedColumn>& columns() const { return columns_; }
    /// The width of each of columns(), in their order.
    [[nodiscard]] std::vector<int> shownIn(int viewWidth) const;
    /// The least width that a user can give the column.
    [[nodiscard]] int leastOf(int column) const;
    /// The user gave the column this width, which becomes its own one. If it takes the rest, the space that the user
    /// leaves free beside it is not filled: the width stays as the user sees it.
    void setByUser(int column, int width, int viewWidth);
    /// Forgets that the user set the width of the column that takes the rest, and what was left free beside it.
    void fillAgain()
    {
        setByUser_ = false;
        leftFree_ = 0;
    }

private:
    [[nodiscard]] bool fits() const;
    [[nodiscard]] int freeWidth(int viewWidth) const;

    std::vector<FittedColumn> columns_;
    bool setByUser_ = false; ///< The user set the width of the column that takes the rest.
    int leftFree_ = 0;       ///< Beside that column.
};

} // namespace orvan::qt
