#include "tests/support/FailingAllocations.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t allocations = 0;
std::size_t failFrom = 0; ///< 0: none fails.
std::size_t failTo = 0;

void* allocate(std::size_t size)
{
    if (orvan::test::AllocationPause::depth == 0) {
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

namespace orvan::test {

void failAllocations(std::size_t first, std::size_t last)
{
    allocations = 0;
    failTo = last;
    failFrom = first;
}

std::size_t allocationCount()
{
    return allocations;
}

} // namespace orvan::test
