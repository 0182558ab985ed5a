// FieldMarks: where each field of a products string ends, and which backslashes are escapes.
//
//     FieldMarks marks(text, '~', ':', '\\');   FieldMarks::Cursor cursor = marks.startAt(2);
//     end = cursor.nextEnd();                    // of the field that begins at 2, then of the next one
//
// The constructor marks the whole text, 64 bytes at a time and without a branch that depends on them. A reader
// therefore knows where a field ends before it reads the field. An object takes a quarter of the text's size in memory.
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
    /// The marks of 64 bytes: one bit per byte, the lowest for the first byte.
    struct Marks {
        std::uint64_t ends;
        std::uint64_t escapes;
    };

public:
    /// Goes from end to end. It is a plain value, so that a loop can keep it in the processor's registers.
    class Cursor {
    public:
        Cursor(const Marks* marks, std::size_t at)
            : marks_(marks), block_(at / kByteBlock), ends_(marks[block_].ends >> at % kByteBlock << at % kByteBlock)
        {
        }

        /// Returns the place of the next separator that no escape precedes, or of the next character that has an escape
        /// but needs none, whichever comes first; after the last of them, the text's end. Not to be called after that.
        std::size_t nextEnd()
        {
            while (ends_ == 0) {
                ends_ = marks_[++block_].ends;
            }
            const std::size_t end = block_ * kByteBlock + static_cast<std::size_t>(std::countr_zero(ends_));
            ends_ &= ends_ - 1;
            return end;
        }

    private:
        const Marks* marks_;
        std::size_t block_;
        std::uint64_t ends_; // the ends in the current block that nextEnd has not returned yet
    };

    FieldMarks(std::string_view text, char recordSep, char fieldSep, char escape);

    /// A cursor in front of the field that begins at `at`, which may be text.size() at most. Valid as long as the
    /// marks.
    Cursor startAt(std::size_t at) const { return {marks_.get(), at}; }

    /// The escapes among the `size` bytes from `at` on, or among the first 64 of them if there are more: one bit per
    /// byte, the lowest for the first byte.
    std::uint64_t escapes(std::size_t at, std::size_t size) const
    {
        const Marks* const block = &marks_[at / kByteBlock];
        const std::size_t before = at % kByteBlock;
        const std::uint64_t from = block[0].escapes >> before | block[1].escapes << 1 << (kByteBlock - 1 - before);
        return size < kByteBlock ? from & ((std::uint64_t{1} << size) - 1) : from;
    }

private:
    std::unique_ptr<Marks[]> marks_; // one element per block, then an empty one, because escapes() reads two elements
};

} // namespace orvan
