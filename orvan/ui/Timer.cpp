#include "orvan/ui/Timer.h"

#include "orvan/base/RuntimeError.h"

namespace orvan::ui {

void Timer::setInterval(std::int32_t milliseconds)
{
    if (milliseconds < 0) {
        throw RuntimeError(ErrorNumber::invalidPropertyValue, {}, name() + ": an interval cannot be negative");
    }
    interval_ = milliseconds;
    schedule();
}

void Timer::setEnabled(bool enabled)
{
    if (enabled != enabled_) {
        enabled_ = enabled;
        schedule();
    }
}

void Timer::schedule()
{
    if (beforeSchedule) {
        beforeSchedule();
    }
    doSchedule();
}

void Timer::elapsed()
{
    if (enabled_) {
        const Tapped tapped(surface(), [this] { return told(EventKind::timer); });
        raise(onTimer);
    }
}

void Timer::play(const Event& event)
{
    if (event.kind != EventKind::timer) {
        raiseUnplayable(name(), event);
    }
    elapsed();
}

} // namespace orvan::ui
