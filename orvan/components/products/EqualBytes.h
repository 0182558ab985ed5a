// equalBytes: compares each of 64 bytes with a given one and returns the results as a word, one bit per byte; the
// lowest bit is that of the first byte.
//
// Where something has to be found every few bytes in a text, this is faster than a loop that looks at each byte: the
// reader gets sixty-four results at once and goes from set bit to set bit. Thread: any.
#pragma once

#include <cstddef>
#include <cstdint>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace orvan {

constexpr std::size_t kByteBlock = 64;

/// Does the same as equalBytes, for processors without SSE2.
inline std::uint64_t equalBytesByWords(const char* block, char wanted)
{
    constexpr std::uint64_t kOnes = 0x0101010101010101;
    constexpr std::uint64_t kLowBits = 0x7F7F7F7F7F7F7F7F;
    constexpr std::uint64_t kGather = 0x0102040810204080; // brings the lowest bit of each byte into the highest byte
    std::uint64_t equal = 0;
    for (std::size_t i = 0; i < kByteBlock; i += 8) {
        std::uint64_t word = 0; // its lowest byte is the first one on every processor; compilers make one load of this
        for (std::size_t byte = 0; byte < 8; ++byte) {
            word |= std::uint64_t{static_cast<unsigned char>(block[i + byte])} << 8 * byte;
        }
        const std::uint64_t difference = word ^ (kOnes * static_cast<unsigned char>(wanted));
        const std::uint64_t zeros = ~(((difference & kLowBits) + kLowBits) | difference | kLowBits) >> 7;
        equal |= zeros * kGather >> 56 << i;
    }
    return equal;
}

inline std::uint64_t equalBytes(const char* block, char wanted)
{
#if defined(__SSE2__)
    std::uint64_t equal = 0;
    for (std::size_t i = 0; i < kByteBlock; i += sizeof(__m128i)) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(block + i));
        const int bits = _mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(wanted)));
        equal |= std::uint64_t{static_cast<unsigned>(bits)} << i;
    }
    return equal;
#else
    return equalBytesByWords(block, wanted);
#endif
}

} // namespace orvan
