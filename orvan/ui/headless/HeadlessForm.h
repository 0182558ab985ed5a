// HeadlessForm: a dialog without a window, driven by a procedure that stands for its user.
//
// HeadlessPlatform::drive queues the procedure for the next form that is shown; showModal runs it, and
// raises 51 if there is none or if it leaves the form open. Ownership: the caller of loadForm. Thread:
// the platform's.
#pragma once

#include "orvan/ui/Form.h"
#include "orvan/ui/headless/HeadlessSurface.h"

namespace orvan::headless {

class HeadlessPlatform;

class HeadlessForm final : public DrivenSurface<ui::Form, FormDriver> {
public:
    HeadlessForm(const ui::FormDesign& design, HeadlessPlatform& platform, std::int32_t ownerWindow = 0);

    void clickCloseBox() override { unload(ui::UnloadMode::closeBox); }
    void pressEscape() override { userPressedEscape(); }
    /// Returns whether the form has taken the key.
    [[nodiscard]] bool press(const ui::KeyStroke& key) { return userPressedKey(key); }
    const std::string& caption() const override { return Form::caption(); }
    bool loaded() const override { return Form::loaded(); }
    std::int32_t ownerWindow() const override { return ownerWindow_; }

    std::int32_t window() override { return 0; }

private:
    std::unique_ptr<ui::Control> make(const ui::ControlDesign& design, ui::Control* parent) override;
    void doSetCaption() override {}
    void doShowModal() override;
    void doUnload() override {}

    HeadlessPlatform& platform_;
    std::int32_t ownerWindow_;
};

} // namespace orvan::headless
