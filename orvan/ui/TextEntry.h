// TextEntry: what a text box and the edit part of a combo box share: text, selection, keys.
//
// Text is UTF-8; positions and lengths are in characters (code points), from 0. The text stands as
// it was set until the user changes it, whatever a widget makes of line ends and the like.
// Raises 380 for negative lengths and positions.
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
std::string_view lineEndOf(std::string_view text);

/// What becomes of text on its way from the user into a box: each line end in it turns into `lineEnd`
/// (a box of one line takes " "), and what is beyond `room` characters is left out, no line end in
/// halves. Room below 0 counts as 0.
std::string fitForEntry(std::string_view text, std::string_view lineEnd, std::optional<std::int64_t> room);

class TextEntry : public Control {
public:
    using Control::Control;

    const std::string& text() const { return text_; }
    /// Cuts the text to maxLength() and puts the caret at its start. Raises onChange, as typing
    /// does, where the text differs from what it was.
    void setText(std::string_view text);

    /// 0: no limit, as at first. The text that stands already is not cut.
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
    std::function<void(std::int16_t& iKeyAscii)> onKeyPress;

protected:
    /// Show text(), caret at its start.
    virtual void doSetText() = 0;
    virtual void doSetMaxLength() = 0;
    /// Show the selection.
    virtual void doSelect() = 0;

    /// The platform's reports. The first two keep what the user made and the first raises onChange;
    /// selection and text may be reported in either order.
    void userChangedText(std::string text);
    void userSelected(std::int32_t start, std::int32_t length);
    /// Raises onKeyPress and returns the character that is to be typed; 0: none.
    char32_t userPressedKey(char32_t character);
    /// A choice from a list: the text changes without raising onChange.
    void replaceText(std::string_view text);
    /// The text is another one, whoever changed it; comes before any event.
    virtual void textChanged() {}

private:
    std::string text_;
    std::int32_t maxLength_ = 0;
    std::int32_t selectionStart_ = 0;
    std::int32_t selectionLength_ = 0;
};

} // namespace orvan::ui
