// The product editor's controls, as data: see orvan/ui/FormDesign.h.
#pragma once

#include "orvan/ui/FormDesign.h"

namespace orvan {

extern const ui::FormDesign kProductFormDesign;

} // namespace orvan
