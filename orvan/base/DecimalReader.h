// DecimalReader: an amount from the digits of a text, for a caller that walks the text and knows its separators.
//
//     DecimalReader reader;   // then reader.digits(rest) at each run of digits, reader.point() between two runs
//     Currency amount = reader.result(negative);
//
// Digits after the fourth decimal only decide how the amount is rounded, ties to even. result() raises 6 beyond the
// range. Thread: any; a DecimalReader is a plain value.
#pragma once

#include "orvan/base/Currency.h"
#include "orvan/base/RuntimeError.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <utility>

namespace orvan {

class DecimalReader {
public:
    /// Takes the digits that the text begins with, and returns how many they are.
    [[nodiscard]] std::size_t digits(std::string_view text)
    {
        const std::size_t missing = pointSeen_ ? kDecimals - decimals_ : text.size();
        const std::size_t most = std::min(text.size(), missing);
        const auto digitAt = [&](std::size_t at) { return static_cast<unsigned char>(text[at] - '0'); };
        std::size_t taken = 0;
        std::uint64_t value = value_;
        for (; taken < most && digitAt(taken) <= 9 && value < kMostButOneDigit; ++taken) {
            value = value * 10 + digitAt(taken);
        }
        value_ = value;
        decimals_ += pointSeen_ ? static_cast<unsigned>(taken) : 0;
        for (; taken < text.size() && digitAt(taken) <= 9; ++taken) {
            drop(digitAt(taken));
        }
        anyDigit_ |= taken > 0;
        return taken;
    }

    /// Records the decimal separator; returns false if there has been one before.
    [[nodiscard]] bool point() { return !std::exchange(pointSeen_, true); }
    bool anyDigit() const { return anyDigit_; }

    /// The amount. To be called once, because it changes the reader. Raises 6 beyond the range.
    [[nodiscard]] Currency result(bool negative)
    {
        constexpr auto kMost = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
        tooLarge_ |= __builtin_mul_overflow(value_, Currency::kPowersOfTen[kDecimals - decimals_], &value_);
        const bool up = rounding_ > 5 || (rounding_ == 5 && (sticky_ || value_ % 2 != 0));
        value_ += up ? 1 : 0; // cannot wrap: rounding happens only after four decimals, when the factor above is 1
        if (tooLarge_ || value_ > kMost + (negative ? 1 : 0)) {
            throw RuntimeError(ErrorNumber::overflow);
        }
        return Currency::fromScaled(static_cast<std::int64_t>(negative ? 0 - value_ : value_));
    }

private:
    static constexpr unsigned kDecimals = Currency::kDecimals;
    /// A value from here on takes no further digit: ten times as much is beyond the range, wherever the decimal point
    /// is.
    static constexpr std::uint64_t kMostButOneDigit = 1'000'000'000'000'000'000;

    void drop(unsigned digit)
    {
        if (decimals_ < kDecimals) {
            tooLarge_ = true; // result() raises it, so that a text that is not a number raises that error instead
        } else if (!roundingSeen_) {
            roundingSeen_ = true;
            rounding_ = digit;
        } else {
            sticky_ = sticky_ || digit != 0;
        }
    }

    std::uint64_t value_ = 0;
    unsigned decimals_ = 0;
    unsigned rounding_ = 0;
    bool anyDigit_ = false;
    bool pointSeen_ = false;
    bool roundingSeen_ = false;
    bool sticky_ = false;
    bool tooLarge_ = false;
};

} // namespace orvan
