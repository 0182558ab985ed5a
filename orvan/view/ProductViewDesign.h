// The list view's controls, as data: see orvan/ui/FormDesign.h.
#pragma once

#include "orvan/ui/FormDesign.h"

namespace orvan {

extern const ui::FormDesign kProductViewDesign;

} // namespace orvan
