// modLocale and modConversion on a locale service with separators of any kind.
#include "ShownAmounts.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/ui/icu/NumberPattern.h"
#include "tests/support/Rows.h"

#include <map>

namespace orvan {
namespace {

using test::forEachRow;
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
    struct Row {
        const char* name;
        LocaleItem failing;
        const char* texts;
    };
    const Row rows[] = {
        {"monetary thousands", LocaleItem::monetaryThousandsSeparator, ",|D|\u00A0|d|kr"},
        {"monetary decimal", LocaleItem::monetaryDecimalSeparator, "|.|\u00A0|d|kr"},
        {"thousands", LocaleItem::thousandsSeparator, "|D|,|d|kr"},
        {"decimal", LocaleItem::decimalSeparator, "|D|\u00A0|.|kr"},
        {"symbol", LocaleItem::currencySymbol, "|D|\u00A0|d|,"},
    };
    forEachRow(rows, [&](const Row& row) {
        FakeLocale locale;
        EXPECT_EQ(read(locale), "|D|\u00A0|d|kr");
        locale.items[row.failing] = std::string(126, 'x');
        EXPECT_NE(read(locale).find(std::string(126, 'x')), std::string::npos) << "fits with its null";
        locale.items[row.failing] += 'x';
        EXPECT_EQ(read(locale), row.texts) << "does not fit";
        locale.items.erase(row.failing);
        EXPECT_EQ(read(locale), row.texts) << "unknown";
    });
    FakeLocale raising;
    raising.raises = true;
    EXPECT_EQ(read(raising), ",|.|,|.|,");
}

TEST(ModConversion, WholeAmountsHaveNoDecimalsAndOthersExactlyThoseAskedFor)
{
    FakeLocale locale;
    struct Row {
        const char* text;
        std::int16_t digits;
        const char* shown;
    };
    const Row rows[] = {
        {"0", 2, "0"},           {"3", 4, "3"},
        {"3.25", 4, "3.2500"},   {"12", 2, "12"},
        {"12.5", 2, "12.50"},    {"-12", 2, "-12"},
        {"0.5", 0, "1"},         {"-0.5", 0, "-1"},
        {"1.2345", 2, "1.23"},   {"-1234.5", 2, "-1,234.50"},
        {"1.005", 2, "1.01"},    {"0.9999", 2, "1.00"},
        {"-0.0001", 2, "-0.00"},
    };
    forEachRow(rows, [&](const Row& row) {
        const Currency amount = Currency::fromText(row.text);
        EXPECT_EQ(FormatNumberValue(locale, amount, row.digits), row.shown);
        EXPECT_EQ(FormatCurrencyValue(locale, amount, row.digits, "", false), row.shown);
        EXPECT_EQ(FormatPercentValue(locale, amount, row.digits, false), row.shown);
        EXPECT_EQ(FormatPercentValue(locale, amount, row.digits, true), std::string(row.shown) + "%");
    });
    EXPECT_THROW(static_cast<void>(FormatNumberValue(locale, Currency::fromScaled(1), -1)), RuntimeError);
    EXPECT_THROW(static_cast<void>(FormatNumberValue(locale, Currency::fromScaled(1), icu::kMostDigits + 1)),
                 RuntimeError);
}

TEST(ModConversion, TheSymbolAloneIsTakenOutWhereverItStands)
{
    struct Row {
        const char* name;
        icu::NumberPattern pattern;
        const char *symbol, *hidden, *shown;
    };
    const icu::NumberPattern dollar{.positivePrefix = "$"};
    const icu::NumberPattern twice{.positivePrefix = "Kr ", .positiveSuffix = "\u00A0kr"};
    const icu::NumberPattern parts{.positivePrefix = "(xxyy", .positiveSuffix = " xy)"};
    // clang-format off
    const Row rows[] = {
        {.name = "in front", .pattern = dollar, .symbol = "$", .hidden = "1,234.50", .shown = "$1,234.50"},
        {.name = "could not be read", .pattern = dollar, .symbol = ",", .hidden = "$1234.50", .shown = "$1,234.50"},
        {.name = "empty", .pattern = dollar, .symbol = "", .hidden = "$1,234.50", .shown = "$1,234.50"},
        {.name = "behind, with its case", .pattern = twice, .symbol = "kr", .hidden = "Kr 1,234.50\u00A0",
         .shown = "Kr 1,234.50\u00A0kr"},
        {.name = "comes together once", .pattern = parts, .symbol = "xy", .hidden = "(xy1,234.50 )",
         .shown = "(xxyy1,234.50 xy)"},
    };
    // clang-format on
    forEachRow(rows, [](const Row& row) {
        FakeLocale locale;
        locale.pattern = row.pattern;
        const Currency value = Currency::fromText("1234.5");
        EXPECT_EQ(FormatCurrencyValue(locale, value, 2, row.symbol, false), row.hidden);
        EXPECT_EQ(FormatCurrencyValue(locale, value, 2, row.symbol, true), row.shown);
    });
}

TEST(ModConversion, TypedTextIsItsDigitsAndDecimalSeparators)
{
    struct Row {
        const char *decimal, *text, *value;
    };
    const Row rows[] = {
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
    };
    forEachRow(rows, [](const Row& row) {
        FakeLocale locale;
        locale.pattern.decimalSeparator = row.decimal;
        locale.pattern.groupSeparator = "";
        EXPECT_EQ(CurrencyTextToValue(locale, row.text, row.decimal).toText(), row.value);
        EXPECT_EQ(NumberTextToValue(locale, row.text, row.decimal).toText(), row.value);
        EXPECT_EQ(PercentTextToValue(locale, row.text, row.decimal).toText(), row.value);
        locale.raises = true;
        EXPECT_EQ(CurrencyTextToValue(locale, row.text, row.decimal).toText(), "0") << "whatever is thrown";
    });
}

} // namespace
} // namespace orvan
