#include "orvan/ui/Surface.h"

#include "orvan/base/RunHandler.h"
#include "orvan/base/RuntimeError.h"

#include <algorithm>
#include <limits>
#include <sstream>
#include <string>

namespace orvan::ui {

namespace {

/// As EventKind::resized has it; so exact that the same lengths are read back.
std::string sizeText(float width, float height)
{
    std::ostringstream text;
    text.precision(std::numeric_limits<float>::max_digits10);
    text << width << ' ' << height;
    return text.str();
}

} // namespace

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
    const Tapped tapped(this, [&] { return Event{.kind = EventKind::resized, .text = sizeText(width, height)}; });
    innerWidth_ = width;
    innerHeight_ = height;
    if (live()) {
        platform_.dispatch([this] { runHandler(onResize); });
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
        const Tapped tapped(this, [&] { return Event{.kind = EventKind::focused, .control = to.name()}; });
        enterFocus(to);
    }
}

void Surface::moveFocus(Control& to)
{
    doSetFocus(to); // also if focused() is `to` already, because the toolkit's own focus may be on a menu
    if (&to != focused_) {
        enterFocus(to);
    }
}

void Surface::play(const Event& event)
{
    if (event.control.empty()) {
        playOwn(event);
    } else if (event.kind == EventKind::focused) {
        Control& to = find(event.control);
        doSetFocus(to);
        userMovedFocus(to);
    } else {
        find(event.control).play(event);
    }
}

void Surface::playOwn(const Event& event)
{
    if (event.kind != EventKind::resized) {
        raiseUnplayable(design_.name, event);
    }
    float width = 0;
    float height = 0;
    std::istringstream(event.text) >> width >> height;
    setInnerSize(width, height);
}

void Surface::enterFocus(Control& to)
{
    Control* const from = focused_;
    focused_ = &to;
    if (from) {
        // The handler of onLostFocus may destroy this surface or move the focus to a third control.
        const LifetimeWatch watch = lifetime_.watch();
        from->raise(from->onLostFocus);
        if (watch.ended() || focused_ != &to) {
            return;
        }
    }
    to.raise(to.onGotFocus);
}

std::vector<Control*> Surface::tabStops() const
{
    std::vector<Control*> stops;
    for (const auto& control : controls_) {
        if (control->design_.tabIndex >= 0 && control->canTakeFocus()) {
            stops.push_back(control.get());
        }
    }
    std::stable_sort(stops.begin(), stops.end(),
                     [](const auto* a, const auto* b) { return a->design_.tabIndex < b->design_.tabIndex; });
    return stops;
}

Control* Surface::firstTabStop() const
{
    const std::vector<Control*> stops = tabStops();
    return stops.empty() ? nullptr : stops.front();
}

void Surface::leaveDisabled(const Control& from)
{
    // The focus goes to a neighbour in the same frame, if possible to the previous one: when a user has pressed "next"
    // until the end of a list and that button is disabled, the focus is then on the button that leads back.
    Control* previous = nullptr;
    Control* next = nullptr;
    Control* elsewhere = nullptr;
    for (Control* stop : tabStops()) {
        if (stop->parent_ != from.parent_) {
            elsewhere = elsewhere ? elsewhere : stop;
        } else if (stop->design_.tabIndex < from.design_.tabIndex) {
            previous = stop;
        } else if (!next) {
            next = stop;
        }
    }
    if (Control* to = previous ? previous : next ? next : elsewhere) {
        moveFocus(*to);
    }
}

} // namespace orvan::ui
