// EnabledControl: a control that can be greyed: buttons, and frames with all they hold.
//
// Ownership: the surface. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/Control.h"

namespace orvan::ui {

class EnabledControl : public Control {
public:
    using Control::Control;

    bool enabled() const { return enabled_; }
    /// A control that is not enabled is shown greyed and takes neither clicks nor the focus. If it, or a control in it,
    /// has the focus, a neighbour gets it.
    void setEnabled(bool enabled);

protected:
    /// Show enabled().
    virtual void doSetEnabled() = 0;

private:
    bool takesInput() const override { return enabled_ && Control::takesInput(); }

    bool enabled_ = true;
};

} // namespace orvan::ui
