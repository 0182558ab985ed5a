#include "orvan/base/Text.h"

#include <cstdint>
#include <cstring>

namespace orvan {

namespace {

std::size_t sizeByLeadByte(unsigned char lead)
{
    if (lead >= 0xC2 && lead <= 0xDF) {
        return 2;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        return 3;
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        return 4;
    }
    return 1;
}

bool isContinuation(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// How many of the next eight bytes can be skipped at once: all if they are ASCII, else none.
std::size_t asciiBytes(std::string_view text, std::size_t at)
{
    std::uint64_t bytes = 0;
    if (text.size() - at < sizeof bytes) {
        return 0;
    }
    std::memcpy(&bytes, text.data() + at, sizeof bytes);
    return (bytes & 0x8080808080808080U) == 0 ? sizeof bytes : 0;
}

} // namespace

std::size_t characterSize(std::string_view text, std::size_t at)
{
    const std::size_t size = sizeByLeadByte(static_cast<unsigned char>(text[at]));
    for (std::size_t i = 1; i < size; ++i) {
        if (at + i >= text.size() || !isContinuation(text[at + i])) {
            return 1; // the character is cut short: its lead byte counts alone
        }
    }
    return size;
}

char32_t characterAt(std::string_view text, std::size_t at)
{
    const std::size_t size = characterSize(text, at);
    const auto lead = static_cast<unsigned char>(text[at]);
    if (size == 1) {
        return lead < 0x80 ? lead : U'\uFFFD';
    }
    char32_t character = lead & (0x7FU >> size); // the lead byte has as many high bits set as there are bytes
    for (std::size_t i = 1; i < size; ++i) {
        character = (character << 6U) | (static_cast<unsigned char>(text[at + i]) & 0x3FU);
    }
    return character;
}

std::size_t characterCount(std::string_view text)
{
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t ascii = asciiBytes(text, at);
        at += ascii > 0 ? ascii : characterSize(text, at);
        count += ascii > 0 ? ascii : 1;
    }
    return count;
}

std::string_view firstCharacters(std::string_view text, std::size_t count)
{
    if (text.size() <= count) {
        return text; // every character takes at least one byte
    }
    std::size_t at = 0;
    while (count > 0 && at < text.size()) {
        const std::size_t ascii = asciiBytes(text, at);
        const bool skips = ascii > 0 && ascii <= count;
        at += skips ? ascii : characterSize(text, at);
        count -= skips ? ascii : 1;
    }
    return text.substr(0, at);
}

std::string toUtf8(char32_t character)
{
    const auto byte = [](char32_t bits) { return static_cast<char>(bits); };
    if (character < 0x80) {
        return {byte(character)};
    }
    if (character < 0x800) {
        return {byte(0xC0 | character >> 6), byte(0x80 | (character & 0x3F))};
    }
    if (character < 0x10000) {
        return {byte(0xE0 | character >> 12), byte(0x80 | (character >> 6 & 0x3F)), byte(0x80 | (character & 0x3F))};
    }
    return {byte(0xF0 | character >> 18), byte(0x80 | (character >> 12 & 0x3F)), byte(0x80 | (character >> 6 & 0x3F)),
            byte(0x80 | (character & 0x3F))};
}

} // namespace orvan
