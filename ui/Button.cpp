#include "ui/Button.h"

namespace orvan::ui {

void Button::setEnabled(bool enabled)
{
    enabled_ = enabled;
    doSetEnabled();
}

} // namespace orvan::ui
