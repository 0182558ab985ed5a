// modLocale and modConversion on a locale service with separators of any kind.
#include "ShownAmounts.h"
#include "base/RuntimeError.h"
#include "ui/icu/NumberPattern.h"

#include <map>

namespace orvan {
namespace {

using ui::LocaleItem;

class FakeLocale : public ui::LocaleService {
public:
    std::int32_t getLocaleInfo(std::int32_t lcid, LocaleItem item, std::span<char> buffer) override
    {
        asked.push_back(item);
        EXPECT_EQ(lcid, ui::kLocaleUserDefault);
        EXPECT_EQ(buffer.size(), 127U);
        if (raises) {
            throw std::runtime_error("gone");
        }
        const auto found = items.find(item);
        if (found == items.end() || found->second.size() >= buffer.size()) {
            return 0;
        }
        std::copy(found->second.begin(), found->second.end(), buffer.begin());
        return static_cast<std::int32_t>(found->second.size()) + 1;
    }
    std::string formatCurrency(Currency value, int digits) override { return formatNumber(value, digits); }
    std::string formatNumber(Currency value, int digits) override { return icu::formatAmount(pattern, value, digits); }
    Currency textToCurrency(std::string_view text) override
    {
        if (raises) {
            throw 42;
        }
        return icu::readAmount(text, pattern, pattern);
    }

