// QuoteLocale: the user's number and money formats, with money in the currency of the quote that is shown.
//
// A quote keeps its currency: one that was made in dollars shows dollars to a German user, with the separators of that
// user. The desk hands this service to the library (HostOptions::localeService), and changes the service's currency
// when it shows another quote. The list view and the editor ask the service whenever they write an amount. Thread: the
// user-interface thread.
#pragma once

#include "orvan/ui/LocaleService.h"
#include "orvan/ui/icu/LocaleNames.h"

#include <QString>

#include <memory>

namespace orvan::desk {

/// A service for HostOptions::localeService; it begins with the user's own currency.
[[nodiscard]] std::shared_ptr<ui::LocaleService> makeQuoteLocale(const icu::LocaleNames& user);

/// The library writes money in this currency from now on; an empty code stands for the user's own currency. Returns the
/// code that applies. Where the library has another locale service, nothing changes.
QString showCurrency(const QString& code);

/// The ISO code of the currency that a user with these locales has.
[[nodiscard]] QString userCurrency(const icu::LocaleNames& user);

/// What a user is told whose quote has no currency.
[[nodiscard]] QString noCurrencyNotice(const QString& taken);

} // namespace orvan::desk
