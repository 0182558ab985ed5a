#include "orvan/core/modConversion.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/Text.h"
#include "orvan/ui/LocaleService.h"

#include <algorithm>
#include <memory>

namespace orvan {

namespace {

int decimalsShown(Currency value, std::int16_t iDigits)
{
    return value.scaled() % Currency::kScale != 0 ? iDigits : 0;
}

void removeAll(std::string& text, std::string_view part)
{
    if (part.empty()) {
        return;
    }
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at)) {
        text.erase(at, part.size());
    }
}

/// Writes the digits and decimal separators of a text with characters of several bytes. Returns the end.
char* keepCharacters(char* kept, std::string_view sText, std::string_view sDecimalSep)
{
    for (std::size_t at = 0; at < sText.size(); at += characterSize(sText, at)) {
        const std::string_view character = sText.substr(at, characterSize(sText, at));
        if (isDigit(character.front()) || character == sDecimalSep) {
            kept = std::copy(character.begin(), character.end(), kept);
        }
    }
    return kept;
}

/// The digits and decimal separators of the text, written to `kept`, which holds at least sText.size() characters.
/// Empty where there is no digit.
std::string_view keepAmount(char* kept, std::string_view sText, std::string_view sDecimalSep)
{
    // If the separator is not one ASCII character, `decimal` is '0': a digit is kept anyway, so this changes nothing.
    const char decimal = sDecimalSep.size() == 1 && isAscii(sDecimalSep[0]) ? sDecimalSep[0] : '0';
    char* end = kept;
    bool anyDigit = false;
    for (const char c : sText) {
        if (isDigit(c)) {
            *end++ = c;
            anyDigit = true;
        } else if (c == decimal) {
            *end++ = c;
        } else if (!isAscii(c)) {
            end = keepCharacters(kept, sText, sDecimalSep);
            anyDigit = std::any_of(kept, end, isDigit);
            break;
        }
    }
    return {kept, anyDigit ? static_cast<std::size_t>(end - kept) : 0};
}

/// The amount of what keepAmount has kept. An empty box is tested here, because the exception that textToCurrency
/// raises for it would be slow.
Currency keptToValue(ui::LocaleService& locale, std::string_view kept)
{
    return kept.empty() ? Currency() : locale.textToCurrency(kept);
}

} // namespace

std::string FormatCurrencyValue(ui::LocaleService& locale, Currency cyValue, std::int16_t iDigits,
                                std::string_view sCurrencySymbol, bool bShowSymbol)
{
    std::string text;
    FormatCurrencyValue(text, locale, cyValue, iDigits, sCurrencySymbol, bShowSymbol);
    return text;
}

void FormatCurrencyValue(std::string& text, ui::LocaleService& locale, Currency cyValue, std::int16_t iDigits,
                         std::string_view sCurrencySymbol, bool bShowSymbol)
{
    text.clear();
    locale.appendCurrency(text, cyValue, decimalsShown(cyValue, iDigits));
    if (!bShowSymbol) {
        removeAll(text, sCurrencySymbol);
    }
}

std::string FormatNumberValue(ui::LocaleService& locale, Currency cyValue, std::int16_t iDigits)
{
    return locale.formatNumber(cyValue, decimalsShown(cyValue, iDigits));
}

std::string FormatPercentValue(ui::LocaleService& locale, Currency cyValue, std::int16_t iDigits, bool bShowPercent)
{
    std::string text = FormatNumberValue(locale, cyValue, iDigits);
    return bShowPercent ? text + "%" : text;
}

Currency CurrencyTextToValue(ui::LocaleService& locale, std::string_view sText, std::string_view sDecimalSep)
{
    return NumberTextToValue(locale, sText, sDecimalSep);
}

Currency NumberTextToValue(ui::LocaleService& locale, std::string_view sText, std::string_view sDecimalSep)
try {
    char typed[64]; // enough for nearly every text that a person types
    if (sText.size() <= sizeof typed) {
        return keptToValue(locale, keepAmount(typed, sText, sDecimalSep));
    }
    const std::unique_ptr<char[]> pasted(new char[sText.size()]); // not make_unique, which would fill it with zeros
    return keptToValue(locale, keepAmount(pasted.get(), sText, sDecimalSep));
} catch (...) {
    return Currency(); // a user may type any text: one that is not an amount counts as 0
}

Currency PercentTextToValue(ui::LocaleService& locale, std::string_view sText, std::string_view sDecimalSep)
{
    return NumberTextToValue(locale, sText, sDecimalSep);
}

} // namespace orvan
