// modLocale: the five texts of the user's number and money formats.
//
// A view and an editor read them once, when they initialize, and pass them to modConversion from
// then on. No procedure fails or is traced: an item that cannot be read has a default. Texts are UTF-8.
// Thread: the user-interface thread.
#pragma once

#include "orvan/core_export.h"

#include <string>

namespace orvan {

namespace ui {
class LocaleService;
}

/// Defaults: "," for both thousands separators, "." for both decimal separators.
void GetNumberSeparators(ui::LocaleService& locale, std::string& sMonThousand, std::string& sMonDecimal,
                         std::string& sThousand, std::string& sDecimal);

/// Default: ",".
[[nodiscard]] std::string GetCurrencySymbol(ui::LocaleService& locale);

/// The five texts, as a view or an editor keeps them for its life.
struct LocaleStrings {
    std::string monThousandSep;
    std::string monDecimalSep;
    std::string thousandSep;
    std::string decimalSep;
    std::string currencySymbol;
};

/// All five, read by the two procedures above, the separators first.
[[nodiscard]] ORVAN_CORE_INTERNAL LocaleStrings PrvInitLocale(ui::LocaleService& locale);

} // namespace orvan
