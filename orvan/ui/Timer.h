// Timer: raises an event when its interval has passed, again and again while it is enabled.
//
// Intervals are in milliseconds; with an interval of 0, the initial value, the event never comes. The event comes
// between two actions of the user and never before the interval has passed. Raises 380 for a negative interval.
// Ownership: the surface. Thread: the user-interface thread.
#pragma once

#include "orvan/core_export.h"
#include "orvan/ui/Control.h"

#include <cstdint>

namespace orvan::ui {

class ORVAN_CORE_INTERNAL Timer : public Control {
public:
    using Control::Control;

    std::int32_t interval() const { return interval_; }
    /// Sets the interval and starts waiting from the beginning. Raises 380 for a negative interval.
    void setInterval(std::int32_t milliseconds);
    bool enabled() const { return enabled_; }
    /// Enabling a timer starts its wait; enabling it again does not restart the wait.
    void setEnabled(bool enabled);

    std::function<void()> onTimer;
    /// For tests: runs before the platform is asked to wait, and may throw as a platform's timer may.
    std::function<void()> beforeSchedule;

    void play(const Event& event) override;

protected:
    /// The platform starts the wait from the beginning if the timer is enabled and interval() is above 0; otherwise it
    /// stops waiting.
    virtual void doSchedule() = 0;
    /// The platform reports that the interval has passed. Raises onTimer.
    void elapsed();

private:
    void schedule();

    std::int32_t interval_ = 0;
    bool enabled_ = true;
};

} // namespace orvan::ui
