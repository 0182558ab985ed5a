#include "orvan/ui/icu/IcuLocaleService.h"

#include "orvan/base/RuntimeError.h"

#include <unicode/uchar.h>

#include <algorithm>

namespace orvan::icu {

IcuLocaleService::IcuLocaleService(const LocaleNames& names)
try : money_(moneyPattern(withCurrency(icuLocaleId(names.monetary), names.currency))),
    number_(numberPattern(icuLocaleId(names.numeric))) {
} catch (...) {
    raiseCurrentError();
}

std::int32_t IcuLocaleService::getLocaleInfo(std::int32_t localeId, ui::LocaleItem item, std::span<char> buffer)
{
    const std::string* const text = localeId == ui::kLocaleUserDefault ? this->item(item) : nullptr;
    if (text == nullptr || text->size() >= buffer.size()) {
        return 0;
    }
    *std::copy(text->begin(), text->end(), buffer.begin()) = '\0';
    return static_cast<std::int32_t>(text->size() + 1);
}

void IcuLocaleService::appendCurrency(std::string& text, Currency value, int digits)
{
    asRuntimeError([&] { appendAmount(text, money_.pattern, value, digits); });
}

void IcuLocaleService::appendNumber(std::string& text, Currency value, int digits)
{
    asRuntimeError([&] { appendAmount(text, number_, value, digits); });
}

Currency IcuLocaleService::textToCurrency(std::string_view text)
{
    return readAmount(text, number_, money_.pattern);
}

const std::string* IcuLocaleService::item(ui::LocaleItem item) const
{
    switch (item) {
    case ui::LocaleItem::decimalSeparator: return &number_.decimalSeparator;
    case ui::LocaleItem::thousandsSeparator: return &number_.groupSeparator;
    case ui::LocaleItem::currencySymbol: return &money_.symbol;
    case ui::LocaleItem::monetaryDecimalSeparator: return &money_.pattern.decimalSeparator;
    case ui::LocaleItem::monetaryThousandsSeparator: return &money_.pattern.groupSeparator;
    }
    return nullptr;
}

char32_t IcuLocaleService::foldCase(char32_t character)
{
    return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(character), U_FOLD_CASE_DEFAULT));
}

} // namespace orvan::icu
