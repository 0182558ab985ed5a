// LocaleData: what ICU knows about a locale, taken from it once.
//
// ICU's own headers stay out of ours. Every function raises 51 when ICU fails, which it does only
// where its data is missing. Thread: any.
#pragma once

#include "orvan/ui/icu/NumberPattern.h"

#include <string>
#include <string_view>

namespace orvan::icu {

/// ICU's name for a locale named in the C library's or in ICU's way (see LocaleNames.h), always with
/// the digits 0 to 9 and the separators that belong to them.
/// - "", "C" and "POSIX" are en_US: a user who chose nothing still wants money with cents.
/// - "@euro" is the currency; script modifiers ("@latin") are the script where ICU has data for it;
///   of ICU's "@key=value" the currency counts; other modifiers change no number and are dropped.
/// - A language that ICU has no data for is written as the language most spoken in its territory:
///   ICU itself would silently take the process's default locale.
/// - Anything else that is not a locale is en_US, as the C library falls back to "C".
std::string icuLocaleId(std::string_view name);

/// ISO code of the locale's currency: the one asked for with "@currency=", else the one its territory
/// uses today; the likely territory where it names none. "XXX" (no currency; its symbol is "¤")
/// where there is no country, as in Esperanto or "English in the world".
std::string currencyCode(const std::string& localeId);

NumberPattern numberPattern(const std::string& localeId);

struct MoneyPattern {
    NumberPattern pattern;
    /// Exactly as it stands in the pattern's prefix or suffix.
    std::string symbol;
};

/// For the locale's own currency. A symbol that would be read back as part of the amount ("Rs.",
/// where "." is also the decimal separator) gives way to the currency's ISO code.
MoneyPattern moneyPattern(const std::string& localeId);

} // namespace orvan::icu
