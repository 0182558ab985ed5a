// frmProductDesign: the product editor's controls, as data (orvan/ui/FormDesign.h). Positions are in twips.
//
// Thread: any; nothing changes it.
#pragma once

#include "orvan/core_export.h"
#include "orvan/ui/FormDesign.h"

namespace orvan {

extern ORVAN_CORE_INTERNAL const ui::FormDesign kProductFormDesign;

/// The same form for a user who only reads: its boxes take no input, the look-up boxes have no lists, and the controls
/// and menus that change the list are not there.
extern const ui::FormDesign kProductReadDesign;

} // namespace orvan
