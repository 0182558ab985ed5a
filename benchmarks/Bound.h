// Bound: what a row of a table of measurements has to keep, and the verdict on its figures.
//
// Machines are noisy, so a row fails only if it misses its bound by more than half: "at most 3 times" fails above 4.5
// times, "at least 9 times faster" fails below 6 times, "at most 1 us" fails above 1.5 us.
#pragma once

#include <array>
#include <string>

namespace orvan::bench {

/// The unit of a figure. Times are always in nanoseconds; the table shows them in the unit that is easiest to read.
enum class Unit { nanoseconds, bytes, count };

struct Bound {
    enum class Kind { atMostTimes, atLeastTimesFaster, atMost, atMostOrTimes };
    Kind kind;
    double value;
    double times = 0; ///< For atMostOrTimes.
};
inline Bound atMostTimes(double value)
{
    return {Bound::Kind::atMostTimes, value};
}
inline Bound atLeastTimesFaster(double value)
{
    return {Bound::Kind::atLeastTimesFaster, value};
}
/// The bound of a row without a peer: a figure in the row's unit.
inline Bound atMost(double figure)
{
    return {Bound::Kind::atMost, figure};
}

enum class Verdict { holds, fallsShort, fails };
/// By verdict, as tables and files of results have them.
inline constexpr std::array<const char*, 3> kVerdictTexts = {"holds", "falls short", "FAILS"};

/// The bound of a path that waits for the disk, beside a peer that does nothing but wait for it: a figure in the row's
/// unit or, on a slow disk, so many times the peer's figure.
inline Bound atMostOrTimes(double figure, double times)
{
    return {Bound::Kind::atMostOrTimes, figure, times};
}

struct Judgement {
    double ratio;   ///< The ratio that the bound is about: ours to the peer's, or the peer's to ours.
    double shortBy; ///< The factor by which the row misses its bound; at 1 or less the bound holds.

    [[nodiscard]] Verdict verdict() const;
};

/// The peer's figure is not looked at where the bound is a figure itself.
Judgement judge(const Bound& bound, double ours, double peer);

/// "at most 3 times", "at most 1 us"
std::string boundText(const Bound& bound, Unit unit);

} // namespace orvan::bench
