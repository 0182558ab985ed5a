#include "ui/Surface.h"

#include "base/RuntimeError.h"

#include <string>

namespace orvan::ui {

Surface::Surface(const FormDesign& design) : design_(design), innerWidth_(design.width), innerHeight_(design.height) {}

void Surface::buildControls()
{
    for (const ControlDesign& row : design_.controls) {
        Control* parent = row.parent.empty() ? nullptr : &find(row.parent);
        controls_.push_back(make(row, parent));
    }
}

void Surface::setInnerSize(float width, float height)
{
    innerWidth_ = width;
    innerHeight_ = height;
    if (const auto handler = onResize) { // a copy: the handler may destroy this surface
        handler();
    }
}

Control& Surface::find(std::string_view name) const
{
    for (const auto& control : controls_) {
        if (control->name() == name) {
            return *control;
        }
    }
    throw RuntimeError(ErrorNumber::objectRequired, std::string(design_.name),
                       "no control \"" + std::string(name) + "\" on \"" + std::string(design_.name) + "\"");
}

void Surface::raiseWrongKind(const Control& found) const
{
    throw RuntimeError(ErrorNumber::typeMismatch, std::string(design_.name),
                       "control \"" + found.name() + "\" on \"" + std::string(design_.name) + "\" is a " +
                           std::string(controlKindName(found.kind())) + ", which was not expected");
}

} // namespace orvan::ui
