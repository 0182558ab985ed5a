// Surface: a loaded design, on which the logic finds its controls by name and kind.
//
// A platform derives from it, makes the controls in its constructor (buildControls) and reports the
// size. Ownership: the surface owns its controls; whoever loaded it owns the surface, and it must
// outlive the logic that uses it. Thread: the user-interface thread.
#pragma once

#include "ui/Control.h"

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace orvan::ui {

class Surface {
public:
    explicit Surface(const FormDesign& design);
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;
    virtual ~Surface() = default;

    const FormDesign& design() const { return design_; }
    /// Space for the controls, in twips.
    float innerWidth() const { return innerWidth_; }
    float innerHeight() const { return innerHeight_; }

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

protected:
    /// Makes one control inside `parent` (null: the surface itself).
    virtual std::unique_ptr<Control> make(const ControlDesign& design, Control* parent) = 0;
    /// Makes every control of the design; a platform calls it once, when it can make them.
    /// Raises 424 for a control whose frame is not in the design before it.
    void buildControls();
    /// The platform's report. Raises onResize.
    void setInnerSize(float width, float height);

private:
    Control& find(std::string_view name) const;
    [[noreturn]] void raiseWrongKind(const Control& found) const;

    const FormDesign& design_;
    std::vector<std::unique_ptr<Control>> controls_;
    float innerWidth_;
    float innerHeight_;
};

} // namespace orvan::ui
