// HeadlessClock: the time of an in-memory platform, which passes only by advance().
//
// In milliseconds since the platform was made. Ownership: the platform; it outlives its timers. Thread:
// the platform's.
#pragma once

#include "orvan/ui/Timer.h"

#include <cstdint>
#include <vector>

namespace orvan::headless {

class HeadlessTimer;

class HeadlessClock {
public:
    std::int64_t now() const { return now_; }
    /// Lets time pass; timers fire in the order in which they are due, each at its own time. Handlers
    /// may start and stop timers and unload their form.
    void advance(std::int64_t milliseconds);

private:
    friend class HeadlessTimer;

    HeadlessTimer* nextDue(std::int64_t until) const;

    std::int64_t now_ = 0;
    std::vector<HeadlessTimer*> timers_;
};

class HeadlessTimer final : public ui::Timer {
public:
    HeadlessTimer(const ui::ControlDesign& design, HeadlessClock& clock);
    ~HeadlessTimer() override;

private:
    friend class HeadlessClock;

    static constexpr std::int64_t kNever = INT64_MAX;

    void doMove() override {}
    void doSchedule() override;
    void fire();

    HeadlessClock& clock_;
    std::int64_t due_ = kNever;
};

} // namespace orvan::headless
