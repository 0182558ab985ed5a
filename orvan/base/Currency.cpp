#include "orvan/base/Currency.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/DecimalReader.h"
#include "orvan/base/Int128.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/base/ShortestText.h"

#include <charconv>
#include <cmath>

namespace orvan {

namespace {

[[noreturn]] void raiseNotANumber(std::string_view text)
{
    throw RuntimeError(ErrorNumber::typeMismatch, {}, userText("\"%1\" is not a number", text));
}

Currency checked(Int128 scaled)
{
    if (scaled > std::numeric_limits<std::int64_t>::max() || scaled < std::numeric_limits<std::int64_t>::min()) {
        throw RuntimeError(ErrorNumber::overflow);
    }
    return Currency::fromScaled(static_cast<std::int64_t>(scaled));
}

/// Rounds an integer division to the nearest integer, ties to even. `quotient` is the result that was rounded down, and
/// `rest` is the remainder.
template <class Unsigned>
Unsigned rounded(Unsigned quotient, Unsigned rest, Unsigned divisor)
{
    const Unsigned missing = divisor - rest;
    return quotient + (rest > missing || (rest == missing && quotient % 2 != 0) ? 1 : 0);
}

/// numerator / denominator to the nearest integer, ties to even.
template <class Signed, class Unsigned>
Signed divideToEven(Signed numerator, Signed denominator)
{
    const bool negative = (numerator < 0) != (denominator < 0);
    const auto n = numerator < 0 ? 0 - static_cast<Unsigned>(numerator) : static_cast<Unsigned>(numerator);
    const auto d = denominator < 0 ? 0 - static_cast<Unsigned>(denominator) : static_cast<Unsigned>(denominator);
    const auto result = static_cast<Signed>(rounded<Unsigned>(n / d, n % d, d));
    return negative ? -result : result;
}

} // namespace

Currency Currency::raiseOverflow()
{
    throw RuntimeError(ErrorNumber::overflow);
}

Currency Currency::fromInteger(std::int64_t value)
{
    return checked(Int128{value} * kScale);
}

Currency Currency::fromDouble(double value)
{
    // The product is wrong by at most half of its last binary place. Below 2^51 that error cannot carry it past a value
    // halfway between two integers; it can only land on such a value. So only those products, and larger ones, take
    // the exact way. Adding 1.5 * 2^52 and subtracting it again rounds to an integer without a function call, because
    // a double of that size has no bits for a fraction.
    constexpr double kNoFraction = 6'755'399'441'055'744.0;
    constexpr double kHalvesExact = 2'251'799'813'685'248.0; // 2^51
    const double product = value * double(kScale);
    const double nearest = (product + kNoFraction) - kNoFraction;
    if (std::abs(product) < kHalvesExact && std::abs(product - nearest) != 0.5) {
        return Currency(static_cast<std::int64_t>(nearest));
    }
    return fromAnyDouble(value);
}

Currency Currency::fromAnyDouble(double value)
{
    if (!std::isfinite(value)) {
        raiseOverflow();
    }
    // value is exactly mantissa * 2^exponent, so that the only rounding is the one to ten-thousandths.
    int exponent = 0;
    const double fraction = std::frexp(std::abs(value), &exponent);
    const UInt128 scaled = UInt128{static_cast<std::uint64_t>(std::ldexp(fraction, 53))} * kScale;
    exponent -= 53;
    if (exponent > 10 && scaled != 0) {
        raiseOverflow();
    }
    // With an exponent below -120 even the largest mantissa is far less than half a ten-thousandth: the amount is 0.
    Int128 magnitude = 0;
    if (exponent >= 0) {
        magnitude = static_cast<Int128>(scaled << exponent);
    } else if (exponent >= -120) {
        const UInt128 divisor = UInt128{1} << -exponent;
        magnitude = static_cast<Int128>(rounded<UInt128>(scaled >> -exponent, scaled & (divisor - 1), divisor));
    }
    return checked(value < 0 ? -magnitude : magnitude);
}

Currency Currency::fromText(std::string_view text)
{
    std::size_t at = 0;
    const bool negative = !text.empty() && text[0] == '-';
    if (negative || (!text.empty() && text[0] == '+')) {
        ++at;
    }
    DecimalReader reader;
    for (; (at += reader.digits(text.substr(at))) < text.size(); ++at) {
        if (text[at] != '.' || !reader.point()) {
            raiseNotANumber(text);
        }
    }
    if (!reader.anyDigit()) {
        raiseNotANumber(text);
    }
    return reader.result(negative);
}

std::optional<Currency> Currency::fromShortestText(std::string_view text) noexcept
{
    Currency amount;
    return readShortestText(text, amount) ? std::optional(amount) : std::nullopt;
}

bool readShortestText(std::string_view text, Currency& amount) noexcept
{
    // This does not use DecimalReader, because reading a products string spends most of its time here.
    const char* at = text.data();
    const char* const end = at + text.size();
    std::uint64_t magnitude = 0; // can wrap, but only with more digits than the checks below accept
    const auto takeDigits = [&] {
        const char* const begin = at;
        for (; at != end && isDigit(*at); ++at) {
            magnitude = magnitude * 10 + static_cast<std::uint64_t>(*at - '0');
        }
        return at - begin;
    };
    const bool negative = at != end && *at == '-';
    at += negative ? 1 : 0;
    const char* const first = at;
    const std::ptrdiff_t integerDigits = takeDigits();
    constexpr std::ptrdiff_t kMostIntegerDigits = 15; // as many as the largest amount has
    if (integerDigits == 0 || integerDigits > kMostIntegerDigits || (integerDigits > 1 && *first == '0')) {
        return false;
    }
    std::ptrdiff_t decimals = 0;
    if (at != end && *at == '.') {
        ++at;
        decimals = takeDigits();
        if (decimals == 0 || decimals > Currency::kDecimals || at[-1] == '0') {
            return false;
        }
    }
    magnitude *= Currency::kPowersOfTen[Currency::kDecimals - decimals]; // at most 19 digits, which fit 64 bits
    constexpr auto kMost = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    const bool isMinusZero = negative && magnitude == 0;
    if (at != end || isMinusZero || magnitude > kMost + (negative ? 1 : 0)) {
        return false;
    }
    amount = Currency::fromScaled(static_cast<std::int64_t>(negative ? 0 - magnitude : magnitude));
    return true;
}

std::string_view Currency::toText(TextBuffer& buffer) const noexcept
{
    char* end = buffer;
    if (scaled_ < 0) {
        *end++ = '-';
    }
    end = std::to_chars(end, buffer + sizeof buffer, magnitude() / kScale).ptr;
    auto decimals = static_cast<unsigned>(magnitude() % kScale);
    if (decimals != 0) {
        *end++ = '.';
        for (unsigned place = kScale / 10; decimals != 0; place /= 10) {
            *end++ = static_cast<char>('0' + decimals / place);
            decimals %= place;
        }
    }
    return {buffer, static_cast<std::size_t>(end - buffer)};
}

std::string Currency::toText() const
{
    TextBuffer buffer;
    return std::string(toText(buffer));
}

std::size_t Currency::textSize() const noexcept
{
    std::size_t size = scaled_ < 0 ? 2 : 1; // a sign, and the digit before the point
    for (std::uint64_t whole = magnitude() / kScale; whole >= 10; whole /= 10) {
        ++size;
    }
    const std::uint64_t decimals = magnitude() % kScale;
    if (decimals != 0) {
        size += 1 + (decimals % 10 != 0 ? 4 : decimals % 100 != 0 ? 3 : decimals % 1'000 != 0 ? 2 : 1);
    }
    return size;
}

Currency Currency::operator-() const
{
    return checked(-Int128{scaled_});
}

Currency operator*(Currency a, Currency b)
{
    std::int64_t product = 0;
    if (!__builtin_mul_overflow(a.scaled_, b.scaled_, &product)) { // nearly always; dividing 128 bits is slower
        return Currency::fromScaled(divideToEven<std::int64_t, std::uint64_t>(product, Currency::kScale));
    }
    return checked(divideToEven<Int128, UInt128>(Int128{a.scaled_} * b.scaled_, Currency::kScale));
}

Currency operator/(Currency a, Currency b)
{
    if (b.scaled_ == 0) {
        throw RuntimeError(ErrorNumber::divisionByZero);
    }
    return checked(divideToEven<Int128, UInt128>(Int128{a.scaled_} * Currency::kScale, b.scaled_));
}

} // namespace orvan
