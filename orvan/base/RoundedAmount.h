// roundedMagnitude, shownUnits: an amount as it is shown with fewer decimals. All that shows amounts, and what explains
// them, rounds here. Thread: any. Errors: none.
#pragma once

#include "orvan/base/Currency.h"

namespace orvan {

/// The absolute value, rounded half away from zero to `decimals` (0 to 4) decimals and counted in units of the last
/// decimal: 1.25 with one decimal is 13.
[[nodiscard]] constexpr std::uint64_t roundedMagnitude(Currency value, int decimals) noexcept
{
    const std::uint64_t divisor = Currency::kPowersOfTen[Currency::kDecimals - decimals];
    return (value.magnitude() + divisor / 2) / divisor;
}

/// The same with the amount's sign: what is shown, in units of the last decimal shown.
[[nodiscard]] constexpr std::int64_t shownUnits(Currency value, int decimals) noexcept
{
    const std::uint64_t magnitude = roundedMagnitude(value, decimals);
    return static_cast<std::int64_t>(value.scaled() < 0 ? 0 - magnitude : magnitude);
}

} // namespace orvan
