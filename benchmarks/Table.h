// Table: prints a Markdown table on a stream, row by row, and writes figures for its cells.
#pragma once

#include "benchmarks/Bound.h"
#include "benchmarks/Spread.h"

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

namespace orvan::bench {

class Table {
public:
    /// Prints the column headings. The first column is at least `firstWidth` characters wide.
    Table(std::ostream& out, const std::vector<std::string>& heads, std::size_t firstWidth);

    void print(const std::vector<std::string>& cells);

private:
    std::ostream& out_;
    std::size_t firstWidth_;
};

/// Three significant digits in the unit that is easiest to read: "812 ns", "1.25 us", "48.3 ms", "6.1 MB".
std::string figureText(double figure, Unit unit);
/// The median, then where the middle half of the figures lies, in the same unit: "1.25 us (1.21 to 1.4)".
std::string spreadText(const Spread& spread, Unit unit);
/// At most three significant digits: "8", "1.5", "0.967", "1140".
std::string plainNumber(double number);
/// The number with separators between its groups of digits: "100,000".
std::string groupedNumber(std::size_t number);

} // namespace orvan::bench
