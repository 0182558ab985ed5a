// E and F: E formats an amount as the text that a user sees; F parses a text that a user types.

#include "benchmarks/Comparison.h"
#include "benchmarks/Subjects.h"
#include "orvan/core/modConversion.h"
#include "orvan/ui/icu/IcuLocaleService.h"

#include <unicode/numberformatter.h>
#include <unicode/ucurr.h>

#include <QLocale>
#include <algorithm>
#include <array>
#include <memory>

namespace orvan::bench {

namespace {

using ::icu::number::LocalizedNumberFormatter;
using ::icu::number::NumberFormatter;
using ::icu::number::Precision;

constexpr int kDecimals = 2;

/// Amounts as in a list of products, with a few large ones. Their number is a power of two, so that `%` costs little.
constexpr std::array<std::int64_t, 16> kScaled = {
    2'500,     12'500,     49'900,     99'900,     120'000,     745'900,     1'234'500, 3'999'900,
    7'926'300, 21'280'000, 46'455'000, 89'789'300, 123'456'700, 987'654'300, 5'000,     12'345'678'900};

Currency amountAt(std::size_t i)
{
    return Currency::fromScaled(kScaled[i % kScaled.size()]);
}

/// A side that calls `use` with the numbers from 0 on.
template <class Use>
Side loopOver(std::string name, Use use)
{
    return timed(std::move(name), [use](benchmark::State& state) {
        std::size_t i = 0;
        for ([[maybe_unused]] auto _ : state) {
            benchmark::DoNotOptimize(use(i++));
        }
    });
}

/// ICU's formatter for amounts of money, with the rounding that the library uses.
LocalizedNumberFormatter icuMoney(const std::string& name, UNumberUnitWidth width = UNUM_UNIT_WIDTH_SHORT)
{
    UErrorCode status = U_ZERO_ERROR;
    ::icu::Locale locale(name.c_str());
    locale.setKeywordValue("numbers", "latn", status);
    const ::icu::CurrencyUnit currency(icu::currencyCode(icu::icuLocaleId(name)).c_str(), status);
    return NumberFormatter::withLocale(locale)
        .unit(currency)
        .unitWidth(width)
        .roundingMode(UNUM_ROUND_HALFUP)
        .precision(Precision::fixedFraction(kDecimals));
}

::icu::UnicodeString icuText(const LocalizedNumberFormatter& formatter, Currency value)
{
    UErrorCode status = U_ZERO_ERROR;
    return formatter.formatDouble(value.toDouble(), status).toString(status);
}

std::string toUtf8(const ::icu::UnicodeString& text)
{
    std::string utf8;
    return text.toUTF8String(utf8);
}

using Service = std::shared_ptr<ui::LocaleService>;

Service service(const std::string& name)
{
    return std::make_shared<icu::IcuLocaleService>(icu::LocaleNames{.monetary = name, .numeric = name});
}

Side formatted(const Service& locale)
{
    return loopOver("", [locale](std::size_t i) { return locale->formatCurrency(amountAt(i), kDecimals); });
}

/// Whether the library's texts are ICU's. The text with the currency's code counts, too: the library uses the code
/// where the symbol would be read back as a part of the amount.
bool textsAreIcus(const std::string& name)
{
    const Service locale = service(name);
    const LocalizedNumberFormatter withSymbol = icuMoney(name);
    const LocalizedNumberFormatter withCode = icuMoney(name, UNUM_UNIT_WIDTH_ISO_CODE);
    for (std::size_t i = 0; i < 2 * kScaled.size(); ++i) {
        const Currency value = i < kScaled.size() ? amountAt(i) : -amountAt(i);
        const std::string ours = locale->formatCurrency(value, kDecimals);
        if (ours != toUtf8(icuText(withSymbol, value)) && ours != toUtf8(icuText(withCode, value))) {
            return false;
        }
    }
    return true;
}

double localesWithOtherTexts()
{
    std::int32_t count = 0;
    const ::icu::Locale* const locales = ::icu::Locale::getAvailableLocales(count);
    return static_cast<double>(std::count_if(
        locales, locales + count, [](const ::icu::Locale& locale) { return !textsAreIcus(locale.getName()); }));
}

Sides besideQt(const char* name)
{
    const Service locale = service(name);
    const auto qt = [peer = QLocale(QString::fromLatin1(name))](std::size_t i) {
        return peer.toCurrencyString(amountAt(i).toDouble(), QString(), kDecimals);
    };
    for (std::size_t i = 0; i < kScaled.size(); ++i) {
        requireSame(locale->formatCurrency(amountAt(i), kDecimals), qt(i).toStdString(), "money text");
    }
    return {formatted(locale), loopOver("QLocale", qt)};
}

Sides besideIcu(const char* name)
{
    const Service locale = service(name);
    const auto formatter = std::make_shared<LocalizedNumberFormatter>(icuMoney(name));
    const auto peer = [formatter](std::size_t i) { return icuText(*formatter, amountAt(i)); };
    for (std::size_t i = 0; i < kScaled.size(); ++i) {
        requireSame(locale->formatCurrency(amountAt(i), kDecimals), toUtf8(peer(i)), "money text");
    }
    return {formatted(locale), loopOver("cached ICU", peer)};
}

/// Compares `parse`, which is called with (service, text, decimal separator), with QLocale.
template <class Parse>
Sides parsing(const char* name, Parse parse)
{
    const Service locale = service(name);
    const QLocale qt(QString::fromLatin1(name));
    const std::string decimal = qt.decimalPoint().toStdString();
    std::array<std::string, kScaled.size()> texts;
    std::array<QString, kScaled.size()> qtTexts;
    for (std::size_t i = 0; i < kScaled.size(); ++i) {
        texts[i] = locale->formatNumber(amountAt(i), kDecimals);
        qtTexts[i] = QString::fromStdString(texts[i]);
        requireSame(parse(*locale, texts[i], decimal), amountAt(i), texts[i]);
        requireSame(qt.toDouble(qtTexts[i]), amountAt(i).toDouble(), texts[i]);
    }
    return {loopOver("", [=](std::size_t i) { return parse(*locale, texts[i % texts.size()], decimal); }),
            loopOver("QLocale", [qt, qtTexts](std::size_t i) { return qt.toDouble(qtTexts[i % qtTexts.size()]); })};
}

/// Parses a text that contains nothing but an amount, as QLocale does.
Sides parsingText(const char* name)
{
    return parsing(name, [](ui::LocaleService& locale, const std::string& text, const std::string& /*decimal*/) {
        return locale.textToCurrency(text);
    });
}

/// Parses a text that a user typed: drops all characters that are not part of an amount first; QLocale does not.
Sides parsingTyped(const char* name)
{
    return parsing(name, [](ui::LocaleService& locale, const std::string& text, const std::string& decimal) {
        return CurrencyTextToValue(locale, text, decimal);
    });
}

} // namespace

void addAmounts(Suite& suite)
{
    for (const char* const name : {"en_US", "de_DE"}) {
        const std::string ending = std::string(", ").append(name);
        suite.add(Row{"E format an amount" + ending, atLeastTimesFaster(8), [=] { return besideQt(name); }});
        suite.add(Row{"E format an amount" + ending, atLeastTimesFaster(12), [=] { return besideIcu(name); }});
        suite.add(Row{"F parse an amount" + ending, atLeastTimesFaster(30), [=] { return parsingText(name); }});
        suite.add(Row{"F parse a typed amount" + ending, atLeastTimesFaster(30), [=] { return parsingTyped(name); }});
    }
    suite.add(Row{"E locales whose texts are not ICU's", atMost(0),
                  [] {
                      return Sides{{"", localesWithOtherTexts}};
                  },
                  Unit::count, 1});
}

} // namespace orvan::bench
