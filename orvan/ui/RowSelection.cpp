#include "orvan/ui/RowSelection.h"

#include <algorithm>

namespace orvan::ui {

namespace {

/// The first range that does not end before the row.
auto rangeAt(auto& ranges, std::int32_t row)
{
    return std::lower_bound(ranges.begin(), ranges.end(), row,
                            [](const RowRange& range, std::int32_t at) { return range.last < at; });
}

} // namespace

RowSelection::RowSelection(const std::vector<std::int32_t>& rows)
{
    for (const std::int32_t row : rows) {
        if (!ranges_.empty() && ranges_.back().last == row - 1) {
            ranges_.back().last = row;
        } else {
            ranges_.push_back({row, row});
        }
    }
}

bool RowSelection::contains(std::int32_t row) const
{
    const auto range = rangeAt(ranges_, row);
    return range != ranges_.end() && range->first <= row;
}

std::int32_t RowSelection::count() const
{
    std::int32_t rows = 0;
    for (const RowRange& range : ranges_) {
        rows += range.last - range.first + 1;
    }
    return rows;
}

std::vector<std::int32_t> RowSelection::rows() const
{
    std::vector<std::int32_t> rows;
    rows.reserve(static_cast<std::size_t>(count()));
    for (const RowRange& range : ranges_) {
        for (std::int32_t row = range.first; row <= range.last; ++row) {
            rows.push_back(row);
        }
    }
    return rows;
}

void RowSelection::toggle(std::int32_t row)
{
    auto at = rangeAt(ranges_, row);
    if (at != ranges_.end() && at->first <= row) {
        const RowRange before{at->first, row - 1};
        const RowRange after{row + 1, at->last};
        at = ranges_.erase(at);
        at = after.first <= after.last ? ranges_.insert(at, after) : at;
        if (before.first <= before.last) {
            ranges_.insert(at, before);
        }
        return;
    }
    at = ranges_.insert(at, {row, row});
    if (const auto next = at + 1; next != ranges_.end() && next->first == row + 1) {
        at->last = next->last;
        ranges_.erase(next);
    }
    if (at != ranges_.begin() && (at - 1)->last == row - 1) {
        (at - 1)->last = at->last;
        ranges_.erase(at);
    }
}

} // namespace orvan::ui
