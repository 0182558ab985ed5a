// Currency: an exact amount with four decimals, in a signed 64-bit count of ten-thousandths.
//
// Range: -922337203685477.5808 to 922337203685477.5807. Every operation is checked: a result that
// does not fit raises error 6 (overflow) and never wraps. A result with more than four decimals is
// rounded once, to the nearest amount, ties to even, so that sums of many lines do not drift.
// Thread: any; a Currency is a plain value.
#pragma once

#include "orvan/core_export.h"

#include <compare>
#include <cstdint>
#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace orvan {

class Currency;
// What stands outside a class leaves the shared library only if it is marked itself, even where it is a friend.
ORVAN_CORE_EXPORT Currency operator*(Currency a, Currency b);
/// Raises 11 when b is zero.
ORVAN_CORE_EXPORT Currency operator/(Currency a, Currency b);

class ORVAN_CORE_EXPORT Currency {
public:
    static constexpr int kDecimals = 4;
    static constexpr std::int64_t kScale = 10'000;
    /// kPowersOfTen[n] is 10 to the power of n: as many units of the n-th decimal make one whole.
    static constexpr std::uint64_t kPowersOfTen[] = {1, 10, 100, 1'000, 10'000};
    static_assert(kPowersOfTen[kDecimals] == kScale && std::size(kPowersOfTen) == kDecimals + 1);

    constexpr Currency() noexcept = default;

    /// From ten-thousandths: fromScaled(12'500) is 1.25.
    [[nodiscard]] static constexpr Currency fromScaled(std::int64_t tenThousandths) noexcept
    {
        return Currency(tenThousandths);
    }
    /// Raises 6 beyond the range.
    [[nodiscard]] static Currency fromInteger(std::int64_t value);
    /// The nearest amount to the double's exact value. Raises 6 for NaN, infinity and out of range.
    [[nodiscard]] static Currency fromDouble(double value);
    /// Reads a text such as "-12.3456": an optional sign, digits, and an optional '.' with digits after it. The text
    /// has at least one digit and nothing else, and its form does not depend on the locale. More than four decimals
    /// are rounded. Raises 13 for a text that is not a number, and 6 beyond the range.
    [[nodiscard]] static Currency fromText(std::string_view text);

    /// The amount whose toText() is exactly this, if there is one: none for "1.5000" or "007".
    [[nodiscard]] static std::optional<Currency> fromShortestText(std::string_view text) noexcept;

    constexpr std::int64_t scaled() const noexcept { return scaled_; }
    /// The ten-thousandths without their sign. Unsigned, because the least amount has no positive counterpart.
    constexpr std::uint64_t magnitude() const noexcept
    {
        const auto bits = static_cast<std::uint64_t>(scaled_);
        return scaled_ < 0 ? 0 - bits : bits;
    }
    /// The nearest double, for an amount of up to 2^53 ten-thousandths. For a larger amount the result can be wrong by
    /// one unit in the last binary place.
    double toDouble() const noexcept { return static_cast<double>(scaled_) / double(kScale); }
    /// The shortest text that fromText reads back as this amount: "12", "-0.5", "3.1416".
    [[nodiscard]] std::string toText() const;
    /// A buffer that is large enough for the text of any amount.
    using TextBuffer = char[24];
    /// The same text, written into the caller's buffer; the result is a view into it.
    [[nodiscard]] std::string_view toText(TextBuffer& buffer) const noexcept;
    /// The number of bytes of that text.
    [[nodiscard]] std::size_t textSize() const noexcept;

    /// Raises 6 for the least amount, which has no positive counterpart.
    Currency operator-() const;
    friend Currency operator+(Currency a, Currency b)
    {
        std::int64_t sum = 0;
        return __builtin_add_overflow(a.scaled_, b.scaled_, &sum) ? raiseOverflow() : Currency(sum);
    }
    friend Currency operator-(Currency a, Currency b)
    {
        std::int64_t difference = 0;
        return __builtin_sub_overflow(a.scaled_, b.scaled_, &difference) ? raiseOverflow() : Currency(difference);
    }
    friend Currency operator*(Currency a, Currency b);
    friend Currency operator/(Currency a, Currency b);
    friend constexpr auto operator<=>(Currency, Currency) noexcept = default;

private:
    /// Never returns. It is declared to return a Currency so that it can be an operand of a conditional expression.
    [[noreturn]] static Currency raiseOverflow();
    /// The slow and exact form of fromDouble for the doubles that the fast form cannot handle: halves, large numbers,
    /// infinities and NaN.
    static Currency fromAnyDouble(double value);
    constexpr explicit Currency(std::int64_t scaled) noexcept : scaled_(scaled) {}

    std::int64_t scaled_ = 0;
};

} // namespace orvan
