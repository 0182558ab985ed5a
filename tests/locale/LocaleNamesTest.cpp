#include "ui/icu/LocaleData.h"
#include "ui/icu/LocaleNames.h"

#include <gtest/gtest.h>

#include <map>

namespace orvan::icu {
namespace {

TEST(LocaleNames, TheEnvironmentIsReadAsTheCLibraryDoes)
{
    using Environment = std::map<std::string, const char*>;
    struct Row {
        Environment environment;
        const char* monetary;
        const char* numeric;
    };
    for (const Row& row : {
             Row{{}, "", ""},
             Row{{{"LANG", "de_DE.UTF-8"}}, "de_DE.UTF-8", "de_DE.UTF-8"},
             Row{{{"LANG", "de_DE"}, {"LC_MONETARY", "fr_CH"}}, "fr_CH", "de_DE"},
             Row{{{"LANG", "de_DE"}, {"LC_NUMERIC", "C"}}, "de_DE", "C"},
             Row{{{"LC_ALL", "sv_SE"}, {"LC_MONETARY", "fr_CH"}, {"LC_NUMERIC", "C"}, {"LANG", "de_DE"}},
                 "sv_SE", "sv_SE"},
             Row{{{"LC_ALL", ""}, {"LC_NUMERIC", ""}, {"LC_MONETARY", "fr_CH"}, {"LANG", "de_DE"}}, "fr_CH", "de_DE"},
             Row{{{"LC_ALL", "C"}, {"LANG", "de_DE"}}, "C", "C"},
             Row{{{"LC_MESSAGES", "de_DE"}, {"LC_CTYPE", "de_DE"}, {"LANGUAGE", "de"}}, "", ""},
         }) {
        const LocaleNames names = localeNamesFromEnvironment([&](const char* variable) -> const char* {
            const auto found = row.environment.find(variable);
            return found == row.environment.end() ? nullptr : found->second;
        });
        EXPECT_EQ(names.monetary, row.monetary);
        EXPECT_EQ(names.numeric, row.numeric);
    }
}

TEST(LocaleNames, NamesBecomeLocalesWithDataAndACurrency)
{
    struct Row {
        const char* name;
        const char* locale; // without the digits, which are always latn
        const char* currency;
    };
    for (const Row& row : {
             Row{"", "en_US", "USD"}, Row{"C", "en_US", "USD"}, Row{"POSIX", "en_US", "USD"},
             Row{"C.UTF-8", "en_US", "USD"}, Row{".UTF-8", "en_US", "USD"}, Row{"de_DE.UTF-8", "de_DE", "EUR"},
             Row{"de_CH.ISO-8859-1@euro", "de_CH", "EUR"}, Row{"fr_CH@EURO", "fr_CH", "EUR"},
             Row{"de_CH@currency=usd", "de_CH", "USD"}, Row{"C@currency=EUR;calendar=buddhist", "en_US", "EUR"},
             Row{"de_CH@currency=1.5", "de_CH", "CHF"}, Row{"de_CH@=;;=%", "de_CH", "CHF"},
             Row{"sr_RS.UTF-8@latin", "sr_Latn_RS", "RSD"}, Row{"sr_RS@cyrillic", "sr_Cyrl_RS", "RSD"},
             Row{"ks_IN@devanagari", "ks_Deva_IN", "INR"}, Row{"ca_ES@valencia", "ca_ES", "EUR"},
             Row{"tt_RU@iqtelif", "tt_RU", "RUB"}, Row{"af_Cyrl_ZA", "af_ZA", "ZAR"}, // no data in that script
             Row{"zh-Hant-TW", "zh_Hant_TW", "TWD"}, Row{"de_AT_9XYZ2345=", "de_AT", "EUR"},
             Row{"iw_IL", "he_IL", "ILS"}, Row{"sh_RS", "sr_Latn_RS", "RSD"}, // old names
             Row{"de", "de", "EUR"}, Row{"pt", "pt", "BRL"},                  // likely territory
             Row{"en_150", "en_150", "XXX"}, Row{"eo", "eo", "XXX"}, Row{"en_XY", "en_XY", "XXX"}, // no one currency
             Row{"nds_DE.UTF-8", "de_DE", "EUR"}, Row{"xx_CH@euro", "de_CH", "EUR"}, // no data for the language
             Row{"english", "en_US", "USD"}, Row{"xx", "en_US", "USD"}, Row{"%s%n/../\x80", "en_US", "USD"},
         }) {
        const std::string id = icuLocaleId(row.name);
        EXPECT_EQ(id.substr(0, id.find('@')), row.locale) << row.name;
        EXPECT_EQ(currencyCode(id), row.currency) << row.name;
        EXPECT_NE(id.find("numbers=latn"), std::string::npos) << id;
    }
    EXPECT_EQ(icuLocaleId(std::string(5000, 'x')), icuLocaleId("C"));
    EXPECT_EQ(icuLocaleId("ar_EG@numbers=arab"), icuLocaleId("ar_EG")) << "digits are always 0 to 9";
}

} // namespace
} // namespace orvan::icu
