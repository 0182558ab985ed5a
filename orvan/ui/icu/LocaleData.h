// LocaleData: reads from ICU what the library needs to know about a locale.
//
// This header includes none of ICU's headers, so that only one source file needs them. Every function raises 51 when
// ICU fails, which it does only where its data is missing. Thread: any.
#pragma once

#include "orvan/core_export.h"
#include "orvan/ui/icu/NumberPattern.h"

#include <string>
#include <string_view>

namespace orvan::icu {

/// ICU's name for a locale named in the C library's or in ICU's way (see LocaleNames.h), always with
/// the digits 0 to 9 and the separators that belong to them.
/// - "", "C" and "POSIX" are en_US: a user who chose nothing still wants money with cents.
/// - The modifier "@euro" chooses the currency. A script modifier such as "@latin" chooses the script if ICU has data
///   for it. Of ICU's "@key=value" only the currency is used. Other modifiers change no number and are dropped.
/// - A language without data in ICU is replaced by the language most spoken in its territory. If that has no data
///   either, it is replaced by the first language with which ICU knows the territory, and if there is none, by English.
///   The territory stays, because it decides the currency. ICU itself would use the process's default locale without
///   saying so.
/// - Any other text that names no locale becomes en_US, as the C library falls back to "C".
ORVAN_CORE_INTERNAL std::string icuLocaleId(std::string_view name);

/// The ISO code of the locale's currency: the one that "@currency=" asks for, else the present one of its territory. If
/// the locale names no territory, the likely one is used. A locale without a country, such as Esperanto or "English in
/// the world", has "XXX" (no currency; its symbol is "¤").
ORVAN_CORE_INTERNAL std::string currencyCode(const std::string& localeId);

/// The locale with another currency: the separators and the pattern stay the locale's, and the symbol is the one with
/// which its users write that currency. An empty code changes nothing. Raises 5 for a code that is not three letters.
std::string withCurrency(const std::string& localeId, std::string_view code);

/// How many decimals amounts of a currency usually have: 2 for EUR, 0 for JPY, 3 for KWD.
ORVAN_CORE_INTERNAL int currencyDigits(const std::string& code);

NumberPattern numberPattern(const std::string& localeId);

struct MoneyPattern {
    NumberPattern pattern;
    /// The currency symbol, exactly as the pattern's prefix or suffix contains it.
    std::string symbol;
};

/// The pattern for the locale's own currency. A symbol that would be read back as part of the amount (such as "Rs."
/// where
/// "." is also the decimal separator) is replaced by the currency's ISO code.
MoneyPattern moneyPattern(const std::string& localeId);

} // namespace orvan::icu
