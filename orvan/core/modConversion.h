// modConversion: amounts to the text a user sees, and typed text back to amounts.
//
// None of these is traced. The formatting procedures raise what the locale service raises; the
// reading ones never fail. Callers pass the texts they read with modLocale when they initialized.
// Texts are UTF-8; amounts are Currency (ten-thousandths). Thread: the user-interface thread.
#pragma once

#include "orvan/base/Currency.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace orvan {

namespace ui {
class LocaleService;
}

// All three formats show no decimals for a whole amount ("12", never "12.00"), and exactly iDigits decimals for an
// amount with a fraction, even if they are zeros after the rounding.

/// Money in the user's format. Without bShowSymbol every sCurrencySymbol is taken out of the text;
/// the spaces around it, and the sign, stay.
[[nodiscard]] std::string FormatCurrencyValue(ui::LocaleService& locale, Currency cyValue, std::int16_t iDigits,
                                              std::string_view sCurrencySymbol, bool bShowSymbol);
/// The same, written into `text` without allocating a new string: for amounts that are shown at each keystroke.
void FormatCurrencyValue(std::string& text, ui::LocaleService& locale, Currency cyValue, std::int16_t iDigits,
                         std::string_view sCurrencySymbol, bool bShowSymbol);
[[nodiscard]] std::string FormatNumberValue(ui::LocaleService& locale, Currency cyValue, std::int16_t iDigits);
/// The amount 12.5 means 12.5 percent. In every locale "%" follows the number without a space.
[[nodiscard]] std::string FormatPercentValue(ui::LocaleService& locale, Currency cyValue, std::int16_t iDigits,
                                             bool bShowPercent);

/// Reads the digits and the decimal separators of the text as an amount; 0 if they are no amount or one beyond the
/// range. All other characters are dropped, also a minus sign: a user cannot type a negative amount. If sDecimalSep has
/// more than one character, none of the text's characters equals it, and the decimal point is lost ("1,5" gives 15).
[[nodiscard]] Currency CurrencyTextToValue(ui::LocaleService& locale, std::string_view sText,
                                           std::string_view sDecimalSep);
[[nodiscard]] Currency NumberTextToValue(ui::LocaleService& locale, std::string_view sText,
                                         std::string_view sDecimalSep);
[[nodiscard]] Currency PercentTextToValue(ui::LocaleService& locale, std::string_view sText,
                                          std::string_view sDecimalSep);

} // namespace orvan
