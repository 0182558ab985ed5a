// Button: a push button with a caption or a picture; both come from the design.
//
// Ownership: the surface. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/Control.h"

#include <functional>

namespace orvan::ui {

class Button : public EnabledControl {
public:
    using EnabledControl::EnabledControl;

    /// The user pressed it, by mouse, space bar, mnemonic, or Escape where it cancels.
    std::function<void()> onClick;

protected:
    /// The platform's report. Raises onClick; does nothing on a button that is not enabled.
    void userClicked();

private:
    friend class Form; ///< Escape presses the button that cancels.
};

} // namespace orvan::ui
