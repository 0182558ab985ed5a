// PriceText: reads prices as they are written in price lists.
//
// A price has an optional sign, digits, and at most one decimal separator, "." or ",". The digits before it may stand
// in groups, without a leading 0. The last group has three digits, the groups between have two or three, the first has
// one to three. The groups are separated by whichever of "." and "," is not the decimal separator, by blanks (also
// no-break ones) or by apostrophes. Thread: any.
#pragma once

#include "orvan/base/Currency.h"

#include <optional>
#include <string_view>

namespace orvan {

/// Rounds to four decimals, ties to even. Returns nothing for a text that is not a price or is out of range.
[[nodiscard]] std::optional<Currency> readPrice(std::string_view price, char decimalSeparator);

/// What one price tells about the decimal separator of its file. "1,234" is ambiguous; "12" tells nothing.
enum class DecimalEvidence { none, ambiguous, point, comma };
[[nodiscard]] DecimalEvidence decimalEvidence(std::string_view price);

} // namespace orvan
