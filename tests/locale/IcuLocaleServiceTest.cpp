// Texts that users of these locales expect, written out; AllLocalesTest.cpp holds the rest.
#include "ShownAmounts.h"
#include "tests/support/Raised.h"
#include "ui/icu/IcuLocaleService.h"
#include "ui/icu/LocaleData.h"
#include "ui/icu/LocaleNames.h"

#include <map>

namespace orvan::icu {
namespace {

TEST(IcuLocaleService, MoneyAndNumbersAreWrittenAsTheirUsersWrite)
{
    struct Row {
        const char *monetary, *numeric, *value;
        const char *money, *number, *symbol;
    };
    for (const Row& row : {
             Row{"C", "en_US", "-1234.5", "-$1,234.50", "-1,234.50", "$"},
             Row{"de_DE", "de_DE", "1234567.891", "1.234.567,89\u00A0€", "1.234.567,89", "€"},
             Row{"de_DE", "en_US", "1234.5", "1.234,50\u00A0€", "1,234.50", "€"},
             Row{"de_CH@euro", "de_CH", "1234.5", "EUR\u00A01’234.50", "1’234.50", "EUR"}, // apostrophes
             Row{"fr_FR", "nb_NO", "1234567.5", "1\u202F234\u202F567,50\u00A0€", "1\u00A0234\u00A0567,50", "€"},
             Row{"de_AT", "de_AT", "-1234.5", "-€\u00A01.234,50", "-1\u00A0234,50", "€"}, // groups differ
             Row{"en_IN", "en_IN", "922337203685477.5807", "₹92,23,37,20,36,85,477.58", "92,23,37,20,36,85,477.58", "₹"},
             Row{"es_ES", "pl_PL", "1234.5", "1234,50\u00A0€", "1234,50", "€"},           // four digits stay together
             Row{"es_ES", "pl_PL", "12345.5", "12.345,50\u00A0€", "12\u00A0345,50", "€"},
             Row{"ja_JP", "ja_JP", "1234.5", "￥1,234.50", "1,234.50", "￥"},             // digits asked for, not 0
             Row{"ar_BH", "ar_EG", "1234.5", "\u200F1,234.50\u00A0BHD", "1,234.50", "BHD"}, // its sign has points
             Row{"pt_CV", "pt_CV", "12345.5", "12\u00A0345$50\u00A0\u200B", "12\u00A0345,50", "\u200B"},
             Row{"da_DK", "da_DK", "1234.5", "1.234,50\u00A0kr.", "1.234,50", "kr."}, // here a point does no harm
             Row{"sv_SE", "sv_SE", "-1234.5", "−1\u00A0234,50\u00A0kr", "−1\u00A0234,50", "kr"},
             Row{"en_US_POSIX", "en_US_POSIX", "1234.5", "$\u00A01234.50", "1234.50", "$"}, // no groups at all
         }) {
        IcuLocaleService service({.monetary = row.monetary, .numeric = row.numeric});
        const Currency value = Currency::fromText(row.value);
        EXPECT_EQ(service.formatCurrency(value, 2), row.money) << row.monetary;
        EXPECT_EQ(service.formatNumber(value, 2), row.number) << row.numeric;
        EXPECT_EQ(GetCurrencySymbol(service), row.symbol) << row.monetary;
    }
}

TEST(IcuLocaleService, AnItemThatIsUnknownOrDoesNotFitIsNoAnswer)
{
    struct Row {
        std::int32_t lcid, item;
        std::size_t room;
        std::int32_t count;
    };
    IcuLocaleService service({.monetary = "da_DK", .numeric = "da_DK"}); // symbol "kr."
    for (const Row& row : {Row{0x400, 0x14, 127, 4}, Row{0x400, 0x14, 4, 4}, Row{0x400, 0x14, 3, 0},
                           Row{0x400, 0x14, 0, 0}, Row{0x400, 0x10, 127, 0}, Row{0x409, 0x14, 127, 0}}) {
        std::string buffer(row.room, 'x');
        EXPECT_EQ(service.getLocaleInfo(row.lcid, static_cast<ui::LocaleItem>(row.item), buffer), row.count)
            << row.lcid << ' ' << row.item << ' ' << row.room;
        EXPECT_EQ(buffer.substr(0, 4) == std::string("kr.\0", 4), row.count != 0) << buffer;
    }
}

TEST(IcuLocaleService, TextIsReadWithEitherDecimalSeparator)
{
    struct Row {
        const char *monetary, *numeric, *text;
        const char* value; // or the error
    };
    for (const Row& row : {
             Row{"en_US", "en_US", "1,234.50", "1234.5"}, Row{"en_US", "en_US", "1234.", "1234"},
             Row{"de_DE", "en_US", "1.5", "1.5"}, // a group of the money, the point of the number
             Row{"de_DE", "en_US", "1,5", "1.5"}, Row{"de_DE", "en_US", "1,2.5", "error 13"},
             Row{"en_US", "de_CH", "1,234’567.5", "1234567.5"}, // groups of both
             Row{"pt_CV", "pt_CV", "1\u00A0234$5", "1234.5"}, Row{"de_CH", "de_CH", "1’234.5", "1234.5"},
             Row{"en_US", "en_US", "0.00015", "0.0002"}, Row{"en_US", "en_US", "922337203685477.5808", "error 6"},
             Row{"en_US", "en_US", "1.2.3", "error 13"}, Row{"en_US", "en_US", ",.", "error 13"},
             Row{"en_US", "en_US", "-5", "error 13"}, Row{"en_US", "en_US", "$5", "error 13"},
             Row{"de_CH", "de_CH", "1\xE2\x80", "error 13"}, // half an apostrophe
         }) {
        IcuLocaleService service({.monetary = row.monetary, .numeric = row.numeric});
        EXPECT_EQ(test::textOrError([&] { return service.textToCurrency(row.text).toText(); }), row.value) << row.text;
    }
}

TEST(LocaleNames, TheEnvironmentIsReadAsTheCLibraryDoes)
{
    struct Row {
        std::map<std::string, const char*> environment;
        const char *monetary, *numeric;
    };
    for (const Row& row : {
             Row{{}, "", ""}, Row{{{"LANG", "de_DE.UTF-8"}}, "de_DE.UTF-8", "de_DE.UTF-8"},
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

TEST(NumberPattern, SeparatorsThatCannotBeReadBackGiveWay)
{
    struct Row {
        const char *decimal, *group;
        const char *readableDecimal, *readableGroup;
    };
    for (const Row& row : {
             Row{",", ".", ",", "."}, Row{"·", "\u202F", "·", "\u202F"}, Row{".", "", ".", ""},
             Row{"::", ",", ".", ","}, Row{"::", ".", ",", "."}, Row{"", "'", ".", "'"}, Row{"0", "'", ".", "'"},
             Row{"::", ".'", ".", "\u00A0"}, Row{".", ".", ".", "\u00A0"}, Row{".", "1", ".", "\u00A0"},
         }) {
        NumberPattern pattern{.decimalSeparator = row.decimal, .groupSeparator = row.group};
        makeReadable(pattern);
        EXPECT_EQ(pattern.decimalSeparator, row.readableDecimal) << row.decimal << ' ' << row.group;
        EXPECT_EQ(pattern.groupSeparator, row.readableGroup) << row.decimal << ' ' << row.group;
    }
}

TEST(NumberPattern, DecimalsMayBeMoreThanAnAmountHasButNotFewerThanNone)
{
    const NumberPattern pattern;
    EXPECT_EQ(formatAmount(pattern, Currency::fromScaled(-15), 6), "-0.001500");
    EXPECT_EQ(formatAmount(pattern, Currency::fromScaled(1), kMostDigits).size(), 2U + kMostDigits);
    for (const int digits : {-1, kMostDigits + 1}) {
        EXPECT_THROW(formatAmount(pattern, Currency(), digits), RuntimeError) << digits;
    }
}

} // namespace
} // namespace orvan::icu
