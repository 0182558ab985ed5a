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

using test::forEachRow;

TEST(IcuLocaleService, MoneyAndNumbersAreWrittenAsTheirUsersWrite)
{
    struct Row {
        const char *name, *value = "1234.5", *money, *number, *symbol;
    };
    // clang-format off
    const Row rows[] = {
        {.name = "C", .value = "-1234.5", .money = "-$1,234.50", .number = "-1,234.50", .symbol = "$"},
        {.name = "de_DE", .money = "1.234,50\u00A0€", .number = "1.234,50", .symbol = "€"},
        {.name = "de_CH@euro", .money = "EUR\u00A01’234.50", .number = "1’234.50", .symbol = "EUR"},
        {.name = "fr_FR", .money = "1\u202F234,50\u00A0€", .number = "1\u202F234,50", .symbol = "€"},
        {.name = "en_IN", .value = "922337203685477.5807", .money = "₹92,23,37,20,36,85,477.58",
         .number = "92,23,37,20,36,85,477.58", .symbol = "₹"},
        {.name = "es_ES", .money = "1234,50\u00A0€", .number = "1234,50", .symbol = "€"}, // no group of one digit
        {.name = "ja_JP", .money = "￥1,234.50", .number = "1,234.50", .symbol = "￥"}, // the digits asked for
        {.name = "ar_BH", .money = "\u200F1,234.50\u00A0BHD", .number = "1,234.50", .symbol = "BHD"}, // not a sign
        {.name = "ar_DZ", .money = "\u200F1.234,50\u00A0د.ج.\u200F", .number = "1.234,50", .symbol = "د.ج.\u200F"},
        {.name = "sv_SE", .value = "-1234.5", .money = "−1\u00A0234,50\u00A0kr", .number = "−1\u00A0234,50",
         .symbol = "kr"},
        {.name = "en_US_POSIX", .money = "$\u00A01234.50", .number = "1234.50", .symbol = "$"}, // no groups at all
    };
    // clang-format on
    forEachRow(rows, [](const Row& row) {
        IcuLocaleService service({.monetary = row.name, .numeric = row.name});
        EXPECT_EQ(service.formatCurrency(Currency::fromText(row.value), 2), row.money);
        EXPECT_EQ(service.formatNumber(Currency::fromText(row.value), 2), row.number);
        EXPECT_EQ(GetCurrencySymbol(service), row.symbol);
    });
    IcuLocaleService mixed({.monetary = "de_DE", .numeric = "en_US"});
    EXPECT_EQ(mixed.formatCurrency(Currency::fromInteger(1234), 2), "1.234,00\u00A0€");
    EXPECT_EQ(mixed.formatNumber(Currency::fromInteger(1234), 2), "1,234.00");
}

TEST(IcuLocaleService, AnotherCurrencyIsWrittenAsTheUsersOfTheLocaleWriteIt)
{
    struct Row {
        const char *name, *currency, *money;
    };
    const Row rows[] = {
        {"de_DE", "USD", "-1.234,50\u00A0$"},
        {"de_DE", "", "-1.234,50\u00A0€"},
        {"en_US", "EUR", "-€1,234.50"},
        {"en_CA", "USD", "-US$1,234.50"},
        {"fr_CH@euro", "GBP", "-1\u202F234.50\u00A0£GB"}, // the currency goes before that of the modifier
        {"sr_RS@latin", "USD", "-1.234,50\u00A0US$"},
        {"de_DE", "qqq", "-1.234,50\u00A0QQQ"}, // one that ICU does not know
        {"de_DE", "US", "error 5"},
        {"de_DE", "1.5", "error 5"},
        {"de_DE", "USD;numbers=arab", "error 5"},
    };
    forEachRow(rows, [](const Row& row) {
        EXPECT_EQ(test::textOrError([&] {
                      IcuLocaleService service({.monetary = row.name, .numeric = row.name, .currency = row.currency});
                      EXPECT_EQ(service.formatNumber(Currency::fromText("0.5"), 1).size(), 3U);
                      return service.formatCurrency(Currency::fromText("-1234.5"), 2);
                  }),
                  row.money);
    });
}

TEST(IcuLocaleService, AnItemThatIsUnknownOrDoesNotFitIsNoAnswer)
{
    IcuLocaleService service({.monetary = "da_DK", .numeric = "da_DK"}); // symbol "kr."
    struct Row {
        const char* name;
        std::int32_t lcid = 0x400, item = 0x14;
        std::size_t size = 127;
        std::int32_t count = 0;
    };
    const Row rows[] = {
        {.name = "fits", .count = 4},           {.name = "just fits", .size = 4, .count = 4},
        {.name = "one byte short", .size = 3},  {.name = "no buffer", .size = 0},
        {.name = "unknown item", .item = 0x10}, {.name = "another locale", .lcid = 0x409},
    };
    forEachRow(rows, [&](const Row& row) {
        std::string buffer(row.size, 'x');
        EXPECT_EQ(service.getLocaleInfo(row.lcid, static_cast<ui::LocaleItem>(row.item), buffer), row.count);
        EXPECT_EQ(buffer.substr(0, 4) == std::string("kr.\0", 4), row.count != 0) << buffer;
    });
}

