// IcuLocaleService: the user's number and money formats, from ICU's locale data.
//
// Everything is taken from ICU when the service is made and never asked for again, so that the
// separators, the symbol and the formatted texts always agree. Money follows one locale and numbers
// another, as LC_MONETARY and LC_NUMERIC let a user choose. For every locale ICU knows, an amount
// that is not negative and shown with four decimals is read back exactly (where its data would not
// allow that, see NumberPattern.h and LocaleData.h for what is shown instead).
// Thread: made on any; then constant, so that any thread may read. Making one raises 51 when ICU's
// data is missing.
#pragma once

#include "orvan/ui/LocaleService.h"
#include "orvan/ui/icu/LocaleData.h"
#include "orvan/ui/icu/LocaleNames.h"

namespace orvan::icu {

class IcuLocaleService : public ui::LocaleService {
public:
    /// Names as in LocaleNames.h; unknown ones fall back as icuLocaleId says, never an error.
    explicit IcuLocaleService(const LocaleNames& names);

    /// Knows kLocaleUserDefault alone: 0 for any other locale.
    std::int32_t getLocaleInfo(std::int32_t localeId, ui::LocaleItem item, std::span<char> buffer) override;
    /// Raises 5 when digits is not 0 to kMostDigits; so does appendNumber.
    void appendCurrency(std::string& text, Currency value, int digits) override;
    void appendNumber(std::string& text, Currency value, int digits) override;
    Currency textToCurrency(std::string_view text) override;

private:
    /// Null for an item that is not known.
    const std::string* item(ui::LocaleItem item) const;

    MoneyPattern money_;
    NumberPattern number_;
};

} // namespace orvan::icu
