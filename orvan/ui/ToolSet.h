// ToolSet: what a tool bar and a pop-up menu have: tools that come from the design and are found by ID.
//
// IDs are compared exactly, case included. Raises 5 for an ID that no tool has. Ownership: the
// surface. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/Control.h"

#include <string_view>
#include <vector>

namespace orvan::ui {

class ToolSet : public Control {
public:
    explicit ToolSet(const ControlDesign& design);

    std::span<const ToolDesign> tools() const { return tools_; }
    bool opensMenu(std::string_view id) const;
    bool toolEnabled(std::string_view id) const { return enabled_[indexOf(id)]; }
    /// A tool that is not enabled is shown greyed and cannot be chosen.
    void setToolEnabled(std::string_view id, bool enabled);

    /// The user chose a tool. Opening a menu is no choice.
    std::function<void(std::string_view id)> onToolClick;

protected:
    /// Show the tool's state; `index` into tools().
    virtual void doSetToolEnabled(std::size_t index, bool enabled) = 0;
    /// The platform's report. Raises onToolClick; does nothing for a tool that is not enabled.
    void userChoseTool(std::string_view id);

private:
    std::size_t indexOf(std::string_view id) const;

    std::span<const ToolDesign> tools_;
    std::vector<bool> enabled_;
};

/// A menu bar with menus and sub-menus.
class ToolBar : public ToolSet {
public:
    using ToolSet::ToolSet;
};

/// A menu that stands in no bar and comes up at the mouse. The user's choice is a later event; dismissing the menu
/// raises none.
class PopupMenu : public ToolSet {
public:
    using ToolSet::ToolSet;

    /// Shows the menu and returns at once.
    virtual void popUp() = 0;
};

} // namespace orvan::ui
