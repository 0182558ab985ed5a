// Conformance: tests which a host runs on its own implementation of a contract, one test for each requirement.
//
// Each contract has a header here with a table of requirements ("rows") and a function that makes a test of each row. A
// host calls it in a source of a GoogleTest program, before the tests run, for instance:
//
//     #include <orvan/testing/ProductMgrConformance.h>
//
//     const auto kTests = orvan::conformance::addProductMgrTests("Acme", [] { return std::make_shared<AcmeManager>();
//     });
//
// The tests are then named "AcmeProductMgr.NewManagerIsEmpty" and so on. The headers need GoogleTest, which the host
// finds and links by itself (GTest::gtest_main); nothing else in the library does. What a row checks is what the
// contract's own header says, in the order of that header. Thread: the rows run in the thread of the tests.
#pragma once

#include "orvan/base/RuntimeError.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>

namespace orvan::conformance {

/// One requirement. `check` fails by the macros of GoogleTest; what it throws fails the row, too.
template <class Subject>
struct Row {
    const char* name;
    void (*check)(const Subject& subject);
};

/// The number of the error that `action` raises, as the library sees it; 0 for none.
template <class Action>
std::int32_t errorOf(Action&& action)
{
    try {
        std::forward<Action>(action)();
    } catch (...) {
        return currentError().number();
    }
    return 0;
}

/// What a host's factory makes, as the interface that the library asks it for. Raises 430 with `missing` where the
/// factory makes something else or nothing.
template <class Interface, class Factory>
std::shared_ptr<Interface> madeAs(const Factory& make, const char* missing)
{
    auto object = std::dynamic_pointer_cast<Interface>(make());
    if (!object) {
        throw RuntimeError(ErrorNumber::interfaceNotSupported, {}, missing);
    }
    return object;
}

/// Runs one row; an error that leaves it becomes a failure.
template <class Subject>
void run(const Row<Subject>& row, const Subject& subject)
{
    try {
        row.check(subject);
    } catch (...) {
        const RuntimeError error = currentError();
        ADD_FAILURE() << row.name << ": error " << error.number() << ", " << error.text();
    }
}

/// Makes a test of each row; returns how many there are. To be called before the tests run.
template <class Subject>
std::size_t addTests(const std::string& suite, std::span<const Row<Subject>> rows, const Subject& subject)
{
    class Test final : public testing::Test {
    public:
        Test(const Row<Subject>& row, Subject tested) : row_(row), subject_(std::move(tested)) {}

    private:
        void TestBody() override { run(row_, subject_); }

        Row<Subject> row_;
        Subject subject_;
    };
    for (const Row<Subject>& row : rows) {
        testing::RegisterTest(suite.c_str(), row.name, nullptr, nullptr, __FILE__, __LINE__,
                              [row, subject]() -> testing::Test* { return new Test(row, subject); });
    }
    return rows.size();
}

} // namespace orvan::conformance