    icu::NumberPattern pattern;
    std::map<LocaleItem, std::string> items = {{LocaleItem::decimalSeparator, "d"},
                                               {LocaleItem::thousandsSeparator, "\u00A0"},
                                               {LocaleItem::currencySymbol, "kr"},
                                               {LocaleItem::monetaryDecimalSeparator, "D"},
                                               {LocaleItem::monetaryThousandsSeparator, ""}};
    std::vector<LocaleItem> asked;
    bool raises = false;
};

TEST(ModLocale, EachItemThatCannotBeReadHasItsOwnDefault)
{
    const auto read = [](FakeLocale& locale) {
        const LocaleTexts texts(locale);
        return texts.monThousand + '|' + texts.monDecimal + '|' + texts.thousand + '|' + texts.decimal + '|' +
               texts.symbol;
    };
    struct Row {
        LocaleItem failing;
        const char* texts;
    };
    for (const Row& row : {Row{LocaleItem::monetaryThousandsSeparator, ",|D|\u00A0|d|kr"},
                           Row{LocaleItem::monetaryDecimalSeparator, "|.|\u00A0|d|kr"},
                           Row{LocaleItem::thousandsSeparator, "|D|,|d|kr"},
                           Row{LocaleItem::decimalSeparator, "|D|\u00A0|.|kr"},
                           Row{LocaleItem::currencySymbol, "|D|\u00A0|d|,"}}) {
        FakeLocale locale;
        EXPECT_EQ(read(locale), "|D|\u00A0|d|kr");
        locale.items[row.failing] = std::string(126, 'x');
        EXPECT_NE(read(locale).find(std::string(126, 'x')), std::string::npos) << "fits with its null";
        locale.items[row.failing] += 'x';
        EXPECT_EQ(read(locale), row.texts) << "does not fit";
        locale.items.erase(row.failing);
        EXPECT_EQ(read(locale), row.texts) << "unknown";
    }
    FakeLocale raising;
    raising.raises = true;
    EXPECT_EQ(read(raising), ",|.|,|.|,");
    EXPECT_EQ(raising.asked, (std::vector{LocaleItem::currencySymbol, LocaleItem::monetaryThousandsSeparator,
                                          LocaleItem::monetaryDecimalSeparator, LocaleItem::thousandsSeparator,
                                          LocaleItem::decimalSeparator}));
}

TEST(ModConversion, WholeAmountsHaveNoDecimalsAndOthersExactlyThoseAskedFor)
{
    struct Row {
        const char* value;
        std::int16_t digits;
        const char* number;
    };
    FakeLocale locale;
    for (const Row& row : {Row{"0", 2, "0"}, Row{"3", 4, "3"}, Row{"3.25", 4, "3.2500"}, Row{"12", 2, "12"},
                           Row{"12.5", 2, "12.50"}, Row{"-12", 2, "-12"}, Row{"-1234.5", 2, "-1,234.50"},
                           Row{"0.5", 0, "1"}, Row{"-0.5", 0, "-1"}, Row{"1.2345", 2, "1.23"}, Row{"1.005", 2, "1.01"},
                           Row{"0.9999", 2, "1.00"}, Row{"-0.0001", 2, "-0.00"}}) {
        const Currency value = Currency::fromText(row.value);
        EXPECT_EQ(FormatNumberValue(locale, value, row.digits), row.number) << row.value;
        EXPECT_EQ(FormatCurrencyValue(locale, value, row.digits, "", false), row.number) << row.value;
        EXPECT_EQ(FormatPercentValue(locale, value, row.digits, false), row.number) << row.value;
        EXPECT_EQ(FormatPercentValue(locale, value, row.digits, true), std::string(row.number) + "%") << row.value;
    }
    EXPECT_THROW(FormatNumberValue(locale, Currency::fromScaled(1), -1), RuntimeError);
}

TEST(ModConversion, TheSymbolAloneIsTakenOutWhereverItStands)
{
    struct Row {
        icu::NumberPattern pattern;
        const char *symbol, *hidden, *shown;
    };
    for (const Row& row : {
             Row{{.positivePrefix = "$"}, "$", "1,234.50", "$1,234.50"},
             Row{{.positivePrefix = "$"}, ",", "$1234.50", "$1,234.50"}, // the symbol could not be read
             Row{{.positivePrefix = "$"}, "", "$1,234.50", "$1,234.50"},
             Row{{.positivePrefix = "Kr ", .positiveSuffix = "\u00A0kr"}, "kr", "Kr 1,234.50\u00A0",
                 "Kr 1,234.50\u00A0kr"},
             Row{{.positivePrefix = "(xxyy", .positiveSuffix = " xy)"}, "xy", "(xy1,234.50 )", "(xxyy1,234.50 xy)"},
         }) {
        FakeLocale locale;
        locale.pattern = row.pattern;
        const Currency value = Currency::fromText("1234.5");
        EXPECT_EQ(FormatCurrencyValue(locale, value, 2, row.symbol, false), row.hidden);
        EXPECT_EQ(FormatCurrencyValue(locale, value, 2, row.symbol, true), row.shown);
    }
}

TEST(ModConversion, TypedTextIsItsDigitsAndDecimalSeparators)
{
    struct Row {
        const char* decimal; // the service's own, and the caller's
        const char *text, *value;
    };
    for (const Row& row : {
             Row{".", "-5", "5"}, Row{".", "1,234.50", "1234.5"}, Row{".", "12.5%", "12.5"}, Row{".", "", "0"},
             Row{".", "abc", "0"}, Row{".", "1.2.3", "0"}, Row{".", ".", "0"}, Row{".", "1.00005", "1"},
             Row{".", "$ 1 2 . 5 0", "12.5"}, Row{".", "922337203685477.5808", "0"},
             Row{".", "922337203685477.5807", "922337203685477.5807"},
             Row{",", "1.234,5 €", "1234.5"}, Row{",", "1.5", "15"}, Row{"", "1.5", "15"},
             Row{"::", "1::5", "15"},                  // two characters match none
             Row{"·", "1·5", "1.5"}, Row{"\u00A0", "1\u00A05", "1.5"}, // one character, two bytes
             Row{"\xA0", "1\u00A05", "15"},            // a byte of a character is none
             Row{".", "٣.٥", "0"},                      // only 0 to 9 are digits
         }) {
        FakeLocale locale;
        locale.pattern.decimalSeparator = row.decimal;
        locale.pattern.groupSeparator = "";
        EXPECT_EQ(CurrencyTextToValue(locale, row.text, row.decimal).toText(), row.value) << row.text;
        EXPECT_EQ(NumberTextToValue(locale, row.text, row.decimal).toText(), row.value) << row.text;
        EXPECT_EQ(PercentTextToValue(locale, row.text, row.decimal).toText(), row.value) << row.text;
        locale.raises = true;
        EXPECT_EQ(CurrencyTextToValue(locale, row.text, row.decimal).toText(), "0") << "whatever is thrown";
    }
}

} // namespace
} // namespace orvan
