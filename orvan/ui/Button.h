// Button: a push button with a caption or a picture; both come from the design.
//
// Ownership: the surface. Thread: the user-interface thread.
#pragma once

#include "orvan/core_export.h"
#include "orvan/ui/Control.h"

#include <functional>

namespace orvan::ui {

class ORVAN_CORE_INTERNAL Button : public EnabledControl {
public:
    using EnabledControl::EnabledControl;

    /// The user pressed the button: with the mouse, the space bar, its mnemonic, or Escape if it is the cancel button.
    std::function<void()> onClick;

    void play(const Event& event) override;

protected:
    /// The platform reports that the user pressed the button. Raises onClick; does nothing if it is not enabled.
    void userClicked();

private:
    friend class Form; ///< The form presses the cancel button at Escape.
};

} // namespace orvan::ui
