// ShownAmounts: shows an amount in each way the library does and reads it back.
#pragma once

#include "orvan/core/modConversion.h"
#include "orvan/core/modLocale.h"
#include "orvan/ui/LocaleService.h"

#include <gtest/gtest.h>

#include <string>

namespace orvan {

struct LocaleTexts {
    explicit LocaleTexts(ui::LocaleService& locale) : symbol(GetCurrencySymbol(locale))
    {
        GetNumberSeparators(locale, monThousand, monDecimal, thousand, decimal);
    }

    std::string monThousand, monDecimal, thousand, decimal;
    std::string symbol;
};

inline void expectReadBack(ui::LocaleService& locale, const LocaleTexts& texts, Currency value)
{
    for (const bool shown : {true, false}) {
        const std::string money = FormatCurrencyValue(locale, value, 4, texts.symbol, shown);
        EXPECT_EQ(CurrencyTextToValue(locale, money, texts.monDecimal).toText(), value.toText()) << money;
        EXPECT_EQ(money.find(texts.symbol) != std::string::npos, shown) << money;
        const std::string percent = FormatPercentValue(locale, value, 4, shown);
        EXPECT_EQ(PercentTextToValue(locale, percent, texts.decimal).toText(), value.toText()) << percent;
    }
    const std::string number = FormatNumberValue(locale, value, 4);
    EXPECT_EQ(NumberTextToValue(locale, number, texts.decimal).toText(), value.toText()) << number;
}

} // namespace orvan
