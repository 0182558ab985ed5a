// HeadlessEntries: the in-memory boxes, with typing, keys, pasting, selecting and choosing from a list.
//
// Positions and lengths are in characters, from 0. A user who types or pastes has put the focus into the box first;
// each driving method does so too. A box that is read-only takes no text. What no user could do raises 5. Ownership:
// the surface. Thread: the platform's.
#pragma once

#include "orvan/base/Lifetime.h"
#include "orvan/ui/ComboBox.h"
#include "orvan/ui/EntryPort.h"
#include "orvan/ui/TextEntry.h"

#include <string>
#include <string_view>

namespace orvan::ui {
class LocaleService;
}

namespace orvan::headless {

/// What a user does to an entry, for both kinds of box.
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
    /// Pastes by menu, middle button or drop: no key is pressed.
    void paste(std::string_view text);
    /// The keypad's decimal key: the separator that the box's use asks for.
    void pressKeypadDecimal();
    void select(std::int32_t start, std::int32_t length);

protected:
    EntryDriver(ui::EntryPort& port, const ui::ControlDesign& design, ui::LocaleService& locale);

private:
    /// Returns whether the key is to have its own effect; not where the handler replaced it or destroyed the box.
    [[nodiscard]] bool pressKey(char32_t key);
    /// Replaces `length` characters from `start` on, as far as the maximum length lets it.
    void replace(std::int32_t start, std::int32_t length, std::string_view text);
    void replaceSelection(std::string_view text);
    std::string selectedText();

    ui::EntryPort& port_;
    Lifetime lifetime_; ///< A handler may destroy the box, and this with it.
    bool readOnly_;
    bool multiLine_;
    std::string keypadDecimal_;
};

template <class Box>
class HeadlessEntry : public ui::EntryWithPort<Box>, public EntryDriver {
public:
    HeadlessEntry(const ui::ControlDesign& design, ui::LocaleService& locale)
        : ui::EntryWithPort<Box>(design), EntryDriver(*this, design, locale)
    {
    }

private:
    void doMove() override {}
    void doSetText() override {}
    void doSetMaxLength() override {}
    void doSelect() override {}
};

class HeadlessTextBox final : public HeadlessEntry<ui::TextBox> {
public:
    using HeadlessEntry::HeadlessEntry;
};

class HeadlessComboBox final : public HeadlessEntry<ui::ComboBox> {
public:
    using HeadlessEntry::HeadlessEntry;

    /// The user chooses a row of the list, by mouse or keyboard. Raises 9 where there is no such row.
    void chooseRow(std::int32_t row);

private:
    void doListChanged() override {}
};

} // namespace orvan::headless
