#include "orvan/ui/GridNumbers.h"

#include "orvan/ui/Grid.h"

#include <array>
#include <bit>
#include <cstdint>
#include <optional>
#include <span>

namespace orvan::ui {

namespace {

// A long list has hundreds of thousands of numbers, and each is looked at whenever the list is shown. Sizes are
// therefore told apart by their bits instead of their digits, and the count of decimals is looked up.
constexpr std::size_t kSizes = 65;

/// How many digits of a number below 100, which is written with two digits, are left without the zeros at its end.
constexpr auto kDigitsOf = [] {
    std::array<std::uint8_t, 100> digits{};
    for (std::size_t number = 1; number < digits.size(); ++number) {
        digits[number] = number % 10 == 0 ? 1 : 2;
    }
    return digits;
}();

/// The count of decimals of an amount in ten-thousandths.
std::size_t decimalsOf(std::uint64_t magnitude)
{
    static_assert(Currency::kDecimals == 4);
    const std::uint64_t last = magnitude % 100;
    return last != 0 ? 2U + kDigitsOf[last] : kDigitsOf[magnitude / 100 % 100];
}

/// A number of one shape: sign, size and decimals.
struct NumberShape {
    std::int32_t row = -1; ///< -1: the column has no number of this shape.
    std::uint64_t magnitude = 0;
};

} // namespace

std::vector<std::string> longestNumbers(const Grid& grid, std::int32_t column)
{
    std::vector<std::string> texts;
    if (grid.columnType(column) == GridType::string) {
        return texts;
    }
    std::array<NumberShape, 2 * kSizes*(Currency::kDecimals + 1)> shapes;
    const std::span<const GridCell> cells = grid.cells(column);
    for (std::int32_t row = grid.fixedRows(); row < grid.rowCount(); ++row) {
        const std::optional<Currency> number = cells[static_cast<std::size_t>(row)].number();
        if (!number) {
            continue;
        }
        const std::uint64_t magnitude = number->magnitude();
        const std::size_t sign = number->scaled() < 0 ? 1 : 0;
        const auto size = static_cast<std::size_t>(std::bit_width(magnitude));
        const std::size_t place = (size * (Currency::kDecimals + 1) + decimalsOf(magnitude)) * 2 + sign;
        // The greatest of each shape, because a picture with fewer decimals may round it up to one more digit.
        if (NumberShape& shape = shapes[place]; shape.row < 0 || magnitude > shape.magnitude) {
            shape = {row, magnitude};
        }
    }
    for (const NumberShape& shape : shapes) {
        if (shape.row >= 0) {
            texts.push_back(grid.displayText(shape.row, column));
        }
    }
    return texts;
}

} // namespace orvan::ui
