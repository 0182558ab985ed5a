// NumberPattern: how a locale writes amounts, and the writing and reading of them in plain code.
//
// A list paints an amount for every visible cell, and ICU's formatters cost many times what the digits do: a pattern is
// taken from them once and used from then on. Everything works on the exact ten-thousandths, never through a double.
// Errors: see each function. Thread: plain values; the functions use nothing else.
#pragma once

#include "orvan/base/Currency.h"

#include <string>
#include <string_view>

namespace orvan::icu {

/// Texts are UTF-8. Prefixes and suffixes hold everything outside the digits: sign, currency symbol,
/// spaces, direction marks.
struct NumberPattern {
    std::string positivePrefix{};
    std::string positiveSuffix{};
    std::string negativePrefix = "-";
    std::string negativeSuffix{};
    std::string decimalSeparator = ".";
    std::string groupSeparator = ",";
    /// Digits in the group next to the decimal separator; 0: digits are not grouped.
    int primaryGroup = 3;
    /// Digits in each further group: 2 in India.
    int secondaryGroup = 3;
    /// Digits that must stand before the first group separator: with 2, 1234 is not grouped.
    int minimumGroupingDigits = 1;
};

/// Decimals that can be asked for: the limit of the platform convention the formats follow.
inline constexpr int kMostDigits = 255;

/// Appends the amount with exactly `digits` decimals, halves rounded away from zero. A negative amount that
/// rounds to zero keeps its sign, as ICU writes it: it is not nothing. Raises 5 when
/// digits is not 0 to kMostDigits.
void appendAmount(std::string& text, const NumberPattern& pattern, Currency value, int digits);

/// True when text holds a digit or the decimal separator, so that it would be read as part of the
/// number it stands beside.
[[nodiscard]] bool looksLikeDigits(std::string_view text, std::string_view decimalSeparator);

/// Replaces separators that typed amounts could not be read back with. Amounts are read by keeping
/// the digits and the characters that equal the decimal separator, and nothing else. So
/// - a decimal separator that is not exactly one character never matches one, and the point would be
///   lost: "." takes its place, or "," where "." separates the groups. The same for a digit;
/// - a group separator that holds a digit or the decimal separator would be kept as part of the
///   number: a no-break space takes its place.
void makeReadable(NumberPattern& pattern);

/// Digits with at most one decimal separator of either pattern; group separators of either are
/// skipped where they are not also a decimal separator. Rounds to four decimals, ties to even.
/// Raises 13 for anything else, a text without a digit included, and 6 beyond the range.
[[nodiscard]] Currency readAmount(std::string_view text, const NumberPattern& number, const NumberPattern& money);

} // namespace orvan::icu
