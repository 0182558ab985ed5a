// longestNumbers: the numbers of a grid's column that can have the longest texts.
//
// A platform that keeps a column wide enough for its numbers measures these few texts instead of those of all rows.
// Thread: the user-interface thread.
#pragma once

#include "orvan/core_export.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orvan::ui {

class Grid;

/// Texts of the column's numbers, header rows left out: one for each size and count of decimals, with and without a
/// minus sign. Every number of the column has a text of no more characters than one of these. Empty for a column
/// without numbers.
[[nodiscard]] ORVAN_CORE_INTERNAL std::vector<std::string> longestNumbers(const Grid& grid, std::int32_t column);

} // namespace orvan::ui
