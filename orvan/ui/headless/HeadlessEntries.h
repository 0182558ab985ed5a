// HeadlessEntries: the in-memory boxes, with typing, keys, pasting, selecting and choosing from a list.
//
// Positions and lengths are in characters, from 0. A user who types or pastes first moves the focus to the box, and so
// do these methods. A read-only box takes no text. An action that no user could do raises 5. Ownership: the surface.
// Thread: the platform's.
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

/// The actions of a user in a text box or in the edit part of a combo box.
class EntryDriver {
public:
    virtual ~EntryDriver() = default;

    /// Types each character in turn. A "\n" presses Enter, which puts a line end only into a box of several lines.
    void type(std::string_view text);
    void backspace();
    void deleteForward();
    /// Presses Ctrl with a letter. onKeyPress gets its control character first; then C, X and V work on `clipboard`, A
    /// selects all, and other letters do nothing.
    void pressControl(char letter, std::string& clipboard);
    /// Pastes without a key, as a menu, the middle mouse button or a drop does; onKeyPress is not raised.
    void paste(std::string_view text);
    /// Presses the keypad's decimal key, which types the separator for what the box is used for.
    void pressKeypadDecimal();
    void select(std::int32_t start, std::int32_t length);

protected:
    EntryDriver(ui::EntryPort& port, const ui::ControlDesign& design, ui::LocaleService& locale);

private:
    /// Returns whether the key is to have its own effect: false if the handler replaced it or destroyed the box.
    [[nodiscard]] bool pressKey(char32_t key);
    /// Replaces `length` characters from `start` on; the new text is cut to the maximum length of the box.
    void replace(std::int32_t start, std::int32_t length, std::string_view text);
    void replaceSelection(std::string_view text);
    std::string selectedText();

    ui::EntryPort& port_;
    Lifetime lifetime_; ///< A handler may destroy the box, and this object with it.
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
