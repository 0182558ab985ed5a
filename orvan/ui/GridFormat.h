// GridFormat: how a grid cell's value becomes the text that is painted.
//
// A display format is a number picture in the notation that spreadsheets use:
// text before and after the picture is literal, '0' is a digit that is always shown, '#' one shown
// when needed, ',' asks for grouping in threes, '.' starts the decimals. "$###,##0.00" shows
// 1234.5 as $1,234.50. The separators shown are the user's; the rest of the picture is not
// localised, the literal dollar sign included. Thread: a plain value.
#pragma once

#include "orvan/base/Currency.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace orvan::ui {

/// An empty cell, a whole number, an amount, or text.
using GridValue = std::variant<std::monostate, std::int32_t, Currency, std::string>;

/// The user's separators, for amounts shown in cells.
struct NumberSeparators {
    std::string thousands = ",";
    std::string decimal = ".";
};

class GridFormat {
public:
    /// No format: amounts show the decimals they have ("2.5"), ungrouped; text as it stands.
    GridFormat() = default;
    explicit GridFormat(std::string_view picture);

    /// Amounts and whole numbers follow the picture, rounded half away from zero; a negative amount that rounds to
    /// zero keeps its sign, as in the boxes. Text is returned as it stands.
    [[nodiscard]] std::string display(const GridValue& value, const NumberSeparators& separators) const;

private:
    std::string displayAmount(Currency value, const NumberSeparators& separators) const;

    std::string prefix_;
    std::string suffix_;
    std::size_t integerDigits_ = 1; ///< At least this many are shown.
    int leastDecimals_ = 0;
    int mostDecimals_ = Currency::kDecimals;
    bool grouped_ = false;
};

} // namespace orvan::ui
