#include "orvan/base/Text.h"
#include "orvan/replay/Redaction.h"

#include <algorithm>
#include <array>

namespace orvan::replay {

namespace {

/// Letters of which each stands for another one: `first` to `last`, and how far the capitals are from them.
struct Alphabet {
    char32_t first;
    char32_t last;
    int toCapital; ///< 0: there are no capitals.
};
constexpr std::array kAlphabets = {
    Alphabet{'a', 'z', 'A' - 'a'}, Alphabet{'0', '9', 0},         // Latin letters, and digits
    Alphabet{0xE0, 0xF6, -0x20},   Alphabet{0xF8, 0xFE, -0x20},   // Latin letters with marks
    Alphabet{0x100, 0x17F, 0},     Alphabet{0x3B1, 0x3C1, -0x20}, // more of them, and Greek
    Alphabet{0x3C3, 0x3C9, -0x20}, Alphabet{0x430, 0x44F, -0x20}, // Greek, and Cyrillic
    Alphabet{0x450, 0x45F, -0x50}, Alphabet{0x5D0, 0x5EA, 0},     // Cyrillic, and Hebrew
    Alphabet{0x621, 0x64A, 0},     Alphabet{0x905, 0x939, 0},     // Arabic, and Devanagari
    Alphabet{0xE01, 0xE2E, 0},     Alphabet{0x3041, 0x3096, 0},   // Thai, and Hiragana
    Alphabet{0x30A1, 0x30F6, 0},   Alphabet{0x4E00, 0x9FFF, 0},   // Katakana, and Han
    Alphabet{0xAC00, 0xD7A3, 0},                                  // Hangul
};

/// A good mixture of bits (splitmix64).
std::uint64_t mixed(std::uint64_t bits)
{
    bits += 0x9E3779B97F4A7C15U;
    bits = (bits ^ (bits >> 30U)) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 27U)) * 0x94D049BB133111EBU;
    return bits ^ (bits >> 31U);
}

/// What the letter number `letter` of an alphabet becomes: a permutation that `key` chooses. Each round pairs all
/// letters, and swaps a pair or does not, so that no table of a large alphabet is needed.
std::uint32_t shuffled(std::uint32_t letter, std::uint32_t count, std::uint64_t key)
{
    for (std::uint64_t round = 0; round < 24; ++round) {
        const std::uint64_t bits = mixed(key ^ round);
        const auto pivot = static_cast<std::uint32_t>(bits % count);
        const std::uint32_t partner = (pivot + count - letter) % count;
        const std::uint32_t highest = std::max(letter, partner);
        if ((mixed(bits ^ highest) & 1U) != 0) {
            letter = partner;
        }
    }
    return letter;
}

/// The letter as the alphabet has it, and whether it was a capital; the number of the alphabet, or -1.
struct Letter {
    int alphabet = -1;
    std::uint32_t number = 0;
    bool capital = false;
};

Letter letterOf(char32_t character)
{
    for (std::size_t i = 0; i < kAlphabets.size(); ++i) {
        const Alphabet& alphabet = kAlphabets[i];
        for (const bool capital : {false, true}) {
            const auto small = static_cast<char32_t>(static_cast<int>(character) - (capital ? alphabet.toCapital : 0));
            if (small >= alphabet.first && small <= alphabet.last && (!capital || alphabet.toCapital != 0)) {
                return {static_cast<int>(i), small - alphabet.first, capital};
            }
        }
    }
    return {};
}

} // namespace

std::string TextMask::masked(std::string_view text) const
{
    std::string result;
    std::uint64_t state = mixed(key_);
    while (!text.empty()) {
        const std::size_t size = characterSize(text, 0);
        const Letter letter = letterOf(characterAt(text, 0));
        if (letter.alphabet < 0) {
            result += text.substr(0, size);
            state = mixed(state ^ characterAt(text, 0));
        } else {
            const Alphabet& alphabet = kAlphabets[static_cast<std::size_t>(letter.alphabet)];
            const std::uint32_t other =
                shuffled(letter.number, static_cast<std::uint32_t>(alphabet.last - alphabet.first) + 1, state);
            const auto small = static_cast<int>(alphabet.first + other);
            result += toUtf8(static_cast<char32_t>(letter.capital ? small + alphabet.toCapital : small));
            state = mixed(state ^ (alphabet.first + letter.number));
        }
        text.remove_prefix(size);
    }
    return result;
}

} // namespace orvan::replay
