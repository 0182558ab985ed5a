// Each memory allocation of a whole session on the in-memory platform fails in turn, alone and with all that follow it.

#include "tests/contract/HeadlessDriver.h"
#include "tests/support/Rows.h"
#include "tests/sweeps/WholeSession.h"

#include <cstdlib>
#include <iostream>
#include <new>

namespace {

std::size_t allocations = 0;
std::size_t failFrom = 0; ///< 0: none fails.
std::size_t failTo = 0;

void* allocate(std::size_t size)
{
    if (orvan::sweeps::AllocationPause::depth == 0) {
        ++allocations;
        if (failFrom != 0 && allocations >= failFrom && allocations <= failTo) {
            return nullptr;
        }
    }
    return std::malloc(size == 0 ? 1 : size);
}

} // namespace

void* operator new(std::size_t size)
{
    void* const memory = allocate(size);
    return memory ? memory : throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return allocate(size);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace orvan::sweeps {
namespace {

struct Sweep {
    const char* name;
    ui::EditingWay editing;
    bool fromThenOn;
};

/// Runs the session; returns how many allocations it makes.
std::size_t runSession(const Sweep& sweep, std::size_t number)
{
    contract::HeadlessDriver driver;
    testkit::OutsideCalls calls;
    WholeSession session(driver, calls, sweep.editing);
    std::size_t made = 0;
    session.endFailing = [&] {
        made = std::max(made, allocations);
        failFrom = 0;
    };
    allocations = 0;
    failTo = sweep.fromThenOn ? SIZE_MAX : number;
    failFrom = number;
    session.run();
    for (const std::string& fault : session.faults) {
        ADD_FAILURE() << "allocation " << number << ": " << fault;
    }
    EXPECT_TRUE(number != 0 || session.errors == 0) << "errors where nothing failed";
    return made;
}

TEST(AllocationsTest, EachThatFailsLeavesThingsInOrder)
{
    test::forEachRow(
        std::vector<Sweep>{
            {"classic, once", ui::EditingWay::classic, false},
            {"careful, once", ui::EditingWay::careful, false},
            {"classic, from then on", ui::EditingWay::classic, true},
            {"careful, from then on", ui::EditingWay::careful, true},
        },
        [](const Sweep& sweep) {
            const std::size_t all = runSession(sweep, 0);
            for (std::size_t number = 1; number <= all; ++number) {
                runSession(sweep, number);
            }
            std::cout << sweep.name << ": " << all << " allocations failed in turn\n";
            EXPECT_GT(all, 300U);
        });
}

} // namespace
} // namespace orvan::sweeps
