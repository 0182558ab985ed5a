// What must hold for every locale that ICU knows, whatever its data holds today.
#include "ShownAmounts.h"
#include "orvan/ui/icu/IcuLocaleService.h"
#include "orvan/ui/icu/LocaleData.h"
#include "tests/support/Rows.h"

#include <unicode/locid.h>
#include <unicode/numberformatter.h>
#include <unicode/ucurr.h>

#include <limits>

namespace orvan {
namespace {

using ::icu::number::LocalizedNumberFormatter;
using ::icu::number::NumberFormatter;
using ::icu::number::Precision;

// clang-format off
constexpr std::int64_t kScaled[] = {
    0, 1, -1, 49, 50, -50, 5'000, -15'000, 99'949, 9'999'950, 9'995'000, -9'999'999, 10'000'000, 12'345'000,
    -12'345'678, 99'999'999, 123'456'789, 12'345'678'901, -98'765'432'109'876, std::numeric_limits<std::int64_t>::max(),
    std::numeric_limits<std::int64_t>::min()};
// clang-format on

std::vector<std::string> allLocales()
{
    std::int32_t count = 0;
    const ::icu::Locale* const locales = ::icu::Locale::getAvailableLocales(count);
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(count));
    for (std::int32_t i = 0; i < count; ++i) {
        names.emplace_back(locales[i].getName());
    }
    return names;
}

/// ICU's own formatter for the locale's own currency, built without the code under test.
struct IcuFormatter {
    IcuFormatter(const std::string& name, bool money, bool isoCode)
    {
        UErrorCode status = U_ZERO_ERROR;
        ::icu::Locale locale(name.c_str());
        locale.setKeywordValue("numbers", "latn", status);
        formatter = NumberFormatter::withLocale(locale).roundingMode(UNUM_ROUND_HALFUP);
        if (money) {
            ::icu::Locale territory(name.c_str());
            territory.addLikelySubtags(status);
            char16_t code[4] = u"XXX";
            UErrorCode noCurrency = U_ZERO_ERROR;
            ucurr_forLocale(territory.getName(), code, 4, &noCurrency); // writes nothing where there is none
            formatter = formatter.unit(::icu::CurrencyUnit(code, status))
                            .unitWidth(isoCode ? UNUM_UNIT_WIDTH_ISO_CODE : UNUM_UNIT_WIDTH_SHORT);
        }
        EXPECT_TRUE(U_SUCCESS(status)) << name << ' ' << u_errorName(status);
    }

    std::string text(Currency value, int digits) const
    {
        UErrorCode status = U_ZERO_ERROR;
        std::string utf8;
        return formatter.precision(Precision::fixedFraction(digits))
            .formatDecimal(value.toText(), status)
            .toString(status)
            .toUTF8String(utf8);
    }

    LocalizedNumberFormatter formatter;
};

TEST(AllLocales, TextIsIdenticalToIcusAndIsReadBackExactly)
{
    int replacedSymbols = 0;
    test::forEachRow(allLocales(), [&](const std::string& name) {
        icu::IcuLocaleService service({.monetary = name, .numeric = name});
        const LocaleTexts texts(service);
        const std::string icuText = IcuFormatter(name, true, false).text(Currency(), 0);
        const bool replaced = icuText.find(texts.symbol) == std::string::npos;
        replacedSymbols += replaced;
        // The one reason to show another symbol than ICU's.
        EXPECT_EQ(replaced, icuText.find(texts.monDecimal) != std::string::npos) << icuText;
        const IcuFormatter number(name, false, false);
        const IcuFormatter money(name, true, replaced);
        for (const std::int64_t scaled : kScaled) {
            const Currency value = Currency::fromScaled(scaled);
            for (const int digits : {0, 2, 4}) {
                ASSERT_EQ(service.formatNumber(value, digits), number.text(value, digits)) << digits;
                ASSERT_EQ(service.formatCurrency(value, digits), money.text(value, digits)) << digits;
            }
            if (scaled >= 0) {
                expectReadBack(service, texts, value);
            }
        }
    });
    EXPECT_GT(replacedSymbols, 0);
}

TEST(AllLocales, EachTerritoryKeepsItsCurrencyWhateverTheLanguage)
{
    int withCurrency = 0;
    for (const char* const* territory = ::icu::Locale::getISOCountries(); *territory != nullptr; ++territory) {
        SCOPED_TRACE(*territory);
        UErrorCode status = U_ZERO_ERROR;
        char16_t code[4] = {};
        ucurr_forLocale(::icu::Locale("und", *territory).getName(), code, 4, &status);
        if (U_FAILURE(status)) {
            continue; // for instance Antarctica
        }
        ++withCurrency;
        std::string own;
        ::icu::UnicodeString(code).toUTF8String(own);
        for (const char* language : {"xx_", "yuw_", "en_"}) {
            EXPECT_EQ(icu::currencyCode(icu::icuLocaleId(std::string(language).append(*territory))), own) << language;
        }
    }
    EXPECT_GT(withCurrency, 200);
}

} // namespace
} // namespace orvan
