#include "orvan/components/products/EqualBytes.h"

#include <gtest/gtest.h>

#include <random>

namespace orvan {
namespace {

TEST(EqualBytes, BothWaysFindEachEqualByteAndNoOther)
{
    std::mt19937 random(7);
    for (const char wanted : {'~', '\0', '\x7F', '\x80', '\xFF'}) {
        for (int i = 0; i < 1000; ++i) {
            char block[kByteBlock];
            std::uint64_t expected = 0;
            for (std::size_t at = 0; at < kByteBlock; ++at) {
                // Neighbours and bytes that differ in one bit: a borrow, a carry or a lost bit would show there.
                block[at] = static_cast<char>(random() % 2 == 0 ? wanted + static_cast<int>(random() % 5) - 2
                                                                : wanted ^ (1 << random() % 8));
                expected |= std::uint64_t{block[at] == wanted} << at;
            }
            ASSERT_EQ(equalBytes(block, wanted), expected);
            ASSERT_EQ(equalBytesByWords(block, wanted), expected);
        }
    }
}

} // namespace
} // namespace orvan
