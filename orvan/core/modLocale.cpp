#include "orvan/core/modLocale.h"

#include "orvan/ui/LocaleSeparators.h"
#include "orvan/ui/LocaleService.h"

namespace orvan {

namespace {

constexpr const char* kDefaultThousand = ",";
constexpr const char* kDefaultDecimal = ".";
// Deliberately a comma, as for the thousands separators, and not a currency sign: without the user's symbol no sign
// would be right. Hosts rely on the effect that removing this "symbol" removes the commas from an amount of money.
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
