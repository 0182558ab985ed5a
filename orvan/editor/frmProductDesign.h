// frmProductDesign: the product editor's controls, as data (orvan/ui/FormDesign.h). Positions are in twips.
//
// Thread: any; nothing changes it.
#pragma once

#include "orvan/ui/FormDesign.h"

namespace orvan {

extern const ui::FormDesign kProductFormDesign;

} // namespace orvan
