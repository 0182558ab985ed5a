#include "orvan/ui/qt/ColumnFit.h"

#include <algorithm>

namespace orvan::qt {

bool ColumnFit::fits() const
{
    return std::any_of(columns_.begin(), columns_.end(), [](const FittedColumn& one) { return one.takesRest; });
}

/// What the other columns leave to the one that takes the rest.
int ColumnFit::freeWidth(int viewWidth) const
{
    int width = viewWidth;
    for (const FittedColumn& one : columns_) {
        width -= one.takesRest ? 0 : std::max(one.own, one.least);
    }
    return width;
}

std::vector<int> ColumnFit::shownIn(int viewWidth) const
{
    const bool fitted = fits();
    std::vector<int> widths;
    int grown = 0; // by how much the other columns are wider than their own widths
    for (const FittedColumn& one : columns_) {
        widths.push_back(fitted && !one.takesRest ? std::max(one.own, one.least) : one.own);
        grown += widths.back() - one.own;
    }
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (const FittedColumn& rest = columns_[i]; rest.takesRest) {
            // Where the own widths would fit, those that had to grow do so at its cost, as far as its header allows.
            // A width that the user has just seen stays.
            const int narrowest = setByUser_ ? rest.own : std::min(rest.own, std::max(rest.least, rest.own - grown));
            const int free = freeWidth(viewWidth);
            widths[i] = std::max({free - leftFree_, narrowest, std::min(rest.own, free)});
        }
    }
    return widths;
}

int ColumnFit::leastOf(int column) const
{
    const auto found =
        std::find_if(columns_.begin(), columns_.end(), [&](const FittedColumn& one) { return one.column == column; });
    return found != columns_.end() && fits() ? found->least : 0;
}

void ColumnFit::setByUser(int column, int width, int viewWidth)
{
    for (FittedColumn& one : columns_) {
        if (one.column == column) {
            one.own = std::max(width, leastOf(column));
            if (one.takesRest) {
                setByUser_ = true;
                leftFree_ = std::max(freeWidth(viewWidth) - one.own, 0);
            }
        }
    }
}

} // namespace orvan::qt
