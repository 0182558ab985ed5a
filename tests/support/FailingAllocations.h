// FailingAllocations: this program's operator new, which fails when it is told to.
//
// The operators stand in a source of their own, so that the compiler does not see one of them without the other.
// Thread: one at a time.
#pragma once

#include <cstddef>
#include <utility>

namespace orvan::test {

/// Counts the allocations anew. Those from `first` to `last` fail (1 is the next one; 0: none fails).
void failAllocations(std::size_t first, std::size_t last);
/// The allocations since then.
[[nodiscard]] std::size_t allocationCount();

/// While one of these lives, no allocation is made to fail: the test's own code must not fail.
class AllocationPause {
public:
    AllocationPause() { ++depth; }
    AllocationPause(const AllocationPause&) = delete;
    AllocationPause& operator=(const AllocationPause&) = delete;
    ~AllocationPause() { --depth; }

    inline static int depth = 0;
};

/// While one of these lives, the pauses do not count: it is for the calls that are under test.
class AllocationTrial {
public:
    AllocationTrial() : former_(std::exchange(AllocationPause::depth, 0)) {}
    AllocationTrial(const AllocationTrial&) = delete;
    AllocationTrial& operator=(const AllocationTrial&) = delete;
    ~AllocationTrial() { AllocationPause::depth = former_; }

private:
    int former_;
};

} // namespace orvan::test
