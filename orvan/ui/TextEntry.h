// TextEntry: what a text box and the edit part of a combo box share: text, selection, keys.
//
// Text is UTF-8; positions and lengths are in characters (code points), from 0. The text stays as it
// was set until the user changes it, even where a widget shows other line ends or cannot show a byte.
// Raises 380 for negative lengths and positions. Ownership: the surface. Thread: the user-interface
// thread.
#pragma once

#include "orvan/ui/Control.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace orvan::ui {

/// The line end that a user's Enter makes in a text of several lines: "\r\n" where the text has one
/// already, else "\n", so that editing a text does not mix the two.
[[nodiscard]] std::string_view lineEndOf(std::string_view text);

/// Text as a box takes it from its user: each line end becomes `lineEnd` (" " for a box of one line), and what exceeds
/// `capacity` characters is cut off; no line end is cut in two. A capacity below 0 counts as 0, none is no limit.
[[nodiscard]] std::string fitForEntry(std::string_view text, std::string_view lineEnd,
                                      std::optional<std::int64_t> capacity);

class TextEntry : public Control {
public:
    using Control::Control;

    const std::string& text() const { return text_; }
    /// Cuts the text to maxLength() and puts the caret at its start. Raises onChange, as typing
    /// does, if the text is another one than before.
    void setText(std::string_view text);

    /// 0, as at first: no limit. A new limit does not cut the text that is there.
    std::int32_t maxLength() const { return maxLength_; }
    void setMaxLength(std::int32_t characters);

    std::int32_t selectionStart() const { return selectionStart_; }
    std::int32_t selectionLength() const { return selectionLength_; }
    /// Puts the caret there, nothing selected; at the end for a position beyond it.
    void setSelectionStart(std::int32_t position);
    /// Selects from selectionStart() on, at most to the end.
    void setSelectionLength(std::int32_t length);

    std::function<void()> onChange;
    /// The user pressed a key that makes a character: a code point, control characters included
    /// (backspace 8, Enter 13, Ctrl+A to Ctrl+Z 1 to 26; Tab and Escape belong to the form). The
    /// handler may put another character in its place, or 0 to swallow the key. Keys without a
    /// character, pasting and dropping do not come here. A character that 16 bits with a sign cannot
    /// hold arrives as "?" (63) and is typed as it is unless the handler changes that.
    std::function<void(std::int16_t& KeyAscii)> onKeyPress;

protected:
    /// Show text(), caret at its start.
    virtual void doSetText() = 0;
    virtual void doSetMaxLength() = 0;
    /// Show the selection.
    virtual void doSelect() = 0;

    /// The platform's reports of what the user did, in either order. A change of the text raises onChange.
    void userChangedText(std::string text);
    void userSelected(std::int32_t start, std::int32_t length);
    /// Raises onKeyPress and returns the character that is to be typed; 0: none.
    [[nodiscard]] char32_t userPressedKey(char32_t character);
    /// A choice from a list: the text changes without raising onChange.
    void replaceText(std::string_view text);
    /// The user or the program changed the text; called before any event.
    virtual void textChanged() {}

private:
    std::string text_;
    std::int32_t maxLength_ = 0;
    std::int32_t selectionStart_ = 0;
    std::int32_t selectionLength_ = 0;
};

/// A box of text, of one line or several.
class TextBox : public TextEntry {
public:
    using TextEntry::TextEntry;
};

} // namespace orvan::ui
