// LocaleServiceConformance: the requirements on a locale service (orvan/ui/LocaleService.h), as tests. See
// Conformance.h.
#pragma once

#include "orvan/testing/Conformance.h"
#include "orvan/ui/LocaleService.h"

#include <algorithm>
#include <array>
#include <functional>
#include <limits>
#include <memory>
#include <span>
#include <string>

namespace orvan::conformance {

/// Makes a service of the kind that the host uses.
using LocaleServiceFactory = std::function<std::shared_ptr<ui::LocaleService>()>;

namespace locales {

inline constexpr std::size_t kBuffer = 127; // bytes, as the library offers

/// The item's text; raises 51 where the service does not give it.
inline std::string item(ui::LocaleService& service, ui::LocaleItem item)
{
    std::array<char, kBuffer> buffer{};
    if (service.getLocaleInfo(ui::kLocaleUserDefault, item, buffer) <= 0) {
        throw RuntimeError(ErrorNumber::internalError, {}, "The service does not give an item");
    }
    return buffer.data();
}

inline std::size_t digitsIn(const std::string& text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }));
}

/// The text as the library reads it back from a box: its digits and decimal separators.
inline std::string kept(const std::string& text, const std::string& decimal)
{
    std::string rest;
    for (std::size_t at = 0; at < text.size();) {
        if (!decimal.empty() && text.compare(at, decimal.size(), decimal) == 0) {
            rest += decimal;
            at += decimal.size();
        } else {
            rest += text[at] >= '0' && text[at] <= '9' ? text.substr(at, 1) : "";
            ++at;
        }
    }
    return rest;
}

using Make = LocaleServiceFactory;

