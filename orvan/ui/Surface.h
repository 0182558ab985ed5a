// Surface: a loaded design, on which the logic finds its controls by name and kind.
//
// A platform derives from it, makes the controls in its constructor (buildControls), and reports the
// size and where the user takes the keyboard focus. Lengths are in twips. Ownership: the surface owns
// its controls; the caller that loaded the surface owns it, and it must outlive the logic that uses
// it. Thread: the user-interface thread.
#pragma once

#include "orvan/base/Lifetime.h"
#include "orvan/core_export.h"
#include "orvan/ui/Control.h"
#include "orvan/ui/EventTap.h"

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace orvan::ui {

class ORVAN_CORE_INTERNAL Surface {
public:
    Surface(const FormDesign& design, Platform& platform);
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;
    virtual ~Surface() = default;

    const FormDesign& design() const { return design_; }
    /// The size of the area for the controls, in twips.
    float innerWidth() const { return innerWidth_; }
    float innerHeight() const { return innerHeight_; }

    /// Paints all controls. A platform whose widgets paint themselves whenever they change does nothing here.
    virtual void repaint() {}

    /// The inner size changed.
    std::function<void()> onResize;

    /// The control of that name. Raises 424 when the design has none and 13 when it is of another kind; the description
    /// names the control and the design. The logic asks for all its controls when it is made, so that a wrong design is
    /// noticed then.
    template <class T>
    T& control(std::string_view name) const
    {
        Control& found = find(name);
        if (auto* typed = dynamic_cast<T*>(&found)) {
            return *typed;
        }
        raiseWrongKind(found);
    }

    /// Makes an event happen that a platform would report, and shows what the user would have seen change. Raises 424
    /// and 13 as `control` does, and what the event's control raises for an event that cannot happen.
    void play(const Event& event);

    Platform& platform() const { return platform_; }

    /// The control with the keyboard focus; null until a control has had it.
    Control* focused() const { return focused_; }

protected:
    /// Makes one control inside `parent` (null: the surface itself).
    virtual std::unique_ptr<Control> make(const ControlDesign& design, Control* parent) = 0;
    /// Makes every control of the design. The constructor of a platform's surface calls it once; the constructor of
    /// this class cannot, because make is virtual. Raises 424 for a control whose frame does not come before it in the
    /// design.
    void buildControls();
    /// The platform reports a new inner size. Raises onResize, whose handler may destroy this surface.
    void setInnerSize(float width, float height);
    /// The platform reports that the user moved the focus to a control, by key or mouse. Raises the focus events unless
    /// the control has the focus already.
    void userMovedFocus(Control& to);
    /// The platform gives the control's widget the toolkit's focus. If the toolkit notifies the platform of that move,
    /// the platform must not report it.
    virtual void doSetFocus(Control& to) = 0;
    /// The first control that Tab reaches, which gets the focus when the window opens; null if there is none.
    Control* firstTabStop() const;

    /// Whether events are still raised; false for a form that has been unloaded.
    virtual bool live() const { return true; }
    /// Plays an event of the surface itself.
    virtual void playOwn(const Event& event);

private:
    friend class Control;

    Control& find(std::string_view name) const;
    [[noreturn]] void raiseWrongKind(const Control& found) const;
    void moveFocus(Control& to);
    void enterFocus(Control& to);
    /// `from` was disabled while it had the focus: gives the focus to a neighbour.
    void leaveDisabled(const Control& from);
    /// The controls that Tab reaches now, in the order of Tab.
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
