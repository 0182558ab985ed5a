#include "orvan/ui/qt/QtTimer.h"

namespace orvan::qt {

QtTimer::QtTimer(const ui::ControlDesign& design) : Timer(design)
{
    timer_.setTimerType(Qt::PreciseTimer); // a timer of Qt's other types may fire early by a twentieth of the interval
    timer_.callOnTimeout([this] { elapsed(); });
}

void QtTimer::end()
{
    ended_ = true;
    timer_.stop();
}

void QtTimer::doSchedule()
{
    if (enabled() && interval() > 0 && !ended_) {
        timer_.start(interval());
    } else {
        timer_.stop();
    }
}

} // namespace orvan::qt
