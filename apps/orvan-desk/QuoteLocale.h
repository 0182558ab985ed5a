// QuoteLocale: the user's number and money formats, with money in the currency of the quote that is shown.
//
// A quote keeps its currency: one that was made in dollars shows dollars to a German user, with the separators of that
// user. The desk's host is given this service (HostOptions::localeService), and showing a quote changes its currency;
// the list view and the editor ask the service whenever they write an amount. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/LocaleService.h"
#include "orvan/ui/icu/LocaleNames.h"

#include <QString>

#include <memory>

namespace orvan::desk {

/// A service for HostOptions::localeService; it begins with the user's own currency.
[[nodiscard]] std::shared_ptr<ui::LocaleService> makeQuoteLocale(const icu::LocaleNames& user);

/// Has the desk's host write money in that currency from now on, with an empty code in the user's own. Returns the code
/// that applies. A host that was given another service keeps its currency.
QString showCurrency(const QString& code);

/// The ISO code of the currency that a user with these locales has.
[[nodiscard]] QString userCurrency(const icu::LocaleNames& user);

/// What a user is told whose quote has no currency.
[[nodiscard]] QString noCurrencyNotice(const QString& taken);

} // namespace orvan::desk
