#include "orvan/ui/Surface.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/ui/Platform.h"

#include <algorithm>
#include <string>

namespace orvan::ui {

Surface::Surface(const FormDesign& design, Platform& platform)
    : design_(design), platform_(platform), innerWidth_(design.width), innerHeight_(design.height)
{
}

void Surface::buildControls()
{
    for (const ControlDesign& row : design_.controls) {
        Control* parent = row.parent.empty() ? nullptr : &find(row.parent);
        controls_.push_back(make(row, parent));
        controls_.back()->surface_ = this;
        controls_.back()->parent_ = parent;
    }
}

void Surface::setInnerSize(float width, float height)
{
    innerWidth_ = width;
    innerHeight_ = height;
    raise(onResize);
}

void Surface::raise(const std::function<void()>& handler) const
{
    if (live() && handler) {
        platform_.dispatch(std::function(handler)); // a copy: the handler may destroy this surface
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

void Surface::userMovedFocus(Control& to)
{
    if (&to != focused_) {
        enterFocus(to);
    }
}

void Surface::moveFocus(Control& to)
{
    doSetFocus(to); // also where the logic has it there already: the toolkit's may be on a menu
    userMovedFocus(to);
}

void Surface::enterFocus(Control& to)
{
    Control* const from = focused_;
    focused_ = &to;
    if (from) {
        // The first of two handlers may end this surface, or move the focus on.
        const std::weak_ptr<const bool> alive = alive_;
        from->raise(from->onLostFocus);
        if (alive.expired() || focused_ != &to) {
            return;
        }
    }
    to.raise(to.onGotFocus);
}

std::vector<Control*> Surface::tabStops() const
{
    std::vector<std::pair<std::int32_t, Control*>> stops;
    for (std::size_t i = 0; i < controls_.size(); ++i) {
        if (design_.controls[i].tabIndex >= 0 && controls_[i]->canTakeFocus()) {
            stops.emplace_back(design_.controls[i].tabIndex, controls_[i].get());
        }
    }
    std::stable_sort(stops.begin(), stops.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<Control*> controls;
    for (const auto& [index, control] : stops) {
        controls.push_back(control);
    }
    return controls;
}

Control* Surface::firstTabStop() const
{
    const std::vector<Control*> stops = tabStops();
    return stops.empty() ? nullptr : stops.front();
}

const ControlDesign& Surface::designOf(const Control& control) const
{
    const auto found =
        std::find_if(controls_.begin(), controls_.end(), [&](const auto& owned) { return owned.get() == &control; });
    return design_.controls[static_cast<std::size_t>(found - controls_.begin())];
}

void Surface::leaveDisabled(const Control& from)
{
    // A neighbour in the same frame, the one before rather than the one after: a user who steps to
    // the end of a list with the space bar then rests on the way back, not on whatever comes next.
    const ControlDesign& place = designOf(from);
    Control* before = nullptr;
    Control* after = nullptr;
    Control* elsewhere = nullptr;
    for (Control* stop : tabStops()) {
        const ControlDesign& other = designOf(*stop);
        if (stop == &from) {
            continue;
        }
        if (other.parent != place.parent) {
            elsewhere = elsewhere ? elsewhere : stop;
        } else if (other.tabIndex < place.tabIndex) {
            before = stop;
        } else if (!after) {
            after = stop;
        }
    }
    if (Control* to = before ? before : after ? after : elsewhere) {
        moveFocus(*to);
    }
}

} // namespace orvan::ui
