// DecimalReader: an amount from its digits while a text is walked, for whoever knows the text's form.
//
//     DecimalReader reader;              reader.digit(d) for each digit, reader.point() between them
//     Currency amount = reader.result(negative);
//
// Digits beyond the fourth decimal only round, ties to even. Thread: a plain value.
#pragma once

#include "base/Currency.h"
#include "base/RuntimeError.h"

#include <cstdint>
#include <limits>
#include <utility>

namespace orvan {

class DecimalReader {
public:
    void digit(unsigned digit)
    {
        anyDigit_ = true;
        if (!pointSeen_) {
            append(10, digit);
        } else if (decimals_ < 4) {
            append(10, digit);
            ++decimals_;
        } else if (!roundingSeen_) {
            roundingSeen_ = true;
            rounding_ = digit;
        } else {
            sticky_ = sticky_ || digit != 0;
        }
    }

    /// False for a second one.
    bool point() { return !std::exchange(pointSeen_, true); }
    bool anyDigit() const { return anyDigit_; }

    /// Raises 6 beyond the range.
    Currency result(bool negative)
    {
        static constexpr unsigned kMissing[] = {10'000, 1'000, 100, 10, 1};
        append(kMissing[decimals_], 0);
        const bool up = rounding_ > 5 || (rounding_ == 5 && (sticky_ || value_ % 2 != 0));
        append(1, up ? 1 : 0);
        constexpr auto kMost = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
        if (overflow_ || value_ > kMost + (negative ? 1 : 0)) {
            throw RuntimeError(ErrorNumber::overflow);
        }
        return Currency::fromScaled(static_cast<std::int64_t>(negative ? 0 - value_ : value_));
    }

private:
    void append(unsigned factor, unsigned summand)
    {
        // The flags stay, so that the rest of the text is looked at before it is called too large.
        overflow_ |= __builtin_mul_overflow(value_, factor, &value_);
        overflow_ |= __builtin_add_overflow(value_, summand, &value_);
    }

    std::uint64_t value_ = 0;
    unsigned decimals_ = 0;
    unsigned rounding_ = 0;
    bool anyDigit_ = false;
    bool pointSeen_ = false;
    bool roundingSeen_ = false;
    bool sticky_ = false;
    bool overflow_ = false;
};

} // namespace orvan
