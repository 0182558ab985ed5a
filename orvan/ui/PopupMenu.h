// PopupMenu: a menu that stands in no bar and comes up at the mouse (see orvan/ui/ToolSet.h for its tools).
//
// The user's choice is a later event; dismissing the menu raises none. Ownership: the surface. Thread:
// the user-interface thread.
#pragma once

#include "orvan/ui/ToolSet.h"

namespace orvan::ui {

class PopupMenu : public ToolSet {
public:
    using ToolSet::ToolSet;

    /// Shows the menu and returns at once.
    virtual void popUp() = 0;
};

} // namespace orvan::ui
