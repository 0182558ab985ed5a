// Each call that leaves the library fails in turn, on each platform and in both ways of editing.

#include "tests/contract/HeadlessDriver.h"
#include "tests/support/Rows.h"
#include "tests/sweeps/WholeSession.h"
#ifdef ORVAN_SWEEP_QT
#include "tests/contract/QtDriver.h"
#endif

#include <cstdlib>
#include <iostream>

namespace orvan::sweeps {
namespace {

using testkit::OutsideCalls;

struct Sweep {
    const char* name;
    std::unique_ptr<contract::Driver> (*makeDriver)();
    ui::EditingWay editing;
    OutsideCalls::Repeat repeat;
    OutsideCalls::Failure failure;
    std::size_t stride; ///< Every stride-th call is made to fail; where the sweep runs whole, each call.
};

template <class Driver>
std::unique_ptr<contract::Driver> make()
{
    return std::make_unique<Driver>();
}

/// Runs the session; the first failure is the call `number` (0: none).
std::size_t runSession(const Sweep& sweep, OutsideCalls& calls, std::size_t number)
{
    const std::unique_ptr<contract::Driver> driver = sweep.makeDriver();
    WholeSession session(*driver, calls, sweep.editing);
    std::size_t made = 0;
    std::string failed;
    session.endFailing = [&] {
        made = std::max(made, calls.count());
        failed = failed.empty() ? calls.failed() : failed;
        session.traceFailed = failed.starts_with("trace.") || sweep.repeat == OutsideCalls::Repeat::fromThenOn;
        calls.failAt(0);
    };
    calls.failAt(number, sweep.repeat, sweep.failure);
    session.run();
    for (const std::string& fault : session.faults) {
        ADD_FAILURE() << "call " << number << ", " << failed << ": " << fault;
    }
    EXPECT_TRUE(number != 0 || session.errors == 0) << "errors where nothing failed";
    return made;
}

/// Divides the calls among `parts` parts, and makes the calls of one part fail in turn. `part` counts from 0.
void expectOrderWhateverFails(const Sweep& sweep, std::size_t part = 0, std::size_t parts = 1)
{
    const char* const size = std::getenv("ORVAN_SWEEPS");
    const std::size_t stride = size && std::string_view(size) == "whole" ? 1 : sweep.stride;
    OutsideCalls calls;
    const std::size_t all = runSession(sweep, calls, 0);
    std::size_t runs = 0;
    for (std::size_t number = 1 + part * stride; number <= all; number += parts * stride, ++runs) {
        runSession(sweep, calls, number);
    }
    std::cout << sweep.name << ": " << all << " calls, " << runs << " of them failed\n";
    EXPECT_GT(all, 300U);
}

TEST(OutsideCallsInMemoryTest, EachCall)
{
    using enum ui::EditingWay;
    using enum OutsideCalls::Repeat;
    using enum OutsideCalls::Failure;
    test::forEachRow(
        std::vector<Sweep>{
            {"classic, once", make<contract::HeadlessDriver>, classic, once, runtimeError, 1},
            {"careful, once", make<contract::HeadlessDriver>, careful, once, runtimeError, 1},
            {"classic, from then on", make<contract::HeadlessDriver>, classic, fromThenOn, runtimeError, 3},
            {"careful, from then on", make<contract::HeadlessDriver>, careful, fromThenOn, runtimeError, 3},
            {"classic, no exception class", make<contract::HeadlessDriver>, classic, once, foreign, 3},
            {"careful, no exception class", make<contract::HeadlessDriver>, careful, once, foreign, 3},
        },
        [](const Sweep& sweep) { expectOrderWhateverFails(sweep); });
}

#ifdef ORVAN_SWEEP_QT
/// A session in windows mostly waits, so several parts can run at a time.
class OutsideCallsInWindowsTest : public testing::TestWithParam<std::size_t> {};

constexpr std::size_t kParts = 4;

TEST_P(OutsideCallsInWindowsTest, EachCall)
{
    using enum ui::EditingWay;
    test::forEachRow(
        std::vector<Sweep>{
            {"classic, in windows", make<contract::QtDriver>, classic, OutsideCalls::Repeat::once,
             OutsideCalls::Failure::runtimeError, 130},
            {"careful, in windows", make<contract::QtDriver>, careful, OutsideCalls::Repeat::once,
             OutsideCalls::Failure::runtimeError, 130},
        },
        [](const Sweep& sweep) { expectOrderWhateverFails(sweep, GetParam(), kParts); });
}

INSTANTIATE_TEST_SUITE_P(Part, OutsideCallsInWindowsTest, testing::Range(std::size_t{0}, kParts));
#endif

} // namespace
} // namespace orvan::sweeps
