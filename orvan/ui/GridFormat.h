// GridFormat: how a grid cell's value becomes the text that is painted.
//
// A display format is a number picture in the notation that spreadsheets use:
// text before and after the picture is literal, '0' is a digit that is always shown, '#' one shown
// when needed, ',' asks for grouping in threes, '.' starts the decimals. "$###,##0.00" shows
// 1234.5 as $1,234.50. The separators shown are the user's; the rest of the picture is not
// localised, the literal dollar sign included. Thread: any; a GridFormat is a plain value.
#pragma once

#include "orvan/base/Currency.h"
#include "orvan/base/SafeVariant.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace orvan::ui {

/// An empty cell, a whole number, an amount, or text.
using GridValue = SafeVariant<std::monostate, std::int32_t, Currency, std::string>;

/// A GridValue whose text stands elsewhere.
struct GridValueView : std::variant<std::monostate, std::int32_t, Currency, std::string_view> {
    using variant::variant;
    GridValueView(const GridValue& value) : variant(std::visit([](const auto& each) { return variant(each); }, value))
    {
    }
};

/// The user's separators, for amounts shown in cells.
struct NumberSeparators {
    std::string thousands = ",";
    std::string decimal = ".";
};

class GridFormat {
public:
    /// The format without a picture: an amount is shown ungrouped with the decimals that it has ("2.5").
    GridFormat() = default;
    explicit GridFormat(std::string_view picture);

    /// The text that is shown for a value. Numbers are rounded half away from zero to the decimals of the picture, and
    /// a negative amount that is rounded to zero keeps its sign, as in the editor's boxes; text is returned unchanged.
    [[nodiscard]] std::string display(const GridValue& value, const NumberSeparators& separators) const;

private:
    std::string displayAmount(Currency value, const NumberSeparators& separators) const;

    std::string prefix_;
    std::string suffix_;
    std::size_t integerDigits_ = 1; ///< The least number of digits before the decimal separator.
    int leastDecimals_ = 0;
    int mostDecimals_ = Currency::kDecimals;
    bool grouped_ = false;
};

} // namespace orvan::ui
