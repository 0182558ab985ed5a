// KeyStroke: a key with its modifiers, to which a command can be bound.
//
// Its text is the one that toolkits and manuals use: "Ctrl+D", "Alt+Up", "Shift+F10", "Return", "Del". A text that
// names no key raises 5. Thread: any.
#pragma once

#include "orvan/base/RuntimeError.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace orvan::ui {

enum class Key : std::uint8_t {
    none,
    character, ///< A key that types a character, or would without its modifiers.
    enter,     ///< Return, and Enter on the keypad.
    escape,
    backspace,
    insert,
    del,
    home,
    end,
    pageUp,
    pageDown,
    up,
    down,
    left,
    right,
    menu, ///< The key that opens a context menu.
    f1,   ///< The function keys follow in order, up to F12.
    f12 = f1 + 11,
};

struct KeyStroke {
    Key key = Key::none;
    /// Of Key::character: the typed character, or with Ctrl or Alt the upper-case letter or the digit on the key.
    char32_t character = 0;
    bool control = false;
    bool shift = false; ///< Not set for a typed character, which says itself whether it is upper case.
    bool alt = false;

    friend bool operator==(const KeyStroke&, const KeyStroke&) = default;
};

struct NamedKey {
    std::string_view name;
    Key key;
};
inline constexpr std::array kNamedKeys = {
    NamedKey{"Return", Key::enter}, NamedKey{"Esc", Key::escape},  NamedKey{"Backspace", Key::backspace},
    NamedKey{"Ins", Key::insert},   NamedKey{"Del", Key::del},     NamedKey{"Home", Key::home},
    NamedKey{"End", Key::end},      NamedKey{"PgUp", Key::pageUp}, NamedKey{"PgDown", Key::pageDown},
    NamedKey{"Up", Key::up},        NamedKey{"Down", Key::down},   NamedKey{"Left", Key::left},
    NamedKey{"Right", Key::right},  NamedKey{"Menu", Key::menu},
};

/// Reads a key stroke: modifiers in any order, each with a plus sign after it, and a key's name or one ASCII character.
/// "Space" is the character ' '.
constexpr KeyStroke keyStroke(std::string_view text)
{
    KeyStroke stroke;
    std::string_view rest = text;
    const auto takes = [&rest](std::string_view modifier, bool& held) {
        const bool found = rest.starts_with(modifier);
        rest.remove_prefix(found ? modifier.size() : 0);
        held = held || found;
        return found;
    };
    while (takes("Ctrl+", stroke.control) || takes("Shift+", stroke.shift) || takes("Alt+", stroke.alt)) {
    }
    for (const NamedKey& named : kNamedKeys) {
        if (named.name == rest) {
            stroke.key = named.key;
            return stroke;
        }
    }
    if (rest.size() >= 2 && rest.size() <= 3 && rest[0] == 'F') {
        const int number = rest.size() == 2 ? rest[1] - '0' : (rest[1] - '0') * 10 + (rest[2] - '0');
        if (number >= 1 && number <= 12) {
            stroke.key = static_cast<Key>(static_cast<int>(Key::f1) + number - 1);
            return stroke;
        }
    }
    if (rest == "Space" || rest.size() == 1) {
        stroke.key = Key::character;
        stroke.character = rest == "Space" ? U' ' : static_cast<char32_t>(rest[0]);
        return stroke;
    }
    throw RuntimeError(ErrorNumber::invalidProcedureCall, {}, "There is no key \"" + std::string(text) + "\"");
}

} // namespace orvan::ui
