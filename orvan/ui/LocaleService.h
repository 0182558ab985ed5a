// LocaleService: the user's number and money formats.
//
// The abstract form of a platform's locale functions. Digits are always 0 to 9, whatever the locale's own, because they
// are parsed back. Errors: see each function. Thread: the user-interface thread.
#pragma once

#include "orvan/base/Currency.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace orvan::ui {

/// The user's default locale.
inline constexpr std::int32_t kLocaleUserDefault = 0x0400;

/// Locale items by the numbers of the platform convention they come from.
enum class LocaleItem : std::int32_t {
    decimalSeparator = 0x0E,
    thousandsSeparator = 0x0F,
    currencySymbol = 0x14,
    monetaryDecimalSeparator = 0x16,
    monetaryThousandsSeparator = 0x17,
};

class LocaleService {
public:
    virtual ~LocaleService() = default;

    /// Writes the item with a terminating null into buffer and returns the count written, the null
    /// included; 0 when the item is unknown or does not fit. UTF-8; the count is in bytes.
    [[nodiscard]] virtual std::int32_t getLocaleInfo(std::int32_t localeId, LocaleItem item,
                                                     std::span<char> buffer) = 0;

    /// Appends money text with exactly `digits` decimals, the user's symbol, grouping and negative form.
    /// Rounds halves away from zero on the exact decimal.
    virtual void appendCurrency(std::string& text, Currency value, int digits) = 0;
    /// Appends number text with exactly `digits` decimals, grouped; rounds as appendCurrency.
    virtual void appendNumber(std::string& text, Currency value, int digits) = 0;

    [[nodiscard]] std::string formatCurrency(Currency value, int digits)
    {
        std::string text;
        appendCurrency(text, value, digits);
        return text;
    }
    [[nodiscard]] std::string formatNumber(Currency value, int digits)
    {
        std::string text;
        appendNumber(text, value, digits);
        return text;
    }

    /// Digits with at most one decimal separator, the number's or the money's; thousands separators
    /// are skipped where they are not also a decimal separator. Rounds to four decimals, ties to
    /// even. Raises 13 for anything else and 6 beyond the range.
    virtual Currency textToCurrency(std::string_view text) = 0;
};

} // namespace orvan::ui
