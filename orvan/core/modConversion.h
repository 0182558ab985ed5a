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

// Decimals, for all three formats: none for a whole amount ("12", never "12.00"), exactly iDigits for one
// with a fraction, even where the rounding leaves zeros.

/// Money in the user's format. Without bShowSymbol every sCurrencySymbol is taken out of the text;
/// the spaces around it, and the sign, stay.
[[nodiscard]] std::string FormatCurrencyValue(ui::LocaleService& locale, Currency cyValue, std::int16_t iDigits,
                                              std::string_view sCurrencySymbol, bool bShowSymbol);
/// The same into `text`, whose capacity is reused: for what is shown with each keystroke.
void FormatCurrencyValue(std::string& text, ui::LocaleService& locale, Currency cyValue, std::int16_t iDigits,
                         std::string_view sCurrencySymbol, bool bShowSymbol);
[[nodiscard]] std::string FormatNumberValue(ui::LocaleService& locale, Currency cyValue, std::int16_t iDigits);
/// 12.5 is 12.5 percent: a number followed directly by "%", in every locale.
[[nodiscard]] std::string FormatPercentValue(ui::LocaleService& locale, Currency cyValue, std::int16_t iDigits,
                                             bool bShowPercent);

/// The amount that the digits and the decimal separators of the text make; 0 when they make none or
/// one beyond the range. All else is dropped, a minus sign too: no negative amount can be typed. A
/// separator of more than one character equals no character of the text, so that the decimal point is then
/// lost ("1,5" gives 15).
[[nodiscard]] Currency CurrencyTextToValue(ui::LocaleService& locale, std::string_view sText,
                                           std::string_view sDecimalSep);
[[nodiscard]] Currency NumberTextToValue(ui::LocaleService& locale, std::string_view sText,
                                         std::string_view sDecimalSep);
[[nodiscard]] Currency PercentTextToValue(ui::LocaleService& locale, std::string_view sText,
                                          std::string_view sDecimalSep);

} // namespace orvan
