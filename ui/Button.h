// Button: a push button with a caption or a picture; both come from the design.
#pragma once

#include "ui/Control.h"

#include <functional>

namespace orvan::ui {

class Button : public Control {
public:
    using Control::Control;

    bool enabled() const { return enabled_; }
    /// A button that is not enabled is shown greyed and cannot be pressed.
    void setEnabled(bool enabled);

    /// The user pressed it, by mouse, space bar or mnemonic. One handler; none: nothing happens.
    std::function<void()> onClick;

protected:
    /// Show enabled().
    virtual void doSetEnabled() = 0;

private:
    bool enabled_ = true;
};

} // namespace orvan::ui
