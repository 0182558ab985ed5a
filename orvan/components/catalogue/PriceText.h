// PriceText: reads prices as they are written in price lists.
//
// An amount has an optional sign, digits, and at most one decimal separator, "." or ",". The digits before it may stand
// in groups, without a leading 0. The last group has three digits, the groups between have two or three, the first has
// one to three. The groups are separated by whichever of "." and "," is not the decimal separator, by blanks (also
// no-break ones) or by apostrophes.
//
// A price is an amount that may have its currency before or behind it, as a symbol, a code or an abbreviation
// ("€ 12", "12 EUR", "Fr. 12"), dashes in the place of decimals ("12,-"), and its sign behind it ("12-") or as brackets
// ("(12)"). Thread: any.
#pragma once

#include "orvan/base/Currency.h"
#include "orvan/catalogue_export.h"

#include <optional>
#include <string>
#include <string_view>

namespace orvan {

/// Reads an amount. Rounds to four decimals, ties to even. Returns nothing for a text that is not an amount or is out
/// of range.
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL std::optional<Currency> readPrice(std::string_view price, char decimalSeparator);

/// The amount of a price, as readPrice reads it; a text that is no price stays as it is.
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL std::string amountOfPrice(std::string_view price);

/// Whether the text says that there is no price: "-", "n/a", "on request", in the languages of price lists.
[[nodiscard]] bool saysNoPrice(std::string_view text);

/// A price as it stands in a list.
struct ListPrice {
    enum class Kind { amount, none, negative, unreadable };
    Kind kind = Kind::none;
    Currency amount = {};
};
[[nodiscard]] ListPrice readListPrice(std::string_view text, char decimalSeparator);

/// What one price tells about the decimal separator of its file. "1,234" is ambiguous; "12" tells nothing.
enum class DecimalEvidence { none, ambiguous, point, comma };
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL DecimalEvidence decimalEvidence(std::string_view price);

} // namespace orvan
