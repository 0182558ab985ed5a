#include "orvan/ui/headless/HeadlessTimer.h"

#include "orvan/ui/headless/HeadlessClock.h"

namespace orvan::headless {

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
    elapsed(); // the handler may destroy the timer
}

} // namespace orvan::headless
