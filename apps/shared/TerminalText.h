// TerminalText: helps programs to print on a terminal. It changes texts from outside the program so that they can be
// shown safely, and writes a count with its noun.
//
// A text from a file may hold characters that move a terminal's cursor or change its title, or that switch the writing
// direction and so reorder the texts around them. Such characters are shown by their numbers: \x1B, \u202E.
// Thread: any.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace orvan::shared {

/// Whether a character steers what is shown, instead of being shown. The marks U+200E, U+200F and U+061C do not
/// count, although they concern the writing direction: amounts in Arabic and Hebrew have them.
[[nodiscard]] constexpr bool steersOutput(char32_t c) noexcept
{
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

struct Utf8Character {
    char32_t character = 0;
    std::size_t bytes = 0; ///< 0 if the text does not begin with a character.
};

/// The character at the beginning of a text that is not empty.
[[nodiscard]] constexpr Utf8Character firstCharacter(std::string_view text) noexcept
{
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t bytes = lead < 0x80                    ? 1
                              : lead >= 0xC2 && lead <= 0xDF ? 2
                              : (lead & 0xF0) == 0xE0        ? 3
                              : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                             : 0;
    if (bytes == 0 || bytes > text.size()) {
        return {};
    }
    char32_t character = bytes == 1 ? lead : lead & (0x7FU >> bytes);
    for (std::size_t at = 1; at < bytes; ++at) {
        const auto next = static_cast<unsigned char>(text[at]);
        if ((next & 0xC0) != 0x80) {
            return {};
        }
        character = character << 6 | (next & 0x3FU);
    }
    return {character, bytes};
}

/// A text for a terminal, in one line.
[[nodiscard]] inline std::string terminalText(std::string_view text)
{
    std::string shown;
    while (!text.empty()) {
        const Utf8Character first = firstCharacter(text);
        const std::size_t bytes = first.bytes == 0 ? 1 : first.bytes;
        if (first.bytes > 0 && !steersOutput(first.character)) {
            shown.append(text.substr(0, bytes));
        } else {
            const auto value = first.bytes == 0 ? static_cast<unsigned char>(text.front())
                                                : static_cast<std::uint32_t>(first.character);
            std::array<char, 8> escape = {};
            std::snprintf(escape.data(), escape.size(), value <= 0xFF ? "\\x%02X" : "\\u%04X",
                          static_cast<unsigned>(value));
            shown.append(escape.data());
        }
        text.remove_prefix(bytes);
    }
    return shown;
}

/// A count and what is counted: "1 entry", "2 entries". The programs for a terminal speak English only.
[[nodiscard]] inline std::string countOf(std::uint64_t count, std::string_view one, std::string_view many)
{
    return std::to_string(count).append(" ").append(count == 1 ? one : many);
}

} // namespace orvan::shared
