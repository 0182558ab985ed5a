// Line: a separator line; it is horizontal if its width is greater than its height.
//
// Ownership: the surface. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/Control.h"

namespace orvan::ui {

class Line : public Control {
public:
    using Control::Control;
};

} // namespace orvan::ui
