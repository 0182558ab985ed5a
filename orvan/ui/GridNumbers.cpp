#include "orvan/ui/GridNumbers.h"

#include "orvan/ui/Grid.h"

#include <array>
#include <bit>
#include <optional>

namespace orvan::ui {

namespace {

/// Sizes are told apart by their bits, which are found faster than digits: this looks at each number of a long list.
constexpr std::size_t kSizes = 65;

std::optional<Currency> numberOf(const GridValue& value)
{
    if (const auto* const amount = std::get_if<Currency>(&value)) {
        return *amount;
    }
    if (const auto* const number = std::get_if<std::int32_t>(&value)) {
        return Currency::fromInteger(*number);
    }
    return std::nullopt;
}

std::size_t decimalsOf(std::uint64_t magnitude)
{
    if (magnitude % Currency::kScale == 0) {
        return 0;
    }
    std::size_t decimals = Currency::kDecimals;
    for (; magnitude % 10 == 0; magnitude /= 10) {
        --decimals;
    }
    return decimals;
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
    for (std::int32_t row = grid.fixedRows(); row < grid.rowCount(); ++row) {
        const std::optional<Currency> number = numberOf(grid.value(row, column));
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
