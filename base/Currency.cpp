#include "base/Currency.h"

#include "base/Int128.h"
#include "base/RuntimeError.h"

#include <charconv>
#include <cmath>

namespace orvan {

namespace {

[[noreturn]] void raiseOverflow()
{
    throw RuntimeError(ErrorNumber::overflow);
}

[[noreturn]] void raiseNotANumber(std::string_view text)
{
    throw RuntimeError(ErrorNumber::typeMismatch, {}, "\"" + std::string(text) + "\" is not a number");
}

Currency checked(Int128 scaled)
{
    if (scaled > std::numeric_limits<std::int64_t>::max() || scaled < std::numeric_limits<std::int64_t>::min()) {
        raiseOverflow();
    }
    return Currency::fromScaled(static_cast<std::int64_t>(scaled));
}

/// numerator / denominator to the nearest integer, ties to even.
Int128 divideToEven(Int128 numerator, Int128 denominator)
{
    const bool negative = (numerator < 0) != (denominator < 0);
    const auto n = static_cast<UInt128>(numerator < 0 ? -numerator : numerator);
    const auto d = static_cast<UInt128>(denominator < 0 ? -denominator : denominator);
    UInt128 quotient = n / d;
    const UInt128 rest = n % d;
    const UInt128 missing = d - rest;
    if (rest > missing || (rest == missing && quotient % 2 != 0)) {
        ++quotient;
    }
    const auto result = static_cast<Int128>(quotient);
    return negative ? -result : result;
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Text to ten-thousandths while it is walked: digits beyond the fourth decimal only round.
class DecimalReader {
public:
    void integerDigit(int digit) { append(digit); }

    void decimalDigit(int digit)
    {
        if (decimals_ < 4) {
            append(digit);
            ++decimals_;
        } else if (!roundingSeen_) {
            roundingSeen_ = true;
            rounding_ = digit;
        } else if (digit != 0) {
            sticky_ = true;
        }
    }

    Currency result(bool negative)
    {
        while (decimals_ < 4) {
            append(0);
            ++decimals_;
        }
        const bool up = rounding_ > 5 || (rounding_ == 5 && (sticky_ || value_ % 2 != 0));
        const Int128 magnitude = value_ + (up ? 1 : 0);
        return checked(negative ? -magnitude : magnitude);
    }

private:
    void append(int digit)
    {
        value_ = value_ * 10 + digit;
        if (value_ > (Int128{1} << 64)) {
            raiseOverflow(); // longer than any amount: stop before 128 bits are used up
        }
    }

    Int128 value_ = 0;
    int decimals_ = 0;
    int rounding_ = 0;
    bool roundingSeen_ = false;
    bool sticky_ = false;
};

} // namespace

Currency Currency::fromInteger(std::int64_t value)
{
    return checked(Int128{value} * kScale);
}

Currency Currency::fromDouble(double value)
{
    if (!std::isfinite(value)) {
        raiseOverflow();
    }
    // value = mantissa * 2^exponent exactly, so that the one rounding is the one to ten-thousandths.
    int exponent = 0;
    const double fraction = std::frexp(value, &exponent);
    const Int128 scaled = Int128{static_cast<std::int64_t>(std::ldexp(fraction, 53))} * kScale;
    exponent -= 53;
    if (exponent >= 0) {
        if (exponent > 10 && scaled != 0) {
            raiseOverflow();
        }
        return checked(scaled * (Int128{1} << exponent));
    }
    // Beyond 120 places even the largest mantissa is far below half a ten-thousandth.
    return exponent < -120 ? Currency() : checked(divideToEven(scaled, Int128{1} << -exponent));
}

Currency Currency::fromText(std::string_view text)
{
    std::size_t at = 0;
    const bool negative = !text.empty() && text[0] == '-';
    if (negative || (!text.empty() && text[0] == '+')) {
        ++at;
    }
    DecimalReader reader;
    bool anyDigit = false;
    for (; at < text.size() && isDigit(text[at]); ++at) {
        reader.integerDigit(text[at] - '0');
        anyDigit = true;
    }
    if (at < text.size() && text[at] == '.') {
        for (++at; at < text.size() && isDigit(text[at]); ++at) {
            reader.decimalDigit(text[at] - '0');
            anyDigit = true;
        }
    }
    if (!anyDigit || at != text.size()) {
        raiseNotANumber(text);
    }
    return reader.result(negative);
}

std::string Currency::toText() const
{
    const auto magnitude = scaled_ < 0 ? 0 - static_cast<std::uint64_t>(scaled_) : static_cast<std::uint64_t>(scaled_);
    char buffer[32];
    char* end = buffer;
    if (scaled_ < 0) {
        *end++ = '-';
    }
    end = std::to_chars(end, buffer + sizeof buffer, magnitude / kScale).ptr;
    auto decimals = static_cast<unsigned>(magnitude % kScale);
    if (decimals != 0) {
        *end++ = '.';
        for (unsigned place = kScale / 10; decimals != 0; place /= 10) {
            *end++ = static_cast<char>('0' + decimals / place);
            decimals %= place;
        }
    }
    return std::string(buffer, end);
}

Currency Currency::operator-() const
{
    return checked(-Int128{scaled_});
}

Currency operator+(Currency a, Currency b)
{
    return checked(Int128{a.scaled_} + b.scaled_);
}

Currency operator-(Currency a, Currency b)
{
    return checked(Int128{a.scaled_} - b.scaled_);
}

Currency operator*(Currency a, Currency b)
{
    return checked(divideToEven(Int128{a.scaled_} * b.scaled_, Currency::kScale));
}

Currency operator/(Currency a, Currency b)
{
    if (b.scaled_ == 0) {
        throw RuntimeError(ErrorNumber::divisionByZero);
    }
    return checked(divideToEven(Int128{a.scaled_} * Currency::kScale, b.scaled_));
}

} // namespace orvan
