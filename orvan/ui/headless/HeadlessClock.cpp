#include "orvan/ui/headless/HeadlessClock.h"

#include <algorithm>

namespace orvan::headless {

HeadlessTimer* HeadlessClock::nextDue(std::int64_t until) const
{
    const auto next = std::min_element(timers_.begin(), timers_.end(),
                                       [](const auto* a, const auto* b) { return a->due_ < b->due_; });
    return next == timers_.end() || (*next)->due_ > until ? nullptr : *next;
}

void HeadlessClock::advance(std::int64_t milliseconds)
{
    const std::int64_t end = now_ + milliseconds;
    while (HeadlessTimer* timer = nextDue(end)) {
        now_ = std::max(now_, timer->due_); // a handler may have advanced the clock itself
        timer->fire();
    }
    now_ = std::max(now_, end);
}

HeadlessTimer::HeadlessTimer(const ui::ControlDesign& design, HeadlessClock& clock) : Timer(design), clock_(clock)
{
    clock_.timers_.push_back(this);
}

HeadlessTimer::~HeadlessTimer()
{
    std::erase(clock_.timers_, this);
}

void HeadlessTimer::doSchedule()
{
    due_ = enabled() && interval() > 0 ? clock_.now_ + interval() : kNever;
}

void HeadlessTimer::fire()
{
    due_ = clock_.now_ + interval();
    elapsed(); // may end the timer
}

} // namespace orvan::headless
