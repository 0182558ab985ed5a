// Each memory allocation of a whole session on the in-memory platform fails in turn, alone and with all that follow it.

#include "tests/contract/HeadlessDriver.h"
#include "tests/support/Rows.h"
#include "tests/sweeps/WholeSession.h"

#include <cstdint>
#include <iostream>

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
        made = std::max(made, test::allocationCount());
        test::failAllocations(0, 0);
    };
    test::failAllocations(number, sweep.fromThenOn ? SIZE_MAX : number);
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