TEST(IcuLocaleService, TextIsReadWithEitherDecimalSeparator)
{
    struct Row {
        const char *monetary, *numeric, *text, *value;
    };
    const Row rows[] = {
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
    };
    forEachRow(rows, [](const Row& row) {
        IcuLocaleService service({.monetary = row.monetary, .numeric = row.numeric});
        EXPECT_EQ(test::textOrError([&] { return service.textToCurrency(row.text).toText(); }), row.value);
    });
}

TEST(LocaleNames, TheEnvironmentIsReadAsTheCLibraryDoes)
{
    struct Row {
        const char* name;
        std::map<std::string, const char*> environment;
        const char *monetary, *numeric;
    };
    // clang-format off
    const Row rows[] = {
        {"nothing", {}, "", ""},
        {"LANG serves both", {{"LANG", "de_DE.UTF-8"}}, "de_DE.UTF-8", "de_DE.UTF-8"},
        {"a category goes before LANG", {{"LANG", "de_DE"}, {"LC_MONETARY", "fr_CH"}}, "fr_CH", "de_DE"},
        {"each category on its own", {{"LANG", "de_DE"}, {"LC_NUMERIC", "C"}}, "de_DE", "C"},
        {"LC_ALL goes before LANG", {{"LC_ALL", "C"}, {"LANG", "de_DE"}}, "C", "C"},
        {"LC_ALL goes before all",
         {{"LC_ALL", "sv_SE"}, {"LC_MONETARY", "fr_CH"}, {"LC_NUMERIC", "C"}, {"LANG", "de_DE"}}, "sv_SE", "sv_SE"},
        {"empty is not set", {{"LC_ALL", ""}, {"LC_NUMERIC", ""}, {"LC_MONETARY", "fr_CH"}, {"LANG", "de_DE"}},
         "fr_CH", "de_DE"},
        {"other categories", {{"LC_MESSAGES", "de_DE"}, {"LC_CTYPE", "de_DE"}, {"LANGUAGE", "de"}}, "", ""},
    };
    // clang-format on
    forEachRow(rows, [](const Row& row) {
        const LocaleNames names = localeNamesFromEnvironment([&](const char* variable) -> const char* {
            const auto found = row.environment.find(variable);
            return found == row.environment.end() ? nullptr : found->second;
        });
        EXPECT_EQ(names.monetary, row.monetary);
        EXPECT_EQ(names.numeric, row.numeric);
    });
}

TEST(LocaleNames, NamesBecomeLocalesWithDataAndACurrency)
{
    struct Row {
        const char *name, *locale, *currency;
    };
    const Row rows[] = {
        {"", "en_US", "USD"},
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
        {"xx_CH@euro", "de_CH", "EUR"},  // no data for the language
        {"dv_MV.UTF-8", "en_MV", "MVR"}, // no data for the likely language either
        {"ht_HT", "fr_HT", "HTG"},
        {"pap_CW", "nl_CW", "ANG"},
        {"aa_DJ", "ar_DJ", "DJF"},
        {"bi_VU", "en_VU", "VUV"},
        {"sm_WS", "en_WS", "WST"},
        {"tpi_PG", "en_PG", "PGK"},
        {"yuw_PG", "en_PG", "PGK"},
        {"xx_MV@currency=EUR", "en_MV", "EUR"},
        {"xx_AQ", "en_AQ", "XXX"}, // a territory without a currency
        {"english", "en_US", "USD"},
        {"xx", "en_US", "USD"},
        {"%s%n/../\x80", "en_US", "USD"},
    };
    forEachRow(rows, [](const Row& row) {
        const std::string id = icuLocaleId(row.name);
        EXPECT_EQ(id.substr(0, id.find('@')), row.locale);
        EXPECT_EQ(currencyCode(id), row.currency);
        EXPECT_NE(id.find("numbers=latn"), std::string::npos) << id;
    });
    EXPECT_EQ(icuLocaleId(std::string(5000, 'x')), icuLocaleId("C"));
    EXPECT_EQ(icuLocaleId("ar_EG@numbers=arab"), icuLocaleId("ar_EG")) << "digits are always 0 to 9";
}

TEST(NumberPattern, SeparatorsThatCannotBeReadBackGiveWay)
{
    struct Row {
        const char *name, *decimal, *group, *readableDecimal, *readableGroup;
    };
    const Row rows[] = {
        {"usual", ",", ".", ",", "."},
        {"other characters", "·", "\u202F", "·", "\u202F"},
        {"no groups", ".", "", ".", ""},
        {"long decimal separator", "::", ",", ".", ","},
        {"long decimal separator, the point taken", "::", ".", ",", "."},
        {"no decimal separator", "", "'", ".", "'"},
        {"a digit as the decimal separator", "0", "'", ".", "'"},
        {"both too long", "::", ".'", ".", "\u00A0"},
        {"both the same", ".", ".", ".", "\u00A0"},
        {"a digit as the group separator", ".", "1", ".", "\u00A0"},
        {"both a no-break space", "\u00A0", "\u00A0", "\u00A0", "'"},
    };
    forEachRow(rows, [](const Row& row) {
        NumberPattern pattern{.decimalSeparator = row.decimal, .groupSeparator = row.group};
        makeReadable(pattern);
        EXPECT_EQ(pattern.decimalSeparator, row.readableDecimal);
        EXPECT_EQ(pattern.groupSeparator, row.readableGroup);
    });
}

} // namespace
} // namespace orvan::icu
