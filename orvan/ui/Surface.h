// Surface: a loaded design, on which the logic finds its controls by name and kind.
//
// A platform derives from it, makes the controls in its constructor (buildControls), reports the
// size and where the user takes the keyboard focus. Ownership: the surface owns its controls; whoever
// loaded it owns the surface, and it must outlive the logic that uses it. Thread: the user-interface
// thread.
#pragma once

#include "orvan/ui/Control.h"

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace orvan::ui {

class Platform;

class Surface {
public:
    Surface(const FormDesign& design, Platform& platform);
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;
    virtual ~Surface() = default;

    const FormDesign& design() const { return design_; }
    /// Space for the controls, in twips.
    float innerWidth() const { return innerWidth_; }
    float innerHeight() const { return innerHeight_; }

    /// Paints everything anew. Nothing to do for widgets that do so whenever they change.
    virtual void repaint() {}

    /// The inner size changed. One handler.
    std::function<void()> onResize;

    /// The control of that name. Raises 424 when the design has none and 13 when it is of another
    /// kind, naming both: a wrong design fails when it is loaded, not when it is first used.
    template <class T>
    T& control(std::string_view name) const
    {
        Control& found = find(name);
        if (auto* typed = dynamic_cast<T*>(&found)) {
            return *typed;
        }
        raiseWrongKind(found);
    }

    /// The control with the keyboard focus; null before any has had it.
    Control* focused() const { return focused_; }

protected:
    /// Makes one control inside `parent` (null: the surface itself).
    virtual std::unique_ptr<Control> make(const ControlDesign& design, Control* parent) = 0;
    /// Makes every control of the design; a platform calls it once, when it can make them.
    /// Raises 424 for a control whose frame is not in the design before it.
    void buildControls();
    /// The platform's report. Raises onResize.
    void setInnerSize(float width, float height);
    /// The platform's report that the user took the focus to a control, by key or mouse. Raises the
    /// focus events unless the control has it already.
    void userMovedFocus(Control& to);
    /// Give the widget the toolkit's focus. Its report of that, if any, finds the focus there already.
    virtual void doSetFocus(Control& to) = 0;
    /// The control that has the focus when a window first opens: the first that Tab reaches; may be null.
    Control* firstTabStop() const;

    /// Whether events still reach the logic.
    virtual bool live() const { return true; }
    Platform& platform() const { return platform_; }
    /// Runs an event's handler, where there is one, as Control describes. It may destroy this surface.
    void raise(const std::function<void()>& handler) const;

private:
    friend class Control;

    Control& find(std::string_view name) const;
    [[noreturn]] void raiseWrongKind(const Control& found) const;
    void moveFocus(Control& to);
    void enterFocus(Control& to);
    /// A button that is disabled under the user's finger hands the focus to a neighbour.
    void leaveDisabled(const Control& from);
    const ControlDesign& designOf(const Control& control) const;
    /// Controls that Tab reaches now, in its order.
    std::vector<Control*> tabStops() const;

    const FormDesign& design_;
    Platform& platform_;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
    std::vector<std::unique_ptr<Control>> controls_;
    Control* focused_ = nullptr;
    float innerWidth_;
    float innerHeight_;
};

} // namespace orvan::ui
