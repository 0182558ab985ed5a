#include "orvan/ui/Button.h"

namespace orvan::ui {

void Button::userClicked()
{
    if (canTakeFocus()) {
        raise(onClick);
    }
}

} // namespace orvan::ui
