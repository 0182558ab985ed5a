// HeadlessTimer: a timer that fires when its platform's clock is advanced.
//
// Thread: the platform's.
#pragma once

#include "orvan/ui/Timer.h"

#include <cstdint>

namespace orvan::headless {

class HeadlessClock;

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
