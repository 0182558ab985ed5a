// Text: UTF-8 counted and cut in characters, where a character is a Unicode code point.
//
// Bytes that are not UTF-8 count as one character each, so that any text can be cut and counted;
// a valid character is never split. Thread: any.
#pragma once

#include "orvan/core_export.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace orvan {

/// Bytes taken by the character that starts at text[at]; at must be less than text.size().
[[nodiscard]] ORVAN_CORE_INTERNAL std::size_t characterSize(std::string_view text, std::size_t at);

/// The character that starts at text[at], as a code point; U+FFFD for a byte that is not UTF-8.
[[nodiscard]] ORVAN_CORE_INTERNAL char32_t characterAt(std::string_view text, std::size_t at);

[[nodiscard]] ORVAN_CORE_INTERNAL std::size_t characterCount(std::string_view text);

/// The first `count` characters of text (all of it when it is shorter); a view into text.
[[nodiscard]] ORVAN_CORE_INTERNAL std::string_view firstCharacters(std::string_view text, std::size_t count);

/// A code point (up to 0x10FFFF) as text.
[[nodiscard]] ORVAN_CORE_INTERNAL std::string toUtf8(char32_t character);

} // namespace orvan
