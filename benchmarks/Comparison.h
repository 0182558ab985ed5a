// Comparison: paths of the library beside what a host's developer would write instead, in one table.
//
// A row has two sides, ours and a peer's, which are measured in turn (A B A B ...), so that whatever else the
// machine does meets both; the table shows their medians. A side is anything that yields a figure when it is
// repeated: a loop that Google Benchmark times (timed), or a number of the row's own making (a percentile of
// samples, bytes of heap, a program's start seen from outside). A row without a peer is held to a figure.
//
// Bounds: machines are noisy, so a row fails only where it falls short of its bound by more than half: "at most
// 3 times" above 4.5 times, "at least 9 times faster" below 6 times, "at most 1 us" above 1.5 us.
// Thread: one, the program's first.
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orvan::bench {

/// What a figure counts. Times are in nanoseconds, always; the table shows them in the unit that reads best.
enum class Unit { nanoseconds, bytes, count };

struct Side {
    std::string name;               ///< In the table beside a peer's figure; ours needs none.
    std::function<double()> repeat; ///< One repetition: a figure in the row's unit.
};

/// Whose time: the thread's own, which other programs disturb least; the clock's, for what waits on disks or
/// other threads; or the parts that the loop hands to timePart.
enum class Timing { thread, clock, parts };

/// The time of one iteration of `loop`. The first repetition finds how many iterations take `seconds`; the
/// others run as many.
Side timed(std::string name, std::function<void(benchmark::State&)> loop, Timing timing = Timing::thread,
           double seconds = 0.05);

/// The part of an iteration that counts, in a loop with Timing::parts: once in each. Thread time; a part should
/// take 50 microseconds or more, because reading the time costs some hundred nanoseconds.
void timePart(benchmark::State& state, const std::function<void()>& part);

struct Bound {
    enum class Kind { atMostTimes, atLeastTimesFaster, atMost };
    Kind kind;
    double value;
};
inline Bound atMostTimes(double value)
{
    return {Bound::Kind::atMostTimes, value};
}
inline Bound atLeastTimesFaster(double value)
{
    return {Bound::Kind::atLeastTimesFaster, value};
}
/// A figure in the row's unit, for a row without a peer.
inline Bound atMost(double figure)
{
    return {Bound::Kind::atMost, figure};
}

struct Sides {
    Side ours;
    std::optional<Side> peer = std::nullopt;
};

struct Row {
    std::string name; ///< Begins with the letter that docs/performance.md knows it by.
    Bound bound;
    /// Makes what the sides need when it is their turn; it goes with them. Checks that both compute the same
    /// where they do (requireSame). What it throws fails the row.
    std::function<Sides()> prepare;
    Unit unit = Unit::nanoseconds;
    int repetitions = 9; ///< One: nothing is warmed up either.
};

/// How the figure of a path grows with the size of what it works on.
struct Growth {
    std::string name;
    std::function<Side(std::size_t size)> prepare;
    std::vector<std::size_t> sizes = {1'000, 10'000, 100'000};
    Unit unit = Unit::nanoseconds;
    int repetitions = 7;
};

/// Throws where the two are not the same.
template <class T>
void requireSame(const T& ours, const T& peers, const std::string& what)
{
    if (!(ours == peers)) {
        throw std::runtime_error("the sides differ: " + what);
    }
}

class Suite {
public:
    void add(Row row) { rows_.push_back(std::move(row)); }
    void add(Growth growth) { growths_.push_back(std::move(growth)); }

    /// Only what begins with one of these from now on; none: everything.
    void select(std::vector<std::string> beginnings) { beginnings_ = std::move(beginnings); }
    void list() const;
    /// Runs the rows, or the growths, and prints their table. Returns the names of those that failed.
    std::vector<std::string> runRows() const;
    std::vector<std::string> runGrowths() const;

private:
    bool selected(const std::string& name) const;

    std::vector<Row> rows_;
    std::vector<Growth> growths_;
    std::vector<std::string> beginnings_;
};

} // namespace orvan::bench
