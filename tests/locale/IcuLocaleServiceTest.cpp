// Texts that users of these locales expect, written out; AllLocalesTest.cpp holds the rest.
#include "orvan/ui/icu/IcuLocaleService.h"
#include "ShownAmounts.h"
#include "orvan/ui/icu/LocaleData.h"
#include "orvan/ui/icu/LocaleNames.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"

#include <map>

namespace orvan::icu {
namespace {

using test::Rows;

TEST(IcuLocaleService, MoneyAndNumbersAreWrittenAsTheirUsersWrite)
{
    for (const auto& [monetary, numeric, value, money, number, symbol] :
         Rows<const char*, const char*, const char*, const char*, const char*, const char*>{
             {"C", "en_US", "-1234.5", "-$1,234.50", "-1,234.50", "$"},
             {"de_DE", "en_US", "1234.5", "1.234,50\u00A0€", "1,234.50", "€"},
             {"de_CH@euro", "de_CH", "1234.5", "EUR\u00A01’234.50", "1’234.50", "EUR"}, // apostrophes
             {"fr_FR", "nb_NO", "1234567.5", "1\u202F234\u202F567,50\u00A0€", "1\u00A0234\u00A0567,50", "€"},
             {"en_IN", "en_IN", "922337203685477.5807", "₹92,23,37,20,36,85,477.58", "92,23,37,20,36,85,477.58", "₹"},
             {"es_ES", "pl_PL", "12345.5", "12.345,50\u00A0€", "12\u00A0345,50", "€"},
             {"ja_JP", "ja_JP", "1234.5", "￥1,234.50", "1,234.50", "￥"},               // digits asked for, not 0
             {"ar_BH", "ar_EG", "1234.5", "\u200F1,234.50\u00A0BHD", "1,234.50", "BHD"}, // its sign has points
             {"ar_DZ", "ar_DZ", "1234.5", "\u200F1.234,50\u00A0د.ج.\u200F", "1.234,50", "د.ج.\u200F"}, // with its mark
             {"sv_SE", "sv_SE", "-1234.5", "−1\u00A0234,50\u00A0kr", "−1\u00A0234,50", "kr"},
             {"en_US_POSIX", "en_US_POSIX", "1234.5", "$\u00A01234.50", "1234.50", "$"}, // no groups at all
         }) {
        IcuLocaleService service({.monetary = monetary, .numeric = numeric});
        const Currency amount = Currency::fromText(value);
        EXPECT_EQ(service.formatCurrency(amount, 2), money) << monetary;
        EXPECT_EQ(service.formatNumber(amount, 2), number) << numeric;
        EXPECT_EQ(GetCurrencySymbol(service), symbol) << monetary;
    }
}

TEST(IcuLocaleService, AnItemThatIsUnknownOrDoesNotFitIsNoAnswer)
{
    IcuLocaleService service({.monetary = "da_DK", .numeric = "da_DK"}); // symbol "kr."
    for (const auto& [lcid, item, room, count] :
         Rows<std::int32_t, std::int32_t, std::size_t, std::int32_t>{{0x400, 0x14, 127, 4},
                                                                     {0x400, 0x14, 4, 4},
                                                                     {0x400, 0x14, 3, 0},
                                                                     {0x400, 0x14, 0, 0},
                                                                     {0x400, 0x10, 127, 0},
                                                                     {0x409, 0x14, 127, 0}}) {
        std::string buffer(room, 'x');
        EXPECT_EQ(service.getLocaleInfo(lcid, static_cast<ui::LocaleItem>(item), buffer), count)
            << lcid << ' ' << item << ' ' << room;
        EXPECT_EQ(buffer.substr(0, 4) == std::string("kr.\0", 4), count != 0) << buffer;
    }
}

TEST(IcuLocaleService, TextIsReadWithEitherDecimalSeparator)
{
    for (const auto& [monetary, numeric, text, value] : Rows<const char*, const char*, const char*, const char*>{
             {"en_US", "en_US", "1,234.50", "1234.5"},
             {"en_US", "en_US", "1234.", "1234"},
             {"de_DE", "en_US", "1.5", "1.5"}, // a group of the money, the point of the number
             {"de_DE", "en_US", "1,5", "1.5"},
             {"de_DE", "en_US", "1,2.5", "error 13"},
             {"en_US", "de_CH", "1,234’567.5", "1234567.5"}, // groups of both
             {"pt_CV", "pt_CV", "1\u00A0234$5", "1234.5"},
             {"de_CH", "de_CH", "1’234.5", "1234.5"},
             {"en_US", "en_US", "0.00015", "0.0002"},
             {"en_US", "en_US", "922337203685477.5808", "error 6"},
             {"en_US", "en_US", ",.", "error 13"},
             {"en_US", "en_US", "-5", "error 13"},
             {"de_CH", "de_CH", "1\xE2\x80", "error 13"}, // half an apostrophe
         }) {
        IcuLocaleService service({.monetary = monetary, .numeric = numeric});
        const std::string read = test::textOrError([&, &it = text] { return service.textToCurrency(it).toText(); });
        EXPECT_EQ(read, value) << text;
    }
}

TEST(LocaleNames, TheEnvironmentIsReadAsTheCLibraryDoes)
{
    for (const auto& [environment, monetary, numeric] :
         Rows<std::map<std::string, const char*>, const char*, const char*>{
             {{}, "", ""},
             {{{"LANG", "de_DE.UTF-8"}}, "de_DE.UTF-8", "de_DE.UTF-8"},
             {{{"LANG", "de_DE"}, {"LC_MONETARY", "fr_CH"}}, "fr_CH", "de_DE"},
             {{{"LC_ALL", "C"}, {"LANG", "de_DE"}}, "C", "C"},
             {{{"LANG", "de_DE"}, {"LC_NUMERIC", "C"}}, "de_DE", "C"},
             {{{"LC_ALL", "sv_SE"}, {"LC_MONETARY", "fr_CH"}, {"LC_NUMERIC", "C"}, {"LANG", "de_DE"}},
              "sv_SE",
              "sv_SE"},
             {{{"LC_ALL", ""}, {"LC_NUMERIC", ""}, {"LC_MONETARY", "fr_CH"}, {"LANG", "de_DE"}}, "fr_CH", "de_DE"},
             {{{"LC_MESSAGES", "de_DE"}, {"LC_CTYPE", "de_DE"}, {"LANGUAGE", "de"}}, "", ""}}) {
        const LocaleNames names = localeNamesFromEnvironment([&all = environment](const char* variable) -> const char* {
            const auto found = all.find(variable);
            return found == all.end() ? nullptr : found->second;
        });
        EXPECT_EQ(names.monetary, monetary);
        EXPECT_EQ(names.numeric, numeric);
    }
}

TEST(LocaleNames, NamesBecomeLocalesWithDataAndACurrency)
{
    for (const auto& [name, locale, currency] :
         Rows<const char*, const char*, const char*>{{"", "en_US", "USD"},
                                                     {"C", "en_US", "USD"},
                                                     {"POSIX", "en_US", "USD"},
                                                     {"C.UTF-8", "en_US", "USD"},
                                                     {".UTF-8", "en_US", "USD"},
                                                     {"de_DE.UTF-8", "de_DE", "EUR"},
                                                     {"de_CH.ISO-8859-1@euro", "de_CH", "EUR"},
                                                     {"fr_CH@EURO", "fr_CH", "EUR"},
                                                     {"de_CH@currency=usd", "de_CH", "USD"},
                                                     {"C@currency=EUR;calendar=buddhist", "en_US", "EUR"},
                                                     {"de_CH@currency=1.5", "de_CH", "CHF"},
                                                     {"de_CH@=;;=%", "de_CH", "CHF"},
                                                     {"sr_RS.UTF-8@latin", "sr_Latn_RS", "RSD"},
                                                     {"sr_RS@cyrillic", "sr_Cyrl_RS", "RSD"},
                                                     {"ks_IN@devanagari", "ks_Deva_IN", "INR"},
                                                     {"ca_ES@valencia", "ca_ES", "EUR"},
                                                     {"tt_RU@iqtelif", "tt_RU", "RUB"},
                                                     {"af_Cyrl_ZA", "af_ZA", "ZAR"}, // no data in that script
                                                     {"zh-Hant-TW", "zh_Hant_TW", "TWD"},
                                                     {"de_AT_9XYZ2345=", "de_AT", "EUR"},
                                                     {"iw_IL", "he_IL", "ILS"},
                                                     {"sh_RS", "sr_Latn_RS", "RSD"}, // old names
                                                     {"de", "de", "EUR"},
                                                     {"pt", "pt", "BRL"}, // likely territory
                                                     {"en_150", "en_150", "XXX"},
                                                     {"eo", "eo", "XXX"},
                                                     {"en_XY", "en_XY", "XXX"}, // no one currency
                                                     {"nds_DE.UTF-8", "de_DE", "EUR"},
                                                     {"xx_CH@euro", "de_CH", "EUR"}, // no data for the language
                                                     {"english", "en_US", "USD"},
                                                     {"xx", "en_US", "USD"},
                                                     {"%s%n/../\x80", "en_US", "USD"}}) {
        const std::string id = icuLocaleId(name);
        EXPECT_EQ(id.substr(0, id.find('@')), locale) << name;
        EXPECT_EQ(currencyCode(id), currency) << name;
        EXPECT_NE(id.find("numbers=latn"), std::string::npos) << id;
    }
    EXPECT_EQ(icuLocaleId(std::string(5000, 'x')), icuLocaleId("C"));
    EXPECT_EQ(icuLocaleId("ar_EG@numbers=arab"), icuLocaleId("ar_EG")) << "digits are always 0 to 9";
}

TEST(NumberPattern, SeparatorsThatCannotBeReadBackGiveWay)
{
    for (const auto& [decimal, group, readableDecimal, readableGroup] :
         Rows<const char*, const char*, const char*, const char*>{{",", ".", ",", "."},
                                                                  {"·", "\u202F", "·", "\u202F"},
                                                                  {".", "", ".", ""},
                                                                  {"::", ",", ".", ","},
                                                                  {"::", ".", ",", "."},
                                                                  {"", "'", ".", "'"},
                                                                  {"0", "'", ".", "'"},
                                                                  {"::", ".'", ".", "\u00A0"},
                                                                  {".", ".", ".", "\u00A0"},
                                                                  {".", "1", ".", "\u00A0"}}) {
        NumberPattern pattern{.decimalSeparator = decimal, .groupSeparator = group};
        makeReadable(pattern);
        EXPECT_EQ(pattern.decimalSeparator, readableDecimal) << decimal << ' ' << group;
        EXPECT_EQ(pattern.groupSeparator, readableGroup) << decimal << ' ' << group;
    }
}

} // namespace
} // namespace orvan::icu
