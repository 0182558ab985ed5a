#include "orvan/base/Integer.h"

#include "orvan/base/RuntimeError.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace orvan {

namespace {

std::string_view withoutBlanks(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t");
    return first == text.npos ? std::string_view() : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// What follows a sign must look like a number: from_chars would also read "inf" and "nan".
bool startsLikeANumber(std::string_view digits)
{
    return !digits.empty() && (digits[0] == '.' || (digits[0] >= '0' && digits[0] <= '9'));
}

} // namespace

std::int32_t textToInteger32(std::string_view text)
{
    std::string_view digits = withoutBlanks(text);
    const bool negative = digits.starts_with('-');
    if (negative || digits.starts_with('+')) {
        digits.remove_prefix(1);
    }
    double value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (!startsLikeANumber(digits) || error == std::errc::invalid_argument || end != digits.data() + digits.size()) {
        throw RuntimeError(ErrorNumber::typeMismatch, {}, "\"" + std::string(text) + "\" is not a number");
    }
    const double rounded = std::nearbyint(negative ? -value : value);
    if (error == std::errc::result_out_of_range || rounded > std::numeric_limits<std::int32_t>::max() ||
        rounded < std::numeric_limits<std::int32_t>::min()) {
        throw RuntimeError(ErrorNumber::overflow, {}, "\"" + std::string(text) + "\" does not fit 32 bits");
    }
    return static_cast<std::int32_t>(rounded);
}

} // namespace orvan
