// The product editor's controls, as data: see ui/FormDesign.h.
#pragma once

#include "ui/FormDesign.h"

namespace orvan {

extern const ui::FormDesign kProductFormDesign;

} // namespace orvan
