#include "orvan/ui/Button.h"

namespace orvan::ui {

void Button::userClicked()
{
    if (canTakeFocus()) {
        const Tapped tapped(surface(), [this] { return told(EventKind::clicked); });
        raise(onClick);
    }
}

void Button::play(const Event& event)
{
    if (event.kind != EventKind::clicked) {
        raiseUnplayable(name(), event);
    }
    userClicked();
}

} // namespace orvan::ui
