// HeadlessForm: a dialog without a window, driven by a procedure that stands for its user.
//
// HeadlessPlatform::drive queues the procedure for the next form that is shown; showModal runs it, and
// raises 51 if there is none or if it leaves the form open. Ownership: the caller of loadForm. Thread:
// the platform's.
#pragma once

#include "orvan/ui/Form.h"
#include "orvan/ui/headless/HeadlessControls.h"
#include "orvan/ui/headless/HeadlessEntries.h"

#include <string_view>

namespace orvan::headless {

class HeadlessPlatform;

class HeadlessForm final : public ui::Form {
public:
    HeadlessForm(const ui::FormDesign& design, HeadlessPlatform& platform);

    HeadlessButton& button(std::string_view name) { return control<HeadlessButton>(name); }
    HeadlessTextBox& textBox(std::string_view name) { return control<HeadlessTextBox>(name); }
    HeadlessComboBox& comboBox(std::string_view name) { return control<HeadlessComboBox>(name); }

    /// The user moves the focus by mouse or with Tab.
    void focus(std::string_view name);
    void clickCloseBox() { unload(ui::UnloadMode::closeBox); }
    void pressEscape() { userPressedEscape(); }
    /// The user changes the inner size of the window, in twips.
    void resize(float width, float height) { setInnerSize(width, height); }

    std::int32_t window() override { return 0; }

private:
    std::unique_ptr<ui::Control> make(const ui::ControlDesign& design, ui::Control* parent) override;
    void doSetFocus(ui::Control& /*to*/) override {}
    void doSetCaption() override {}
    void doShowModal() override;
    void doUnload() override {}

    HeadlessPlatform& platform_;
};

} // namespace orvan::headless
