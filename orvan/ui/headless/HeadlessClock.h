// HeadlessClock: the time of an in-memory platform, which passes only when advance() is called.
//
// The time is in milliseconds since the platform was made. Ownership: the platform; the clock outlives its
// timers. Thread: the platform's.
#pragma once

#include "orvan/core_export.h"

#include <cstdint>
#include <vector>

namespace orvan::headless {

class HeadlessTimer;

class ORVAN_CORE_EXPORT HeadlessClock {
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

} // namespace orvan::headless
