// ToolBar: a menu bar with menus and sub-menus (see orvan/ui/ToolSet.h).
#pragma once

#include "orvan/ui/ToolSet.h"

namespace orvan::ui {

class ToolBar : public ToolSet {
public:
    using ToolSet::ToolSet;
};

} // namespace orvan::ui
