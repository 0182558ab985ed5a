// The in-memory boxes: typing, keys, pasting, selecting, choosing from a list.
//
// Positions and lengths are in characters, from 0. A user who types or pastes has put the focus into
// the box first; each driving method does so too. A box that is read-only takes no text.
#pragma once

#include "orvan/ui/ComboBox.h"
#include "orvan/ui/TextBox.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace orvan::ui {
class LocaleService;
}

namespace orvan::headless {

/// What a user does to an entry, one implementation for both kinds of box.
class EntryDriver {
public:
    virtual ~EntryDriver() = default;

    /// Types each character in turn; a line end is Enter, which only a box of several lines keeps.
    void type(std::string_view text);
    void backspace();
    void deleteForward();
    /// Ctrl with a letter: the box sees its control character first. C, X and V then work on
    /// `clipboard`, A selects all, other letters do nothing.
    void pressControl(char letter, std::string& clipboard);
    /// By menu, middle button or drop: no key is pressed.
    void paste(std::string_view text);
    /// The keypad's decimal key: the separator that the box's use asks for.
    void pressKeypadDecimal();
    void select(std::int32_t start, std::int32_t length);

protected:
    EntryDriver(const ui::ControlDesign& design, ui::LocaleService& locale);

private:
    virtual ui::TextEntry& entry() = 0;
    virtual char32_t reportKey(char32_t key) = 0;
    virtual void reportText(std::string text) = 0;
    virtual void reportSelection(std::int32_t start, std::int32_t length) = 0;

    bool pressKey(char32_t key);
    /// Replaces `length` characters from `start` on, as far as the maximum length lets it.
    void replace(std::int32_t start, std::int32_t length, std::string_view text);
    void replaceSelection(std::string_view text);
    std::string selectedText();

    /// Goes with the box, which a handler may end.
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
    bool readOnly_;
    bool multiLine_;
    std::string keypadDecimal_;
};

template <class Box>
class HeadlessEntry : public Box, public EntryDriver {
public:
    HeadlessEntry(const ui::ControlDesign& design, ui::LocaleService& locale) : Box(design), EntryDriver(design, locale)
    {
    }

private:
    void doMove() override {}
    void doSetText() override {}
    void doSetMaxLength() override {}
    void doSelect() override {}
    ui::TextEntry& entry() override { return *this; }
    char32_t reportKey(char32_t key) override { return this->userPressedKey(key); }
    void reportText(std::string text) override { this->userChangedText(std::move(text)); }
    void reportSelection(std::int32_t start, std::int32_t length) override { this->userSelected(start, length); }
};

class HeadlessTextBox final : public HeadlessEntry<ui::TextBox> {
public:
    using HeadlessEntry::HeadlessEntry;
};

class HeadlessComboBox final : public HeadlessEntry<ui::ComboBox> {
public:
    using HeadlessEntry::HeadlessEntry;

    /// By mouse or keyboard, the list being dropped down. Raises 9 where there is no such row.
    void chooseRow(std::int32_t row);

private:
    void doListChanged() override {}
};

} // namespace orvan::headless
