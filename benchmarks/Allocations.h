// Allocations: how often this program allocates memory, and how much of the heap it uses.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orvan::bench {

/// The number of calls of operator new since the program began; this program replaces operator new to count them.
/// Memory that C libraries or Qt's strings allocate does not count.
std::uint64_t allocationCount() noexcept;

/// The number of bytes of the heap in use, by whatever code they were allocated, with the allocator's own overhead.
std::size_t heapInUse() noexcept;

} // namespace orvan::bench
