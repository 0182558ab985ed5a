// Currency: an exact amount with four decimals, in a signed 64-bit count of ten-thousandths.
//
// Range: -922337203685477.5808 to 922337203685477.5807. Every operation is checked: a result that
// does not fit raises error 6 (overflow) and never wraps. Where a result has more than four
// decimals it is rounded once, to the nearest value, ties to even (so that
// sums of many lines do not drift). Thread: a plain value.
#pragma once

#include <compare>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace orvan {

class Currency {
public:
    static constexpr std::int64_t kScale = 10'000;

    constexpr Currency() noexcept = default;

    /// From ten-thousandths: fromScaled(12'500) is 1.25.
    static constexpr Currency fromScaled(std::int64_t tenThousandths) noexcept { return Currency(tenThousandths); }
    /// Raises 6 beyond the range.
    static Currency fromInteger(std::int64_t value);
    /// The nearest amount to the double's exact value. Raises 6 for NaN, infinity and out of range.
    static Currency fromDouble(double value);
    /// Reads "-12.3456": an optional sign, digits, an optional '.' with digits; at least one digit
    /// and nothing else, in no locale. More than four decimals are rounded. Raises 13 (not a
    /// number) or 6.
    static Currency fromText(std::string_view text);

    /// The amount whose toText() is exactly this, if there is one: none for "1.5000" or "007".
    static std::optional<Currency> fromShortestText(std::string_view text) noexcept;

    constexpr std::int64_t scaled() const noexcept { return scaled_; }
    /// The nearest double up to 2^53 ten-thousandths; beyond, within one unit in the last place.
    double toDouble() const noexcept { return static_cast<double>(scaled_) / double(kScale); }
    /// The shortest text that fromText reads back as this amount: "12", "-0.5", "3.1416".
    std::string toText() const;
    /// Room for any amount's text.
    using TextBuffer = char[24];
    /// The same text, in the buffer.
    std::string_view toText(TextBuffer& buffer) const noexcept;

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
    /// Returns nothing: always raises.
    [[noreturn]] static Currency raiseOverflow();
    /// For one on a half, too large for a fraction, or no number; exact for each.
    static Currency fromAnyDouble(double value);
    constexpr explicit Currency(std::int64_t scaled) noexcept : scaled_(scaled) {}

    std::int64_t scaled_ = 0;
};

} // namespace orvan
