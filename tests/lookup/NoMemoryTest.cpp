// A catalogue's values are copied while memory runs out. This program's operator new fails when it is told to.
#include "LookUpBench.h"

#include <cstdlib>
#include <cstring>
#include <new>

namespace {

/// How many allocations still succeed; all of them while it is below 0.
thread_local long allocationsLeft = -1;

} // namespace

void* operator new(std::size_t size, const std::nothrow_t& /*unused*/) noexcept
{
    if (allocationsLeft == 0) {
        return nullptr;
    }
    allocationsLeft -= allocationsLeft > 0 ? 1 : 0;
    return std::malloc(size == 0 ? 1 : size);
}

void* operator new(std::size_t size)
{
    if (void* const memory = operator new(size, std::nothrow)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}

namespace orvan::test {
namespace {

/// Runs `action` with no allocation, then with one, and so on, until it succeeds. Returns how often it failed.
template <class Action>
int failuresOf(const Action& action)
{
    for (int allocations = 0;; ++allocations) {
        allocationsLeft = allocations;
        try {
            action();
            allocationsLeft = -1;
            return allocations;
        } catch (const std::bad_alloc&) {
            allocationsLeft = -1;
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
