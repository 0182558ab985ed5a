// The list view's controls, as data: see orvan/ui/FormDesign.h.
#pragma once

#include "orvan/core_export.h"
#include "orvan/ui/FormDesign.h"

namespace orvan {

extern ORVAN_CORE_INTERNAL const ui::FormDesign kProductViewDesign;

} // namespace orvan
