// Ascii: questions about single bytes of a text, the same in every locale.
//
// Thread: any.
#pragma once

#include <algorithm>
#include <string_view>

namespace orvan {

[[nodiscard]] constexpr bool isDigit(char c) noexcept
{
    return c >= '0' && c <= '9';
}

[[nodiscard]] constexpr bool isAscii(char c) noexcept
{
    return static_cast<unsigned char>(c) < 0x80;
}

[[nodiscard]] constexpr bool isAscii(std::string_view text) noexcept
{
    return std::all_of(text.begin(), text.end(), [](char c) { return isAscii(c); });
}

/// The text without the given characters at either end; a view into text.
[[nodiscard]] constexpr std::string_view trimmed(std::string_view text, std::string_view blanks = " \t") noexcept
{
    const auto first = text.find_first_not_of(blanks);
    return first == text.npos ? std::string_view() : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

} // namespace orvan
