// KeyFilter: which characters a key press carries.
//
// Thread: any.
#pragma once

#include <string>

class QKeyEvent;

namespace orvan::qt {

/// The characters of a key press: the one or several that it types, or one control character (see
/// ui::TextEntry::onKeyPress). Empty for a key without a character, such as an arrow or Delete, and for Tab and Escape,
/// which the form handles.
std::u32string charactersOf(const QKeyEvent& key);

/// Whether the characters are one control character, which is not typed: backspace, Enter, or Ctrl with a letter.
bool isControl(const std::u32string& characters);

/// Whether the key is the keypad's key for the decimal separator, with any keyboard layout.
bool isKeypadDecimal(const QKeyEvent& key);

/// Whether a key press must reach the box even if the window has a shortcut with the same keys. This is false for Alt
/// with a letter, because mnemonics come before the box.
bool goesBeforeShortcuts(const QKeyEvent& key);

} // namespace orvan::qt
