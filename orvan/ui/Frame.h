// Frame: a box that holds other controls, whose positions are measured inside it.
//
// Ownership: the surface. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/Control.h"

namespace orvan::ui {

class Frame : public EnabledControl {
public:
    using EnabledControl::EnabledControl;
};

} // namespace orvan::ui
