// HeadlessEntries: the in-memory boxes. A user acts on them through their drivers (orvan/ui/headless/Drivers.h).
//
// Ownership: the surface. Thread: the platform's.
#pragma once

#include "orvan/base/Lifetime.h"
#include "orvan/core_export.h"
#include "orvan/ui/ComboBox.h"
#include "orvan/ui/EntryPort.h"
#include "orvan/ui/KeyStroke.h"
#include "orvan/ui/TextEntry.h"
#include "orvan/ui/headless/HeadlessControls.h"

#include <string>
#include <string_view>

namespace orvan::ui {
class LocaleService;
}

namespace orvan::headless {

/// Does the actions of EntryDriver, for text boxes and combo boxes alike.
class EntryHand {
public:
    EntryHand(ui::EntryPort& port, const ui::ControlDesign& design, ui::LocaleService& locale);

    void type(std::string_view text);
    void backspace();
    void deleteForward();
    void pressControl(char letter, std::string& clipboard);
    void paste(std::string_view text);
    void pressKeypadDecimal();
    void select(std::int32_t start, std::int32_t length);

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

/// Whether the surface is a form that takes the key before the box gets it.
[[nodiscard]] bool formTakes(ui::Surface& surface, const ui::KeyStroke& key);

template <class Box, class Driver>
class HeadlessEntry : public DrivenControl<ui::EntryWithPort<Box>, Driver> {
public:
    HeadlessEntry(const ui::ControlDesign& design, ui::LocaleService& locale)
        : DrivenControl<ui::EntryWithPort<Box>, Driver>(design), hand_(*this, design, locale)
    {
    }

    void type(std::string_view text) final { hand_.type(text); }
    void backspace() final { hand_.backspace(); }
    void deleteForward() final { hand_.deleteForward(); }
    void pressControl(char letter, std::string& clipboard) final
    {
        const std::string key = std::string("Ctrl+") + letter;
        if (letter < 'A' || letter > 'Z' || !formTakes(*this->surface(), ui::keyStroke(key))) {
            hand_.pressControl(letter, clipboard);
        }
    }
    void paste(std::string_view text) final { hand_.paste(text); }
    void pressKeypadDecimal() final { hand_.pressKeypadDecimal(); }
    void select(std::int32_t start, std::int32_t length) final { hand_.select(start, length); }

    const std::string& text() const final { return Box::text(); }
    std::int32_t selectionStart() const final { return Box::selectionStart(); }
    std::int32_t selectionLength() const final { return Box::selectionLength(); }
    std::int32_t maxLength() const final { return Box::maxLength(); }

private:
    void doSetText() override {}
    void doSetMaxLength() override {}
    void doSelect() override {}

    EntryHand hand_;
};

class HeadlessTextBox final : public HeadlessEntry<ui::TextBox, EntryDriver> {
public:
    using HeadlessEntry::HeadlessEntry;
};

class ORVAN_CORE_INTERNAL HeadlessComboBox final : public HeadlessEntry<ui::ComboBox, ComboBoxDriver> {
public:
    using HeadlessEntry::HeadlessEntry;

    void chooseRow(std::int32_t row) override;
    std::int32_t count() const override { return ComboBox::count(); }
    const std::string& itemText(std::int32_t row) const override { return ComboBox::itemText(row); }
    std::vector<std::string> columns(std::int32_t row) const override { return ComboBox::columns(row); }
    std::string remark() const override { return ComboBox::remark().english(); }

private:
    void doListChanged() override {}
    void doShowRemark() override {}
};

} // namespace orvan::headless
