// ColumnFit: the widths in which the columns of a grid are shown in a view of some width.
//
// A column has a width of its own, which the program set or the user dragged. If one of them takes the rest, it is
// shown wider than that where the others leave space, and narrower where all own widths do not fit, as far as it can
// still be read; the others are then never shown narrower than their numbers and headers need. Otherwise each column is
// shown in its own width. Lengths are in pixels. Thread: any; a ColumnFit is a plain value.
#pragma once

#include <utility>
#include <vector>

namespace orvan::qt {

/// One column that is shown.
struct FittedColumn {
    int column = 0; ///< Its index in the grid.
    int own = 0;
    int least = 0; ///< What its numbers and its header need; of the one that takes the rest, what can still be read.
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
    /// The user gave the column this width, which becomes its own one. If it takes the rest, it stays as the user sees
    /// it: space that is free beside it is not filled, and a width beyond the view's is kept until the view narrows.
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
    int userView_ = 0;       ///< The view's width then.
    int leftFree_ = 0;       ///< What the user left free beside that column.
};

} // namespace orvan::qt
