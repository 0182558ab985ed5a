// IcuLocaleService: the user's number and money formats, from ICU's locale data.
//
// Everything is taken from ICU when the service is made and never asked for again, so that the
// separators, the symbol and the formatted texts always agree. Money follows one locale and numbers
// another, as LC_MONETARY and LC_NUMERIC let a user choose. In every locale that ICU knows, an amount
// that is not negative and is written with four decimals can be read back exactly. Where the locale's own
// separators or symbol would prevent that, others are used (see NumberPattern.h and LocaleData.h).
// Thread: any; the service does not change after it is made. Making one raises 51 when ICU's data is
// missing, and 5 for a currency that is no code of three letters.
#pragma once

#include "orvan/core_export.h"
#include "orvan/ui/LocaleService.h"
#include "orvan/ui/icu/LocaleData.h"
#include "orvan/ui/icu/LocaleNames.h"

namespace orvan::icu {

class ORVAN_CORE_INTERNAL IcuLocaleService : public ui::LocaleService {
public:
    /// The names are those of LocaleNames.h. An unknown name is no error; icuLocaleId says which locale replaces it.
    explicit IcuLocaleService(const LocaleNames& names);

    /// Returns 0 for any locale but kLocaleUserDefault.
    std::int32_t getLocaleInfo(std::int32_t localeId, ui::LocaleItem item, std::span<char> buffer) override;
    /// Raises 5 when digits is not 0 to kMostDigits; so does appendNumber.
    void appendCurrency(std::string& text, Currency value, int digits) override;
    void appendNumber(std::string& text, Currency value, int digits) override;
    Currency textToCurrency(std::string_view text) override;
    char32_t foldCase(char32_t character) override;

private:
    /// The text of an item; null for an unknown item.
    const std::string* item(ui::LocaleItem item) const;

    MoneyPattern money_;
    NumberPattern number_;
};

} // namespace orvan::icu
