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
    const int free = freeWidth(viewWidth);
    std::vector<int> widths;
    for (const FittedColumn& one : columns_) {
        if (one.takesRest) {
            const bool stays = setByUser_ && viewWidth >= userView_;
            const int narrowest = stays ? one.own : std::min(one.own, one.least);
            widths.push_back(std::max({free - leftFree_, narrowest, std::min(one.own, free)}));
        } else {
            widths.push_back(fitted ? std::max(one.own, one.least) : one.own);
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
                userView_ = viewWidth;
                leftFree_ = std::max(freeWidth(viewWidth) - one.own, 0);
            }
        }
    }
}

} // namespace orvan::qt
