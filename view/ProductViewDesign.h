// The list view's controls, as data: see ui/FormDesign.h.
#pragma once

#include "ui/FormDesign.h"

namespace orvan {

extern const ui::FormDesign kProductViewDesign;

} // namespace orvan
