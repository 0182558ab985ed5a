#include "orvan/base/Integer.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/RuntimeError.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>

namespace orvan {

namespace {

/// Removes the digits that `text` begins with, and returns them.
std::string_view takeDigits(std::string_view& text)
{
    const auto count = static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isDigit) - text.begin());
    const std::string_view digits = text.substr(0, count);
    text.remove_prefix(count);
    return digits;
}

/// Removes the character that `text` begins with if it is one of `wanted`, and returns it; else 0.
char takeOneOf(std::string_view wanted, std::string_view& text)
{
    if (text.empty() || wanted.find(text.front()) == wanted.npos) {
        return 0;
    }
    const char taken = text.front();
    text.remove_prefix(1);
    return taken;
}

/// The double nearest to a number such as "12", "1.5", ".5" or "25e-1"; nothing for any other text. A number that is
/// too large for a double becomes infinite, and deliberately so does one that is too close to 0: both are an overflow.
std::optional<double> readUnsignedNumber(std::string_view text)
{
    constexpr std::int64_t kFarthest = 1'000'000'000'000; // no text has enough digits to make up for a larger exponent
    std::string digits(takeDigits(text));
    std::int64_t exponent = 0;
    if (takeOneOf(".", text) != 0) {
        const std::string_view decimals = takeDigits(text);
        digits.append(decimals);
        exponent = -static_cast<std::int64_t>(decimals.size());
    }
    if (takeOneOf("eE", text) != 0) {
        const bool negative = takeOneOf("+-", text) == '-';
        const std::string_view places = takeDigits(text);
        if (places.empty()) {
            return std::nullopt;
        }
        std::int64_t power = 0;
        for (const char place : places) {
            power = std::min(power * 10 + (place - '0'), kFarthest);
        }
        exponent += negative ? -power : power;
    }
    if (digits.empty() || !text.empty()) {
        return std::nullopt;
    }
    // std::from_chars for double is missing in some standard libraries. std::strtod depends on the locale only by the
    // decimal separator, and the text that it is given here has none.
    const double value = std::strtod((digits + 'e').append(std::to_string(exponent)).c_str(), nullptr);
    const bool lost = value == 0 && digits.find_first_not_of('0') != digits.npos;
    return lost ? std::numeric_limits<double>::infinity() : value;
}

} // namespace

std::int32_t textToInteger32(std::string_view text)
{
    std::string_view number = trimmed(text);
    const bool negative = takeOneOf("+-", number) == '-';
    const std::optional<double> value = readUnsignedNumber(number);
    if (!value) {
        throw RuntimeError(ErrorNumber::typeMismatch, {}, userText("\"%1\" is not a number", text));
    }
    const double rounded = std::nearbyint(negative ? -*value : *value);
    if (rounded > std::numeric_limits<std::int32_t>::max() || rounded < std::numeric_limits<std::int32_t>::min()) {
        throw RuntimeError(ErrorNumber::overflow, {}, userText("\"%1\" does not fit 32 bits", text));
    }
    return static_cast<std::int32_t>(rounded);
}

} // namespace orvan
