// Comparison: measures paths of the library, and beside each a peer: what a host's developer would write instead, or
// the same path on less data. The results stand in one table.
//
// A row has two sides, ours and the peer's, which are measured in turn (A B A B ...), so that whatever else the machine
// does affects both; the table shows their medians, and between what figures the middle half of the repetitions lies.
// A row that comes out close to its bound, on either side, is measured again, with more repetitions, before it is
// judged (benchmarks/Bound.h).
//
// A side is anything that returns a figure each time it is repeated: a loop that Google Benchmark times (timed), or a
// number that the row computes itself (a percentile of samples, bytes of heap, the time that another program takes to
// start). The bound of a row without a peer is a figure, not a ratio.
//
// Thread: one, the program's first.
#pragma once

#include "benchmarks/Bound.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orvan::bench {

struct Side {
    std::string name;               ///< Stands in the table beside the peer's figure; empty for our side.
    std::function<double()> repeat; ///< Runs one repetition and returns a figure in the row's unit.
};

/// Which time is measured: the thread's processor time, which other programs disturb least; the clock's time, for loops
/// that wait for disks or other threads; or only the parts that the loop passes to timePart.
enum class Timing { thread, clock, parts };

/// A side whose figure is the time of one iteration of `loop`. The first repetition finds how many iterations take
/// `seconds`; the other repetitions run as many.
Side timed(const std::string& name, const std::function<void(benchmark::State&)>& loop, Timing timing = Timing::thread,
           double seconds = 0.05);

/// In a loop with Timing::parts, runs the part of an iteration that is measured; to be called once per iteration. It
/// measures the thread's time. A part should take 50 microseconds or more, because reading the time takes some hundred
/// nanoseconds.
void timePart(benchmark::State& state, const std::function<void()>& part);

struct Sides {
    Side ours;
    std::optional<Side> peer = std::nullopt;
};

struct Row {
    std::string name; ///< Begins with the letter under which docs/performance.md explains the row.
    Bound bound;
    /// Called when it is the row's turn. Makes the sides with all that they need, and checks with requireSame that both
    /// compute the same, if they should. If it throws, the row fails.
    std::function<Sides()> prepare;
    Unit unit = Unit::nanoseconds;
    int repetitions = 9; ///< If more than 1, one more repetition comes first, to warm up, and does not count.
};

/// A path that is measured with data of several sizes, to see how its figure grows.
struct Growth {
    std::string name;
    std::function<Side(std::size_t size)> prepare;
    std::vector<std::size_t> sizes = {1'000, 10'000, 100'000};
    Unit unit = Unit::nanoseconds;
    int repetitions = 7;
};

/// Throws if the two are not equal.
template <class T>
void requireSame(const T& ours, const T& peers, const std::string& what)
{
    if (!(ours == peers)) {
        throw std::runtime_error("the sides differ: " + what);
    }
}

struct Results; // benchmarks/Results.h

class Suite {
public:
    void add(Row row) { rows_.push_back(std::move(row)); }
    void add(Growth growth) { growths_.push_back(std::move(growth)); }

    /// Selects the rows and growths whose names begin with one of these texts; all if there is no text.
    void select(std::vector<std::string> beginnings) { beginnings_ = std::move(beginnings); }
    void list() const;
    /// Runs the rows, or the growths, prints their table, and adds what was measured to the results. Returns the names
    /// of those that failed.
    std::vector<std::string> runRows(Results& results) const;
    std::vector<std::string> runGrowths(Results& results) const;

private:
    bool selected(const std::string& name) const;

    std::vector<Row> rows_;
    std::vector<Growth> growths_;
    std::vector<std::string> beginnings_;
};

} // namespace orvan::bench
