#include "benchmarks/Bound.h"

#include "benchmarks/Table.h"

#include <algorithm>

namespace orvan::bench {

namespace {

/// By what factor a row may miss its bound without failing.
constexpr double kTolerance = 1.5;

} // namespace

Verdict Judgement::verdict() const
{
    if (!(shortBy <= kTolerance)) { // also a figure that is not a number
        return Verdict::fails;
    }
    return shortBy > 1 ? Verdict::fallsShort : Verdict::holds;
}

Judgement judge(const Bound& bound, double ours, double peer)
{
    switch (bound.kind) {
    case Bound::Kind::atMostTimes: return {ours / peer, ours / peer / bound.value};
    case Bound::Kind::atLeastTimesFaster: return {peer / ours, bound.value / (peer / ours)};
    case Bound::Kind::atMostOrTimes: return {ours / peer, ours / std::max(bound.value, bound.times * peer)};
    case Bound::Kind::atMost: break;
    }
    const double ratio = bound.value == 0 ? (ours == 0 ? 0.0 : kTolerance + ours) : ours / bound.value;
    return {ratio, ratio};
}

std::string boundText(const Bound& bound, Unit unit)
{
    switch (bound.kind) {
    case Bound::Kind::atMostTimes: return "at most " + plainNumber(bound.value) + " times";
    case Bound::Kind::atLeastTimesFaster: return "at least " + plainNumber(bound.value) + " times faster";
    case Bound::Kind::atMostOrTimes:
        return "at most " + figureText(bound.value, unit) + ", or " + plainNumber(bound.times) + " times";
    case Bound::Kind::atMost: break;
    }
    return "at most " + figureText(bound.value, unit);
}

} // namespace orvan::bench