inline constexpr Row<Make> kRows[] = {
    {"CountsTheNullAtTheEndOfAnItem",
     [](const Make& make) {
         std::array<char, kBuffer> buffer{};
         const std::int32_t count =
             make()->getLocaleInfo(ui::kLocaleUserDefault, ui::LocaleItem::decimalSeparator, buffer);
         EXPECT_EQ(count, static_cast<std::int32_t>(std::string(buffer.data()).size()) + 1);
     }},
    {"ItemThatDoesNotFitGives0",
     [](const Make& make) {
         std::array<char, kBuffer> memory{};
         EXPECT_EQ(make()->getLocaleInfo(ui::kLocaleUserDefault, ui::LocaleItem::decimalSeparator,
                                         std::span<char>(memory).first(1)),
                   0);
     }},
    {"NothingIsWrittenBeyondTheBuffer",
     [](const Make& make) {
         std::array<char, kBuffer> memory{};
         memory.fill('x');
         const auto service = make();
         static_cast<void>(service->getLocaleInfo(ui::kLocaleUserDefault, ui::LocaleItem::decimalSeparator,
                                                  std::span<char>(memory).first(1)));
         EXPECT_EQ(memory[1], 'x');
     }},
    {"UnknownItemGives0",
     [](const Make& make) {
         std::array<char, kBuffer> buffer{};
         EXPECT_EQ(make()->getLocaleInfo(ui::kLocaleUserDefault, static_cast<ui::LocaleItem>(0x7FFF), buffer), 0);
     }},
    {"ThousandsSeparatorIsNoDigit",
     [](const Make& make) {
         const auto service = make();
         EXPECT_EQ(digitsIn(item(*service, ui::LocaleItem::thousandsSeparator)), 0U);
         EXPECT_EQ(digitsIn(item(*service, ui::LocaleItem::monetaryThousandsSeparator)), 0U);
     }},
    {"CurrencySymbolHasNoDigit",
     [](const Make& make) { EXPECT_EQ(digitsIn(item(*make(), ui::LocaleItem::currencySymbol)), 0U); }},
    {"NumberIsAppended",
     [](const Make& make) {
         std::string text = "before";
         make()->appendNumber(text, Currency::fromInteger(5), 0);
         EXPECT_EQ(text, "before5");
     }},
    {"MoneyIsAppended",
     [](const Make& make) {
         std::string text = "before";
         make()->appendCurrency(text, Currency::fromInteger(5), 0);
         EXPECT_TRUE(text.starts_with("before") && text.size() > 6) << text;
     }},
    {"DigitsAre0To9",
     [](const Make& make) { EXPECT_EQ(digitsIn(make()->formatNumber(Currency::fromInteger(678901234), 0)), 9U); }},
    {"NumberHasExactlyTheDecimals",
     [](const Make& make) {
         const auto service = make();
         EXPECT_EQ(digitsIn(service->formatNumber(Currency::fromInteger(7), 0)), 1U);
         EXPECT_EQ(digitsIn(service->formatNumber(Currency::fromInteger(7), 2)), 3U);
         EXPECT_EQ(digitsIn(service->formatNumber(Currency::fromInteger(7), 4)), 5U);
     }},
    {"MoneyHasExactlyTheDecimals",
     [](const Make& make) {
         const auto service = make();
         EXPECT_EQ(digitsIn(service->formatCurrency(Currency::fromInteger(7), 0)), 1U);
         EXPECT_EQ(digitsIn(service->formatCurrency(Currency::fromInteger(7), 2)), 3U);
     }},
    {"NumberRoundsHalvesAwayFromZero",
     [](const Make& make) {
         const auto service = make();
         EXPECT_EQ(service->formatNumber(Currency::fromText("2.5"), 0), "3");
         EXPECT_EQ(service->formatNumber(Currency::fromText("3.4999"), 0), "3");
     }},
    {"MoneyRoundsHalvesAwayFromZero",
     [](const Make& make) {
         const auto service = make();
         EXPECT_EQ(service->formatCurrency(Currency::fromText("0.125"), 2),
                   service->formatCurrency(Currency::fromText("0.13"), 2));
     }},
    {"NegativeMoneyLooksNegative",
     [](const Make& make) {
         const auto service = make();
         EXPECT_NE(service->formatCurrency(Currency::fromInteger(-8), 2),
                   service->formatCurrency(Currency::fromInteger(8), 2));
     }},
    {"NumberIsReadBack",
     [](const Make& make) {
         const auto service = make();
         const std::string decimal = item(*service, ui::LocaleItem::decimalSeparator);
         for (const char* const text : {"0.0001", "12.5", "1234567.8912", "922337203685477.5807"}) {
             const Currency value = Currency::fromText(text);
             EXPECT_EQ(service->textToCurrency(kept(service->formatNumber(value, 4), decimal)), value) << text;
         }
     }},
    {"MoneyIsReadBack",
     [](const Make& make) {
         const auto service = make();
         const std::string decimal = item(*service, ui::LocaleItem::monetaryDecimalSeparator);
         std::string symbol = item(*service, ui::LocaleItem::currencySymbol);
         for (const char* const amount : {"0.01", "12.5", "1234567.89"}) {
             const Currency value = Currency::fromText(amount);
             std::string text = service->formatCurrency(value, 2);
             if (const std::size_t at = text.find(symbol); !symbol.empty() && at != std::string::npos) {
                 text.erase(at, symbol.size()); // the box does not show it; it may have a point of its own
             }
             EXPECT_EQ(service->textToCurrency(kept(text, decimal)), value) << amount;
         }
     }},
    {"GroupedNumberIsReadWhole",
     [](const Make& make) {
         const auto service = make();
         const Currency value = Currency::fromText("7654321.25");
         EXPECT_EQ(service->textToCurrency(service->formatNumber(value, 4)), value);
     }},
    {"FifthDecimalIsRoundedToEven",
     [](const Make& make) {
         const auto service = make();
         const std::string zero = "0" + item(*service, ui::LocaleItem::decimalSeparator);
         EXPECT_EQ(service->textToCurrency(zero + "00025").toText(), "0.0002");
         EXPECT_EQ(service->textToCurrency(zero + "00035").toText(), "0.0004");
     }},
    {"TextThatIsNoAmountRaises13",
     [](const Make& make) {
         const auto service = make();
         for (const char* const text : {"", "abc", "1x"}) {
             EXPECT_EQ(errorOf([&] { service->textToCurrency(text); }), ErrorNumber::typeMismatch) << text;
         }
     }},
    {"SecondDecimalSeparatorRaises13",
     [](const Make& make) {
         const auto service = make();
         const std::string decimal = item(*service, ui::LocaleItem::decimalSeparator);
         EXPECT_EQ(errorOf([&] { service->textToCurrency("1" + decimal + "2" + decimal + "3"); }),
                   ErrorNumber::typeMismatch);
     }},
    {"AmountBeyondTheRangeRaises6",
     [](const Make& make) {
         EXPECT_EQ(errorOf([&] { make()->textToCurrency("922337203685478"); }), ErrorNumber::overflow);
     }},
    {"UpperAndLowerCaseFoldAlike",
     [](const Make& make) {
         const auto service = make();
         for (char32_t letter = U'a'; letter <= U'z'; ++letter) {
             EXPECT_EQ(service->foldCase(letter), service->foldCase(letter - U'a' + U'A')) << char(letter);
         }
     }},
    {"DifferentLettersFoldApart",
     [](const Make& make) {
         const auto service = make();
         EXPECT_NE(service->foldCase(U'a'), service->foldCase(U'b'));
         EXPECT_NE(service->foldCase(U'1'), service->foldCase(U'2'));
     }},
};

} // namespace locales

/// Makes the tests "<name>LocaleService.<row>".
inline std::size_t addLocaleServiceTests(const std::string& name, const LocaleServiceFactory& make)
{
    return addTests<LocaleServiceFactory>(name + "LocaleService", locales::kRows, make);
}

} // namespace orvan::conformance
