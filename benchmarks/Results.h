// Results: what a run of the benchmarks has measured. A run is kept as a JSON file, a later run is compared with it,
// and several runs are summed up.
//
// Errors: std::runtime_error for a file that cannot be written or read.
#pragma once

#include "benchmarks/Bound.h"
#include "benchmarks/Spread.h"
#include "benchmarks/Table.h"

#include <cstddef>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace orvan::bench {

struct RowResult {
    std::string name;
    std::string bound = {}; ///< As it stands in the table.
    Unit unit = Unit::nanoseconds;
    int repetitions = 0;
    Spread ours = {};
    std::string peerName = {};
    std::optional<Spread> peer = std::nullopt;
    double ratio = 0;   ///< The ratio that the bound is about.
    double shortBy = 0; ///< The factor by which the row misses its bound; at 1 or less the bound holds.
    Verdict verdict = Verdict::fails;
    std::string error = {}; ///< Why nothing was measured.
};

struct GrowthResult {
    std::string name;
    Unit unit = Unit::nanoseconds;
    std::vector<std::pair<std::size_t, Spread>> figures = {}; ///< By size.
    std::string error = {};
};

struct Results {
    std::string machine;
    std::vector<RowResult> rows = {};
    std::vector<GrowthResult> growths = {};
};

/// The column headings of a table of rows; `path` is the first one.
std::vector<std::string> rowHeads(const std::string& path);
void printRow(Table& table, const RowResult& row);

void writeResults(const std::string& file, const Results& results);
Results readResults(const std::string& file);

/// Prints what was measured before and now, for the paths that both have.
void printComparison(std::ostream& out, const Results& before, const Results& now);
/// Prints in how many of the runs each row holds, and between what values its ratio lies.
void printSummary(std::ostream& out, const std::vector<Results>& runs);
/// Prints our figures of the runs beside each other, under their names.
void printBeside(std::ostream& out, const std::vector<Results>& runs, const std::vector<std::string>& names);

} // namespace orvan::bench
