// PlainNumbers: decimal numbers read in the plainest way, to compare the library's readers with.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>

namespace orvan::fuzz {

inline bool plainDigits(std::string_view text)
{
    return text.find_first_not_of("0123456789") == text.npos;
}

inline std::string_view withoutBlanks(std::string_view text)
{
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) {
        text.remove_prefix(1);
    }
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) {
        text.remove_suffix(1);
    }
    return text;
}

/// What a text says as an amount.
struct PlainAmount {
    enum Kind { amount, tooLarge, noNumber };

    Kind kind = noNumber;
    std::int64_t scaled = 0; ///< Ten-thousandths, rounded to the nearest, ties to even.
};

/// Reads an optional sign, then digits with at most one point; there is at least one digit.
inline PlainAmount readPlainAmount(std::string_view text)
{
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    const std::size_t point = text.find('.');
    std::string integers(text.substr(0, point));
    const std::string decimals(point == text.npos ? std::string_view() : text.substr(point + 1));
    if (!plainDigits(integers) || !plainDigits(decimals) || integers.size() + decimals.size() == 0) {
        return {};
    }
    integers.erase(0, integers.find_first_not_of('0'));
    if (integers.size() > 15) { // the largest amount has 15 digits before the point
        return {.kind = PlainAmount::tooLarge};
    }
    std::uint64_t value = std::strtoull((integers + (decimals + "0000").substr(0, 4)).c_str(), nullptr, 10);
    if (decimals.size() > 4 && decimals[4] >= '5') {
        const bool tie = decimals[4] == '5' && decimals.find_first_not_of('0', 5) == decimals.npos;
        value += tie && value % 2 == 0 ? 0 : 1;
    }
    const std::uint64_t most = std::uint64_t{std::numeric_limits<std::int64_t>::max()} + (negative ? 1 : 0);
    if (value > most) {
        return {.kind = PlainAmount::tooLarge};
    }
    return {.kind = PlainAmount::amount, .scaled = static_cast<std::int64_t>(negative ? 0 - value : value)};
}

/// Whether the text is an amount in its shortest form, which is the only one that a products string may have.
inline bool isShortest(std::string_view text)
{
    const std::size_t point = text.find('.');
    std::string_view integers = text.substr(0, point);
    const bool negative = integers.starts_with('-');
    integers.remove_prefix(negative ? 1 : 0);
    const bool noDecimals = point == text.npos;
    const std::string_view decimals = noDecimals ? std::string_view() : text.substr(point + 1);
    if (integers.empty() || !plainDigits(integers) || (integers.size() > 1 && integers[0] == '0')) {
        return false;
    }
    if (!noDecimals && (decimals.empty() || decimals.size() > 4 || !plainDigits(decimals) || decimals.back() == '0')) {
        return false;
    }
    return text != "-0" && readPlainAmount(text).kind == PlainAmount::amount;
}

} // namespace orvan::fuzz
