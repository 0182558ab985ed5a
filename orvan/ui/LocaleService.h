// LocaleService: the user's number and money formats.
//
// An amount is always written with the digits 0 to 9, even if the locale has digits of its own, because the texts are
// read back as amounts: of a text in a box, the digits and the decimal separators that getLocaleInfo gives (of money in
// a box of money) are kept, and textToCurrency reads them. A service whose separators and texts do not agree would
// change the user's amounts. orvan/testing/LocaleServiceConformance.h tests a service against what is said here.
//
// The one that comes with the library is made from ICU's data (makeLocaleService in orvan/hosting/Host.h);
// HostOptions::localeService takes another one.
//
// Ownership: the host shares it with the platform. Errors: see each function; a procedure of the library treats what is
// thrown besides as an error of its own, and a text that textToCurrency does not read as the amount 0. Thread: the
// user-interface thread. The functions are called at each keystroke in an amount's box, so they should be quick.
#pragma once

#include "orvan/base/Currency.h"
#include "orvan/core_export.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace orvan::ui {

/// The number that stands for the user's default locale.
inline constexpr std::int32_t kLocaleUserDefault = 0x0400;

/// The items of a locale that can be read. Their numbers follow the convention that existing hosts use.
enum class LocaleItem : std::int32_t {
    decimalSeparator = 0x0E,
    thousandsSeparator = 0x0F,
    currencySymbol = 0x14,
    monetaryDecimalSeparator = 0x16,
    monetaryThousandsSeparator = 0x17,
};

class ORVAN_CORE_EXPORT LocaleService {
public:
    virtual ~LocaleService() = default;

    /// Writes the item into the buffer as UTF-8 with a terminating null. Returns the number of bytes written, the null
    /// included; 0 when the item is unknown or does not fit. The library passes kLocaleUserDefault and 127 bytes. Where
    /// it does not get an item, or this throws, it takes "." for a decimal separator, and "," for the others. A decimal
    /// separator is one character: the key filter of a box compares it with one key.
    [[nodiscard]] virtual std::int32_t getLocaleInfo(std::int32_t localeId, LocaleItem item,
                                                     std::span<char> buffer) = 0;

    /// Appends money text with exactly `digits` decimals, the user's symbol, grouping and negative form. What is in
    /// `text` stays. Rounds halves away from zero on the exact decimal. The library passes 0, 2 or 4 decimals.
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

    /// Reads an amount: digits with at most one decimal separator, that of numbers or that of money. Thousands
    /// separators are skipped unless they are also a decimal separator. Rounds to four decimals, ties to even. Raises
    /// 13 for any other text, and 6 beyond the range.
    virtual Currency textToCurrency(std::string_view text) = 0;

    /// The character as it is compared where upper and lower case are the same, as in the list's search. By default
    /// only A to Z have two cases.
    [[nodiscard]] virtual char32_t foldCase(char32_t character)
    {
        return character >= U'A' && character <= U'Z' ? character + (U'a' - U'A') : character;
    }
};

} // namespace orvan::ui
