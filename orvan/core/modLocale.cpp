#include "orvan/core/modLocale.h"

#include "orvan/ui/LocaleSeparators.h"
#include "orvan/ui/LocaleService.h"

namespace orvan {

namespace {

constexpr const char* kDefaultThousand = ",";
constexpr const char* kDefaultDecimal = ".";
// Deliberately a comma, as for the thousands separators, and not a currency sign: without the user's symbol
// there is nothing right to show, and hosts rely on money losing its commas where the symbol is taken out.
constexpr const char* kDefaultCurrencySymbol = kDefaultThousand;

} // namespace

void GetNumberSeparators(ui::LocaleService& locale, std::string& sMonThousand, std::string& sMonDecimal,
                         std::string& sThousand, std::string& sDecimal)
{
    sMonThousand = ui::readLocaleItem(locale, ui::LocaleItem::monetaryThousandsSeparator, kDefaultThousand);
    sMonDecimal = ui::readLocaleItem(locale, ui::LocaleItem::monetaryDecimalSeparator, kDefaultDecimal);
    sThousand = ui::readLocaleItem(locale, ui::LocaleItem::thousandsSeparator, kDefaultThousand);
    sDecimal = ui::readLocaleItem(locale, ui::LocaleItem::decimalSeparator, kDefaultDecimal);
}

std::string GetCurrencySymbol(ui::LocaleService& locale)
{
    return ui::readLocaleItem(locale, ui::LocaleItem::currencySymbol, kDefaultCurrencySymbol);
}

LocaleStrings PrvInitLocale(ui::LocaleService& locale)
{
    LocaleStrings strings;
    GetNumberSeparators(locale, strings.monThousandSep, strings.monDecimalSep, strings.thousandSep, strings.decimalSep);
    strings.currencySymbol = GetCurrencySymbol(locale);
    return strings;
}

} // namespace orvan
