// PriceText: prices as files write them.
//
// An optional sign, digits, and one decimal separator, "." or ","; the whole digits may stand in groups, the
// last one of three and the others of two or three, the first without a leading 0, apart by the other one of
// "." and ",", blanks (no-break ones too) or apostrophes. Thread: any.
#pragma once

#include "orvan/base/Currency.h"

#include <optional>
#include <string_view>

namespace orvan {

/// Rounds to four decimals, ties to even. None for anything else than a price, and beyond the range.
[[nodiscard]] std::optional<Currency> readPrice(std::string_view price, char decimalSeparator);

/// What one price tells of its file's decimal separator. "1,234" may be read either way; "12" has none.
enum class DecimalEvidence { none, ambiguous, point, comma };
[[nodiscard]] DecimalEvidence decimalEvidence(std::string_view price);

} // namespace orvan
