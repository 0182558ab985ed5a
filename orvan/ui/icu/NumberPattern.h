// NumberPattern: how a locale writes amounts, and the writing and reading of them in plain code.
//
// A list paints an amount for every visible cell, and ICU's formatters are many times slower than this code. So a
// pattern is read from a formatter once and used from then on. Everything works on the exact ten-thousandths, never on
// a double. Errors: see each function. Thread: any; there are only plain values.
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
    /// The number of digits in the group next to the decimal separator; 0: digits are not grouped.
    int primaryGroup = 3;
    /// The number of digits in each further group, for instance 2 in India.
    int secondaryGroup = 3;
    /// The least number of digits before the first group separator: with 2, 1234 is not grouped.
    int minimumGroupingDigits = 1;
};

/// The most decimals that a caller can ask for, as existing hosts know the limit.
inline constexpr int kMostDigits = 255;

/// Appends the amount with exactly `digits` decimals, halves rounded away from zero. A negative amount that
/// rounds to zero deliberately keeps its sign, as in ICU, because the amount is not zero. Raises 5 when `digits` is not
/// 0 to kMostDigits.
void appendAmount(std::string& text, const NumberPattern& pattern, Currency value, int digits);

/// True when the text contains a digit or the decimal separator, so that it would be read as part of the number beside
/// it.
[[nodiscard]] bool looksLikeDigits(std::string_view text, std::string_view decimalSeparator);

/// Replaces separators with which a typed amount could not be read back. The reading keeps the digits and each
/// character that equals the decimal separator, and drops everything else. So
/// - a decimal separator that is a digit, or not exactly one character, would be lost: it is replaced by ".", or by ","
///   if "." separates the groups;
/// - a group separator that contains a digit or the decimal separator would be kept as part of the number: it is
///   replaced by a no-break space, or by an apostrophe if the no-break space is the decimal separator.
void makeReadable(NumberPattern& pattern);

/// Reads digits with at most one decimal separator, of either pattern. Group separators of either pattern are skipped
/// unless they are also a decimal separator. Rounds to four decimals, ties to even. Raises 13 for any other text and
/// for one without a digit, and 6 beyond the range.
[[nodiscard]] Currency readAmount(std::string_view text, const NumberPattern& number, const NumberPattern& money);

} // namespace orvan::icu
