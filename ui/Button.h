// Button: a push button with a caption or a picture; both come from the design.
#pragma once

#include "ui/Control.h"

#include <functional>

namespace orvan::ui {

class Button : public Control {
public:
    using Control::Control;

    /// The user pressed it, by mouse, space bar or mnemonic. One handler; none: nothing happens.
    std::function<void()> onClick;
};

} // namespace orvan::ui
