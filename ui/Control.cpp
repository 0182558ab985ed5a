#include "ui/Control.h"

#include "base/RuntimeError.h"

#include <cmath>

namespace orvan::ui {

std::string_view controlKindName(ControlKind kind)
{
    switch (kind) {
    case ControlKind::button: return "button";
    case ControlKind::frame: return "frame";
    case ControlKind::grid: return "grid";
    case ControlKind::label: return "label";
    case ControlKind::textBox: return "text box";
    }
    return "control";
}

Control::Control(const ControlDesign& design)
    : name_(design.name), kind_(design.kind), left_(design.left), top_(design.top), width_(design.width),
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

} // namespace orvan::ui
