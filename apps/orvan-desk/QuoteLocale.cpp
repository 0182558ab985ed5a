#include "QuoteLocale.h"

#include "orvan/hosting/QtHost.h"
#include "orvan/ui/icu/LocaleData.h"

#include <QCoreApplication>

#include <string>
#include <utility>

namespace orvan::desk {

namespace {

class QuoteLocale final : public ui::LocaleService {
public:
    explicit QuoteLocale(icu::LocaleNames user)
        : user_(std::move(user)), currency_(userCurrency(user_).toStdString()), service_(makeLocaleService(user_))
    {
    }

    /// Everything stays as it was where the formats cannot be made.
    void setCurrency(const std::string& code)
    {
        if (code != currency_) {
            icu::LocaleNames names = user_;
            names.currency = code;
            service_ = makeLocaleService(names);
            currency_ = code;
        }
    }
    const icu::LocaleNames& user() const { return user_; }

    std::int32_t getLocaleInfo(std::int32_t localeId, ui::LocaleItem item, std::span<char> buffer) override
    {
        return service_->getLocaleInfo(localeId, item, buffer);
    }
    void appendCurrency(std::string& text, Currency value, int digits) override
    {
        service_->appendCurrency(text, value, digits);
    }
    void appendNumber(std::string& text, Currency value, int digits) override
    {
        service_->appendNumber(text, value, digits);
    }
    Currency textToCurrency(std::string_view text) override { return service_->textToCurrency(text); }

private:
    const icu::LocaleNames user_;
    std::string currency_;
    std::unique_ptr<ui::LocaleService> service_;
};

} // namespace

std::shared_ptr<ui::LocaleService> makeQuoteLocale(const icu::LocaleNames& user)
{
    return std::make_shared<QuoteLocale>(user);
}

QString showCurrency(const QString& code)
{
    auto* const locale = dynamic_cast<QuoteLocale*>(&qtHost().platform().locale());
    QString taken = !code.isEmpty() ? code : userCurrency(locale ? locale->user() : icu::localeNamesFromEnvironment());
    if (locale) {
        locale->setCurrency(taken.toStdString());
    }
    return taken;
}

QString userCurrency(const icu::LocaleNames& user)
{
    const std::string locale = icu::icuLocaleId(user.monetary);
    return QString::fromStdString(user.currency.empty() ? icu::currencyCode(locale) : user.currency);
}

QString noCurrencyNotice(const QString& taken)
{
    return QCoreApplication::translate("QuoteLocale",
                                       "This quote does not say its currency. It is now taken to be in %1.")
        .arg(taken);
}

} // namespace orvan::desk
