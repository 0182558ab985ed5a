// Text: UTF-8 counted and cut in characters, where a character is a Unicode code point.
//
// Bytes that are not UTF-8 count as one character each, so that any text can be cut and counted;
// a valid character is never split. Thread: any.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvan {

/// Bytes taken by the character that starts at text[at]; at must be less than text.size().
[[nodiscard]] std::size_t characterSize(std::string_view text, std::size_t at);

/// The character that starts at text[at], as a code point; U+FFFD for a byte that is not UTF-8.
[[nodiscard]] char32_t characterAt(std::string_view text, std::size_t at);

[[nodiscard]] std::size_t characterCount(std::string_view text);

/// The first `count` characters of text (all of it when it is shorter); a view into text.
[[nodiscard]] std::string_view firstCharacters(std::string_view text, std::size_t count);

/// A code point (up to 0x10FFFF) as text.
[[nodiscard]] std::string toUtf8(char32_t character);

} // namespace orvan
