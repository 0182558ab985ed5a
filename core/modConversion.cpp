#include "core/modConversion.h"

#include "base/Text.h"
#include "ui/LocaleService.h"

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

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Appends the digits and the decimal separators of a text.
void appendKept(std::string& kept, std::string_view sText, std::string_view sDecimalSep)
{
    for (std::size_t at = 0; at < sText.size();) {
        if (isDigit(sText[at])) {
            kept += sText[at++];
            continue;
        }
        const std::string_view character = sText.substr(at, characterSize(sText, at));
        if (character[0] == sDecimalSep[0] && character == sDecimalSep) {
            kept += character;
        }
        at += character.size();
    }
}

Currency textToValue(ui::LocaleService& locale, std::string_view sText, std::string_view sDecimalSep)
try {
    // What is typed has nothing to drop, as a rule, and is then read where it stands.
    const char decimal = sDecimalSep.size() == 1 ? sDecimalSep[0] : '0';
    bool anyDigit = false;
    std::size_t at = 0;
    for (; at < sText.size() && (isDigit(sText[at]) || sText[at] == decimal); ++at) {
        anyDigit |= isDigit(sText[at]);
    }
    if (at == sText.size()) {
        return anyDigit ? locale.textToCurrency(sText) : Currency(); // a box just emptied is no exception
    }
    std::string kept(sText.substr(0, at));
    appendKept(kept, sText.substr(at), sDecimalSep);
    return locale.textToCurrency(kept);
} catch (...) {
    return Currency(); // a user may type anything: what is not an amount is none
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
    return textToValue(locale, sText, sDecimalSep);
}

Currency NumberTextToValue(ui::LocaleService& locale, std::string_view sText, std::string_view sDecimalSep)
{
    return textToValue(locale, sText, sDecimalSep);
}

Currency PercentTextToValue(ui::LocaleService& locale, std::string_view sText, std::string_view sDecimalSep)
{
    return NumberTextToValue(locale, sText, sDecimalSep);
}

} // namespace orvan
