// modLocale and modConversion on a locale service with separators of any kind.
#include "ShownAmounts.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/ui/icu/NumberPattern.h"
#include "tests/support/Rows.h"

#include <map>

namespace orvan {
namespace {

using test::Rows;
using ui::LocaleItem;

class FakeLocale : public ui::LocaleService {
public:
    std::int32_t getLocaleInfo(std::int32_t lcid, LocaleItem item, std::span<char> buffer) override
    {
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
    void appendCurrency(std::string& text, Currency value, int digits) override { appendNumber(text, value, digits); }
    void appendNumber(std::string& text, Currency value, int digits) override
    {
        icu::appendAmount(text, pattern, value, digits);
    }
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
    bool raises = false;
};

TEST(ModLocale, EachItemThatCannotBeReadHasItsOwnDefault)
{
    const auto read = [](FakeLocale& locale) {
        const LocaleTexts texts(locale);
        return texts.monThousand + '|' + texts.monDecimal + '|' + texts.thousand + '|' + texts.decimal + '|' +
               texts.symbol;
    };
    for (const auto& [failing, texts] :
         Rows<LocaleItem, const char*>{{LocaleItem::monetaryThousandsSeparator, ",|D|\u00A0|d|kr"},
                                       {LocaleItem::monetaryDecimalSeparator, "|.|\u00A0|d|kr"},
                                       {LocaleItem::thousandsSeparator, "|D|,|d|kr"},
                                       {LocaleItem::decimalSeparator, "|D|\u00A0|.|kr"},
                                       {LocaleItem::currencySymbol, "|D|\u00A0|d|,"}}) {
        FakeLocale locale;
        EXPECT_EQ(read(locale), "|D|\u00A0|d|kr");
        locale.items[failing] = std::string(126, 'x');
        EXPECT_NE(read(locale).find(std::string(126, 'x')), std::string::npos) << "fits with its null";
        locale.items[failing] += 'x';
        EXPECT_EQ(read(locale), texts) << "does not fit";
        locale.items.erase(failing);
        EXPECT_EQ(read(locale), texts) << "unknown";
    }
    FakeLocale raising;
    raising.raises = true;
    EXPECT_EQ(read(raising), ",|.|,|.|,");
}

TEST(ModConversion, WholeAmountsHaveNoDecimalsAndOthersExactlyThoseAskedFor)
{
    FakeLocale locale;
    for (const auto& [value, digits, number] : Rows<const char*, std::int16_t, const char*>{{"0", 2, "0"},
                                                                                            {"3", 4, "3"},
                                                                                            {"3.25", 4, "3.2500"},
                                                                                            {"12", 2, "12"},
                                                                                            {"12.5", 2, "12.50"},
                                                                                            {"-12", 2, "-12"},
                                                                                            {"-1234.5", 2, "-1,234.50"},
                                                                                            {"0.5", 0, "1"},
                                                                                            {"-0.5", 0, "-1"},
                                                                                            {"1.2345", 2, "1.23"},
                                                                                            {"1.005", 2, "1.01"},
                                                                                            {"0.9999", 2, "1.00"},
                                                                                            {"-0.0001", 2, "-0.00"}}) {
        const Currency amount = Currency::fromText(value);
        EXPECT_EQ(FormatNumberValue(locale, amount, digits), number) << value;
        EXPECT_EQ(FormatCurrencyValue(locale, amount, digits, "", false), number) << value;
        EXPECT_EQ(FormatPercentValue(locale, amount, digits, false), number) << value;
        EXPECT_EQ(FormatPercentValue(locale, amount, digits, true), std::string(number) + "%") << value;
    }
    EXPECT_THROW(FormatNumberValue(locale, Currency::fromScaled(1), -1), RuntimeError);
    EXPECT_THROW(FormatNumberValue(locale, Currency::fromScaled(1), icu::kMostDigits + 1), RuntimeError);
}

TEST(ModConversion, TheSymbolAloneIsTakenOutWhereverItStands)
{
    for (const auto& [pattern, symbol, hidden, shown] : Rows<icu::NumberPattern, const char*, const char*, const char*>{
             {{.positivePrefix = "$"}, "$", "1,234.50", "$1,234.50"},
             {{.positivePrefix = "$"}, ",", "$1234.50", "$1,234.50"}, // the symbol could not be read
             {{.positivePrefix = "$"}, "", "$1,234.50", "$1,234.50"},
             {{.positivePrefix = "Kr ", .positiveSuffix = "\u00A0kr"},
              "kr",
              "Kr 1,234.50\u00A0",
              "Kr 1,234.50\u00A0kr"},
             {{.positivePrefix = "(xxyy", .positiveSuffix = " xy)"}, "xy", "(xy1,234.50 )", "(xxyy1,234.50 xy)"}}) {
        FakeLocale locale;
        locale.pattern = pattern;
        const Currency value = Currency::fromText("1234.5");
        EXPECT_EQ(FormatCurrencyValue(locale, value, 2, symbol, false), hidden);
        EXPECT_EQ(FormatCurrencyValue(locale, value, 2, symbol, true), shown);
    }
}

TEST(ModConversion, TypedTextIsItsDigitsAndDecimalSeparators)
{
    for (const auto& [decimal, text, value] : Rows<const char*, const char*, const char*>{
             {".", "-5", "5"},
             {".", "1,234.50", "1234.5"},
             {".", "12.5%", "12.5"},
             {".", "", "0"},
             {".", "abc", "0"},
             {".", "1.2.3", "0"},
             {".", ".", "0"},
             {".", "1.00005", "1"},
             {".", "$ 1 2 . 5 0", "12.5"},
             {".", "922337203685477.5808", "0"},
             {".", "922337203685477.5807", "922337203685477.5807"},
             {",", "1.234,5 €", "1234.5"},
             {",", "1.5", "15"},
             {"", "1.5", "15"},
             {"::", "1::5", "15"}, // two characters match none
             {"·", "1·5", "1.5"},
             {"\u00A0", "1\u00A05", "1.5"}, // one character, two bytes
             {"\xA0", "1\u00A05", "15"},    // a byte of a character is none
             {".", "٣.٥", "0"},             // only 0 to 9 are digits
         }) {
        FakeLocale locale;
        locale.pattern.decimalSeparator = decimal;
        locale.pattern.groupSeparator = "";
        EXPECT_EQ(CurrencyTextToValue(locale, text, decimal).toText(), value) << text;
        EXPECT_EQ(NumberTextToValue(locale, text, decimal).toText(), value) << text;
        EXPECT_EQ(PercentTextToValue(locale, text, decimal).toText(), value) << text;
        locale.raises = true;
        EXPECT_EQ(CurrencyTextToValue(locale, text, decimal).toText(), "0") << "whatever is thrown";
    }
}

} // namespace
} // namespace orvan
