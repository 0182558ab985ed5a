// RowSelection: which rows of a grid the user has selected.
//
// The selection is kept as ranges, so that selecting the whole of a long list is cheap. Rows count as in Grid. Thread:
// any.
#pragma once

#include <cstdint>
#include <vector>

namespace orvan::ui {

/// The rows from `first` to `last`, both included.
struct RowRange {
    std::int32_t first = 0;
    std::int32_t last = 0;

    friend bool operator==(const RowRange&, const RowRange&) = default;
};

class RowSelection {
public:
    /// Allocates what one range needs, so that selecting the current row later does not fail where memory runs out.
    RowSelection() { ranges_.reserve(1); }
    /// Selects these rows, which are sorted.
    explicit RowSelection(const std::vector<std::int32_t>& rows);

    void clear() { ranges_.clear(); }
    void replace(RowRange range) { ranges_.assign(1, range); }
    /// Selects the row, or takes it out of the selection.
    void toggle(std::int32_t row);

    [[nodiscard]] bool contains(std::int32_t row) const;
    [[nodiscard]] std::int32_t count() const;
    /// Sorted, and neither overlapping nor next to each other.
    [[nodiscard]] const std::vector<RowRange>& ranges() const { return ranges_; }
    /// All selected rows, from the first to the last.
    [[nodiscard]] std::vector<std::int32_t> rows() const;

private:
    std::vector<RowRange> ranges_;
};

} // namespace orvan::ui
