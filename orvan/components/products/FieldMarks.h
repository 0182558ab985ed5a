// FieldMarks: where each field of a products string ends, and which backslashes are escapes.
//
//     FieldMarks marks(text, '~', ':', '\\');   marks.startAt(2);
//     end = marks.nextEnd();                     // of the field that begins at 2, then of the next one
//
// The whole text is marked first, 64 bytes at a time and without a branch on what they are; then a reader knows a
// field's end before it has read the field, and the next one's, too. Takes a quarter of the text's size while it lives.
// Thread: a plain value.
#pragma once

#include "orvan/components/products/EqualBytes.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace orvan {

class FieldMarks {
public:
    FieldMarks(std::string_view text, char recordSep, char fieldSep, char escape);

    /// The next end is that of the field that begins there: up to text.size().
    void startAt(std::size_t at)
    {
        block_ = at / kByteBlock;
        ends_ = marks_[block_].ends >> at % kByteBlock << at % kByteBlock;
    }

    /// The place of the next separator without an escape before it, or of a character that needs none but has one;
    /// after the last of them the text's end, behind which nothing may be asked for.
    std::size_t nextEnd()
    {
        while (ends_ == 0) {
            ends_ = marks_[++block_].ends;
        }
        const std::size_t end = block_ * kByteBlock + static_cast<std::size_t>(std::countr_zero(ends_));
        ends_ &= ends_ - 1;
        return end;
    }

    /// The escapes among the `size` bytes from there on, but of 64 at most: one bit a byte, the first byte's lowest.
    std::uint64_t escapes(std::size_t at, std::size_t size) const
    {
        const Marks* const block = &marks_[at / kByteBlock];
        const std::size_t before = at % kByteBlock;
        const std::uint64_t from = block[0].escapes >> before | block[1].escapes << 1 << (kByteBlock - 1 - before);
        return size < kByteBlock ? from & ((std::uint64_t{1} << size) - 1) : from;
    }

private:
    /// What is marked among 64 bytes: one bit per byte, the first byte's lowest.
    struct Marks {
        std::uint64_t ends;
        std::uint64_t escapes;
    };

    std::unique_ptr<Marks[]> marks_; // one element per block, and one more without any mark
    std::size_t block_ = 0;
    std::uint64_t ends_ = 0; // the ends of the current block that have not been asked for yet
};

} // namespace orvan
