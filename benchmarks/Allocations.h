// Allocations: how often this program asks for memory, and how much of the heap it has.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orvan::bench {

/// Calls of operator new since the program began; it is replaced in this program for that. Memory that a C
/// library's own functions or Qt's strings take does not come here.
std::uint64_t allocationCount() noexcept;

/// Bytes of the heap in use, whoever asked for them, with the allocator's own overhead.
std::size_t heapInUse() noexcept;

} // namespace orvan::bench
