// ToolBar: a menu bar with menus and sub-menus (see orvan/ui/ToolSet.h).
//
// Ownership: the surface. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/ToolSet.h"

namespace orvan::ui {

class ToolBar : public ToolSet {
public:
    using ToolSet::ToolSet;
};

} // namespace orvan::ui
