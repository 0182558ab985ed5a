// Line: a separator line, horizontal where it is wider than high.
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
