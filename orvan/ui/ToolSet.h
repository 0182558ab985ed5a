// ToolSet: what a tool bar and a pop-up menu have: tools that come from the design and are found by ID.
//
// IDs are compared exactly, case included. Raises 5 for an ID that no tool has. Ownership: the
// surface. Thread: the user-interface thread.
#pragma once

#include "orvan/core_export.h"
#include "orvan/ui/Control.h"

#include <string_view>
#include <vector>

namespace orvan::ui {

class ORVAN_CORE_INTERNAL ToolSet : public Control {
public:
    explicit ToolSet(const ControlDesign& design);

    std::span<const ToolDesign> tools() const { return tools_; }
    bool opensMenu(std::string_view id) const;
    bool toolEnabled(std::string_view id) const { return enabled_[indexOf(id)]; }
    /// A tool that is not enabled is shown greyed and cannot be chosen.
    void setToolEnabled(std::string_view id, bool enabled);
    std::string_view toolCaption(std::string_view id) const { return captions_[indexOf(id)]; }
    /// Replaces the design's caption; the mnemonic stays. The text outlives the tool set.
    void setToolCaption(std::string_view id, std::string_view caption);
    bool toolChecked(std::string_view id) const { return checked_[indexOf(id)]; }
    /// A tool that is checked is shown with a mark.
    void setToolChecked(std::string_view id, bool checked);

    /// The user chose a tool. Opening a menu does not raise this event.
    std::function<void(std::string_view id)> onToolClick;

    void play(const Event& event) override;

protected:
    /// The platform shows whether the tool is enabled; `index` is its place in tools().
    virtual void doSetToolEnabled(std::size_t index, bool enabled) = 0;
    /// The platform shows the tool's caption.
    virtual void doSetToolCaption(std::size_t index, std::string_view caption) = 0;
    /// The platform shows whether the tool is checked.
    virtual void doSetToolChecked(std::size_t index, bool checked) = 0;
    /// The platform reports that the user chose a tool. Raises onToolClick; does nothing for a tool that is not
    /// enabled.
    void userChoseTool(std::string_view id);

private:
    std::size_t indexOf(std::string_view id) const;

    std::span<const ToolDesign> tools_;
    std::vector<std::string_view> captions_;
    std::vector<bool> enabled_;
    std::vector<bool> checked_;
};

/// A menu bar with menus and sub-menus.
class ToolBar : public ToolSet {
public:
    using ToolSet::ToolSet;
};

class Grid;

/// A menu that belongs to no bar and opens at the mouse pointer, or at a grid's current row. A tool that the user
/// chooses raises onToolClick later; closing the menu without a choice raises no event.
class PopupMenu : public ToolSet {
public:
    using ToolSet::ToolSet;

    /// Shows the menu and returns at once.
    virtual void popUp() = 0;
    /// Shows the menu at the grid's current row, for a user who has no pointer there. Returns at once.
    virtual void popUpAt(Grid& grid) = 0;
};

} // namespace orvan::ui
