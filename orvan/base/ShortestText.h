// readShortestText: does the same as Currency::fromShortestText, faster, for code that reads hundreds of thousands of
// amounts.
//
// It returns a bool and sets the amount, instead of returning an optional amount, on purpose: GCC 12 passes an optional
// amount through memory, from where it reads wider pieces than it has written, and the wait for that takes longer than
// reading the amount. Thread: any.
#pragma once

#include "orvan/base/Currency.h"

#include <string_view>

namespace orvan {

/// Sets `amount` to the amount whose toText() is exactly this, and returns true; returns false where there is none.
[[nodiscard]] bool readShortestText(std::string_view text, Currency& amount) noexcept;

} // namespace orvan
