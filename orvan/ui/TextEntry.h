// TextEntry: what a text box and the edit part of a combo box share: text, selection, keys.
//
// Text is UTF-8; positions and lengths are in characters (code points), from 0. The text stays as it
// was set until the user changes it, even where a widget shows other line ends or cannot show a byte.
// Raises 380 for negative lengths and positions. Ownership: the surface. Thread: the user-interface
// thread.
#pragma once

#include "orvan/core_export.h"
#include "orvan/ui/Control.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace orvan::ui {

/// The line end that a user's Enter makes in a text of several lines: "\r\n" where the text has one
/// already, else "\n", so that editing a text does not mix the two.
[[nodiscard]] ORVAN_CORE_INTERNAL std::string_view lineEndOf(std::string_view text);

/// The part of a typed or pasted text that a box takes: each line end becomes `lineEnd` (" " for a box of one line),
/// and the text is cut to `capacity` characters, but never inside a line end. A capacity below 0 counts as 0; without
/// one there is no limit.
[[nodiscard]] ORVAN_CORE_INTERNAL std::string fitForEntry(std::string_view text, std::string_view lineEnd,
                                                          std::optional<std::int64_t> capacity);

class ORVAN_CORE_INTERNAL TextEntry : public Control {
public:
    using Control::Control;

    const std::string& text() const { return text_; }
    /// Cuts the text to maxLength() and puts the caret at its start. Raises onChange, as typing
    /// does, if the text is another one than before.
    void setText(std::string_view text);

    /// The most characters that the box takes; 0, the initial value, is no limit. A new limit does not cut the present
    /// text.
    std::int32_t maxLength() const { return maxLength_; }
    void setMaxLength(std::int32_t characters);

    std::int32_t selectionStart() const { return selectionStart_; }
    std::int32_t selectionLength() const { return selectionLength_; }
    /// Puts the caret at the position, or at the end of the text if that comes first, and selects nothing.
    void setSelectionStart(std::int32_t position);
    /// Selects so many characters from selectionStart() on, but not beyond the end of the text.
    void setSelectionLength(std::int32_t length);

    std::function<void()> onChange;
    /// The user pressed a key that makes a character. KeyAscii is its code point, also that of a control character
    /// (backspace is 8, Enter 13, Ctrl+A to Ctrl+Z 1 to 26); Tab and Escape are handled by the form. The handler may
    /// replace the character, or set 0 so that nothing is typed. Keys without a character, pasting and dropping do not
    /// raise this event. A character that does not fit a signed 16-bit number arrives as "?" (63); unless the handler
    /// changes that, the character itself is typed.
    std::function<void(std::int16_t& KeyAscii)> onKeyPress;

    void play(const Event& event) override;

protected:
    /// The platform shows text() with the caret at its start.
    virtual void doSetText() = 0;
    virtual void doSetMaxLength() = 0;
    /// The platform shows the selection.
    virtual void doSelect() = 0;

    /// The platform reports here a changed text and a changed selection, in either order. A changed text raises
    /// onChange.
    void userChangedText(std::string text);
    void userSelected(std::int32_t start, std::int32_t length);
    /// Raises onKeyPress and returns the character that is to be typed; 0 if none is.
    [[nodiscard]] char32_t userPressedKey(char32_t character);
    /// Sets the text without raising onChange, as when the user chooses a row of a list.
    void replaceText(std::string_view text);
    /// Called when the user or the program has changed the text, before any event is raised.
    virtual void textChanged() {}

private:
    std::string text_;
    std::int32_t maxLength_ = 0;
    std::int32_t selectionStart_ = 0;
    std::int32_t selectionLength_ = 0;
};

/// A text box of one line or several lines.
class TextBox : public TextEntry {
public:
    using TextEntry::TextEntry;
};

} // namespace orvan::ui
