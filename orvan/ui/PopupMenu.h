// PopupMenu: a menu that stands in no bar and comes up at the mouse (see orvan/ui/ToolSet.h for its tools).
//
// What the user chooses is a later event; a user who dismisses the menu raises none.
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
