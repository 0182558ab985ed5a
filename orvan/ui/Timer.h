// Timer: raises an event when its interval has passed, again and again while it is enabled.
//
// Intervals are in milliseconds; an interval of 0, as at first, never passes. The event comes between
// two actions of the user and never before the interval is over. Raises 380 for a negative interval.
// Ownership: the surface. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/Control.h"

#include <cstdint>

namespace orvan::ui {

class Timer : public Control {
public:
    using Control::Control;

    std::int32_t interval() const { return interval_; }
    /// Begins the wait anew. Raises 380 for a negative interval.
    void setInterval(std::int32_t milliseconds);
    bool enabled() const { return enabled_; }
    /// Enabling begins the wait; a timer that is enabled already keeps the wait that is running.
    void setEnabled(bool enabled);

    std::function<void()> onTimer;

protected:
    /// Begin the wait anew while enabled() and interval() is above 0, else stop.
    virtual void doSchedule() = 0;
    /// The platform's report that the interval has passed. Raises onTimer.
    void elapsed();

private:
    std::int32_t interval_ = 0;
    bool enabled_ = true;
};

} // namespace orvan::ui
