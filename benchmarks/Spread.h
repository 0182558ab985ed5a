// Spread: the median of several figures, and between what figures the middle half of them lies.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace orvan::bench {

struct Spread {
    double lower = 0; ///< The 25th percentile.
    double median = 0;
    double upper = 0; ///< The 75th percentile.
};

/// At least one figure.
inline Spread spreadOf(std::vector<double> figures)
{
    std::sort(figures.begin(), figures.end());
    const auto at = [&](std::size_t quarters) { return figures[quarters * (figures.size() - 1) / 4]; };
    return {at(1), figures[figures.size() / 2], at(3)};
}

} // namespace orvan::bench
