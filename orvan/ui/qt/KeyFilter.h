// KeyFilter: which characters a key press carries.
//
// Thread: any.
#pragma once

#include <string>

class QKeyEvent;

namespace orvan::qt {

/// The characters of a key press: what it types, one or several; or one control character (see
/// ui::TextEntry::onKeyPress). Empty for keys that carry none or belong to the form: Tab, Escape,
/// arrows, Delete.
std::u32string charactersOf(const QKeyEvent& key);

/// Whether the characters do something other than being typed: backspace, Enter, Ctrl with a letter.
bool isControl(const std::u32string& characters);

/// The keypad's key for the decimal separator, whatever the keyboard's own layout writes on it.
bool isKeypadDecimal(const QKeyEvent& key);

/// A press that must reach the box though a shortcut of the window has the same keys. Alt with a
/// letter is not one: mnemonics go first.
bool goesBeforeShortcuts(const QKeyEvent& key);

} // namespace orvan::qt
