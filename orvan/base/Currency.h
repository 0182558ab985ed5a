// Currency: an exact amount with four decimals, in a signed 64-bit count of ten-thousandths.
//
// Range: -922337203685477.5808 to 922337203685477.5807. Every operation is checked: a result that
// does not fit raises error 6 (overflow) and never wraps. A result with more than four decimals is
// rounded once, to the nearest amount, ties to even, so that sums of many lines do not drift.
// Thread: a plain value.
#pragma once

#include <compare>
#include <cstdint>
#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace orvan {

class Currency {
public:
    static constexpr int kDecimals = 4;
    static constexpr std::int64_t kScale = 10'000;
    /// By exponent: the units of the last of so many decimals that make one.
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
    /// Reads "-12.3456": an optional sign, digits, an optional '.' with digits; at least one digit
    /// and nothing else, in no locale. More than four decimals are rounded. Raises 13 (not a
    /// number) or 6.
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
    /// The nearest double up to 2^53 ten-thousandths; beyond, within one unit in the last place.
    double toDouble() const noexcept { return static_cast<double>(scaled_) / double(kScale); }
    /// The shortest text that fromText reads back as this amount: "12", "-0.5", "3.1416".
    [[nodiscard]] std::string toText() const;
    /// Large enough for any amount's text.
    using TextBuffer = char[24];
    /// The same text, in the buffer.
    [[nodiscard]] std::string_view toText(TextBuffer& buffer) const noexcept;

    /// Raises 6 for the least amount.
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
    /// Raises 11 when b is zero.
    friend Currency operator/(Currency a, Currency b);
    friend constexpr auto operator<=>(Currency, Currency) noexcept = default;

private:
    /// Never returns; typed so that it fits a conditional expression.
    [[noreturn]] static Currency raiseOverflow();
    /// As fromDouble, exactly and slowly, for every double: halves, large ones, infinities and NaN included.
    static Currency fromAnyDouble(double value);
    constexpr explicit Currency(std::int64_t scaled) noexcept : scaled_(scaled) {}

    std::int64_t scaled_ = 0;
};

} // namespace orvan
