// readShortestText: the reading of Currency::fromShortestText, for code that reads hundreds of thousands of amounts.
//
// The result is a plain one on purpose: GCC 12 returns an optional amount by way of memory that it reads in wider
// pieces than it has written, and waiting for that takes longer than reading the amount. Thread: any.
#pragma once

#include "orvan/base/Currency.h"

#include <string_view>

namespace orvan {

/// Sets `amount` to the amount whose toText() is exactly this, and returns true; returns false where there is none.
[[nodiscard]] bool readShortestText(std::string_view text, Currency& amount) noexcept;

} // namespace orvan
