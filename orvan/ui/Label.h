// Label: a caption that names the control after it; its text comes from the design.
//
// Ownership: the surface. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/Control.h"

namespace orvan::ui {

class Label : public Control {
public:
    using Control::Control;
};

} // namespace orvan::ui
