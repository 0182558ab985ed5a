#include "ui/LocaleSeparators.h"

#include "ui/LocaleService.h"

#include <array>
#include <utility>

namespace orvan::ui {

namespace {

/// Far more than any separator takes: a few code points at most.
constexpr std::size_t kItemBytes = 64;

std::string localeItem(LocaleService& locale, LocaleItem item, std::string fallback)
{
    std::array<char, kItemBytes> buffer{};
    const std::int32_t count = locale.getLocaleInfo(kLocaleUserDefault, item, buffer);
    if (count <= 0) {
        return fallback;
    }
    return std::string(buffer.data(), static_cast<std::size_t>(count) - 1); // the count includes the null
}

} // namespace

NumberSeparators gridSeparators(LocaleService& locale)
{
    NumberSeparators standard;
    return {localeItem(locale, LocaleItem::thousandsSeparator, std::move(standard.thousands)),
            localeItem(locale, LocaleItem::decimalSeparator, std::move(standard.decimal))};
}

} // namespace orvan::ui
