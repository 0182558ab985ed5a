// Frame: a box that holds other controls; positions of those are measured inside it.
#pragma once

#include "ui/Control.h"

namespace orvan::ui {

class Frame : public Control {
public:
    using Control::Control;
};

} // namespace orvan::ui
