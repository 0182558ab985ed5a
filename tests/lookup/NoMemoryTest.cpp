// A catalogue's values are copied while memory runs out.
#include "LookUpBench.h"
#include "tests/support/FailingAllocations.h"

#include <cstdint>
#include <cstring>
#include <new>

namespace orvan::test {
namespace {

/// Runs `action` with no allocation, then with one, and so on, until it succeeds. Returns how often it failed.
template <class Action>
int failuresOf(const Action& action)
{
    for (int failures = 0;; ++failures) {
        failAllocations(static_cast<std::size_t>(failures) + 1, SIZE_MAX);
        try {
            action();
            failAllocations(0, 0);
            return failures;
        } catch (const std::bad_alloc&) {
            failAllocations(0, 0);
        }
    }
}

/// The copy is made where other bytes stood before: what a failed copy finds there must not be taken for a value.
template <class Value>
void expectCopiesThatFailInOrder(const Value& text)
{
    alignas(Value) unsigned char memory[sizeof(Value)];
    for (const int former : {0x00, 0x55, 0xFF}) {
        std::memset(memory, former, sizeof memory);
        const int failures = failuresOf([&] {
            auto* const copy = new (memory) Value(text);
            EXPECT_TRUE(*copy == text);
            copy->~Value();
        });
        EXPECT_EQ(failures, 1) << "the text's own allocation";
    }
}

const std::string kLong(1000, 'x');

TEST(NoMemory, ACopiedValueFailsAndNothingElseHappens)
{
    expectCopiesThatFailInOrder(LookUpValue(kLong));
    expectCopiesThatFailInOrder(ui::GridValue(kLong));
    Script script;
    ScriptedCatalogue catalogue(script);
    catalogue.columns[4] = kLong;
    LookUpValue value;
    script.calls.reserve(1000);
    EXPECT_GT(failuresOf([&] { value = catalogue.GetFieldValue(7); }), 0);
    EXPECT_EQ(toText(value), kLong);
}

} // namespace
} // namespace orvan::test
