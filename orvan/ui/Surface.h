// Surface: a loaded design, on which the logic finds its controls by name and kind.
//
// A platform derives from it, makes the controls in its constructor (buildControls), and reports the
// size and where the user takes the keyboard focus. Lengths are in twips. Ownership: the surface owns
// its controls; the caller that loaded the surface owns it, and it must outlive the logic that uses
// it. Thread: the user-interface thread.
#pragma once

#include "orvan/base/Lifetime.h"
#include "orvan/ui/Control.h"

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace orvan::ui {

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

    /// Paints everything anew. Does nothing where each widget paints itself whenever it changes.
    virtual void repaint() {}

    /// The inner size changed. One handler.
    std::function<void()> onResize;

    /// The control of that name. Raises 424 when the design has none and 13 when it is of another
    /// kind, and names both: a wrong design fails when it is loaded, not when it is first used.
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
    /// The platform's report. Raises onResize, whose handler may destroy this surface.
    void setInnerSize(float width, float height);
    /// The platform's report that the user took the focus to a control, by key or mouse. Raises the
    /// focus events unless the control has it already.
    void userMovedFocus(Control& to);
    /// Give the widget the toolkit's focus. A report of that move, if the toolkit makes one, must raise no focus event.
    virtual void doSetFocus(Control& to) = 0;
    /// The control that gets the focus when a window first opens: the first that Tab reaches. Null where there is none.
    Control* firstTabStop() const;

    /// Whether events still reach the logic.
    virtual bool live() const { return true; }
    Platform& platform() const { return platform_; }

private:
    friend class Control;

    Control& find(std::string_view name) const;
    [[noreturn]] void raiseWrongKind(const Control& found) const;
    void moveFocus(Control& to);
    void enterFocus(Control& to);
    /// `from` was disabled while it had the focus: gives the focus to a neighbour.
    void leaveDisabled(const Control& from);
    /// Controls that Tab reaches now, in its order.
    std::vector<Control*> tabStops() const;

    const FormDesign& design_;
    Platform& platform_;
    Lifetime lifetime_;
    std::vector<std::unique_ptr<Control>> controls_;
    Control* focused_ = nullptr;
    float innerWidth_;
    float innerHeight_;
};

} // namespace orvan::ui
