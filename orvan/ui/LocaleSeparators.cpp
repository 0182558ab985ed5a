#include "orvan/ui/LocaleSeparators.h"

#include "orvan/ui/LocaleService.h"

#include <algorithm>
#include <array>

namespace orvan::ui {

std::string readLocaleItem(LocaleService& locale, LocaleItem item, std::string_view defaultText)
try {
    std::array<char, 255> buffer{};
    // Deliberately only 127 of the 255 bytes are offered: an item that needs more gets its default.
    const auto offered = std::span<char>(buffer).first(127);
    const std::int32_t count = locale.getLocaleInfo(kLocaleUserDefault, item, offered);
    if (count <= 0) {
        return std::string(defaultText);
    }
    // The count includes the terminating null. A service that counts more than it was offered is not trusted.
    return std::string(buffer.data(), std::min(static_cast<std::size_t>(count), offered.size()) - 1);
} catch (...) {
    return std::string(defaultText); // a service that raises is treated like one without the item
}

NumberSeparators gridSeparators(LocaleService& locale)
{
    const NumberSeparators standard;
    return {readLocaleItem(locale, LocaleItem::thousandsSeparator, standard.thousands),
            readLocaleItem(locale, LocaleItem::decimalSeparator, standard.decimal)};
}

std::string keypadDecimal(LocaleService& locale, TextUse use)
{
    const NumberSeparators standard;
    switch (use) {
    case TextUse::number: return readLocaleItem(locale, LocaleItem::decimalSeparator, standard.decimal);
    case TextUse::money: return readLocaleItem(locale, LocaleItem::monetaryDecimalSeparator, standard.decimal);
    case TextUse::plain: break;
    }
    return standard.decimal;
}

} // namespace orvan::ui
