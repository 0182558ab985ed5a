#include "orvan/ui/EnabledControl.h"

namespace orvan::ui {

void EnabledControl::setEnabled(bool enabled)
{
    if (enabled == enabled_) {
        return;
    }
    enabled_ = enabled;
    if (!enabled) {
        giveFocusAway();
    }
    doSetEnabled();
}

} // namespace orvan::ui
