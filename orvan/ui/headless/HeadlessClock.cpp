#include "orvan/ui/headless/HeadlessClock.h"

#include "orvan/ui/headless/HeadlessTimer.h"

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
        now_ = std::max(now_, timer->due_); // now_ may be later, because a handler can call advance() itself
        timer->fire();
    }
    now_ = std::max(now_, end);
}

} // namespace orvan::headless
