#include "orvan/ui/Control.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/ui/Surface.h"

#include <cmath>

namespace orvan::ui {

std::string_view controlKindName(ControlKind kind)
{
    switch (kind) {
    case ControlKind::button: return "button";
    case ControlKind::comboBox: return "combo box";
    case ControlKind::frame: return "frame";
    case ControlKind::grid: return "grid";
    case ControlKind::label: return "label";
    case ControlKind::line: return "line";
    case ControlKind::popupMenu: return "pop-up menu";
    case ControlKind::textBox: return "text box";
    case ControlKind::timer: return "timer";
    case ControlKind::toolBar: return "tool bar";
    }
    return "control";
}

Control::Control(const ControlDesign& design)
    : design_(design), name_(design.name), left_(design.left), top_(design.top), width_(design.width),
      height_(design.height)
{
}

void Control::move(float left, float top)
{
    move(left, top, width_, height_);
}

void Control::move(float left, float top, float width, float height)
{
    if (!std::isfinite(left) || !std::isfinite(top) || !std::isfinite(width) || !std::isfinite(height)) {
        throw RuntimeError(ErrorNumber::overflow, {}, name_ + ": a length is not finite");
    }
    if (width < 0 || height < 0) {
        throw RuntimeError(ErrorNumber::invalidPropertyValue, {}, name_ + ": a size cannot be negative");
    }
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
    doMove();
}

bool Control::canTakeFocus() const
{
    const bool ofSuchKind = kind() == ControlKind::button || kind() == ControlKind::comboBox ||
                            kind() == ControlKind::grid || kind() == ControlKind::textBox;
    return ofSuchKind && takesInput();
}

void Control::requireFocusable() const
{
    if (!surface_ || !canTakeFocus()) {
        throw RuntimeError(ErrorNumber::invalidProcedureCall, {}, name_ + ": cannot take the focus");
    }
}

void Control::setFocus()
{
    requireFocusable();
    surface_->moveFocus(*this);
}

void Control::userFocused()
{
    requireFocusable();
    surface_->userMovedFocus(*this);
}

bool Control::hasFocus() const
{
    return surface_ && surface_->focused() == this;
}

Platform* Control::eventPlatform() const
{
    return surface_ && surface_->live() ? &surface_->platform() : nullptr;
}

void Control::play(const Event& event)
{
    raiseUnplayable(name_, event);
}

void Control::giveFocusAway()
{
    if (const Control* focused = surface_ ? surface_->focused() : nullptr; focused && !focused->canTakeFocus()) {
        surface_->leaveDisabled(*focused);
    }
}

void EnabledControl::setEnabled(bool enabled)
{
    if (enabled == enabled_) {
        return;
    }
    enabled_ = enabled;
    if (!enabled) {
        giveFocusAway();
    }
    doSetEnabled();
}

} // namespace orvan::ui
