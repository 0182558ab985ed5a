#include "orvan/components/products/FieldMarks.h"

namespace orvan {

namespace {

/// The escapes among 64 bytes, and the bytes that an escape precedes: one bit per byte, the lowest for the first byte.
struct Escapes {
    std::uint64_t escapes;
    std::uint64_t escaped;
};

/// `escapedFirst` is 1 where an escape precedes the first of the 64 bytes, else 0. In a run of backslashes an escape
/// escapes the backslash after it, so the first, third, fifth ... of the run are escapes. The subtraction leaves a run
/// that begins at an even place as it is; of a run that begins at an odd place it leaves only the bit after the run's
/// end. The exclusive or with the mask of the odd places turns both into every second bit from the run's first one on.
Escapes escapesAmong(std::uint64_t backslashes, std::uint64_t escapedFirst)
{
    constexpr std::uint64_t kOddPlaces = 0xAAAAAAAAAAAAAAAA;
    const std::uint64_t candidates = backslashes & ~escapedFirst;
    const std::uint64_t everySecond = ((candidates << 1 | kOddPlaces) - candidates) ^ kOddPlaces;
    return {everySecond & backslashes, everySecond ^ (backslashes | escapedFirst)};
}

} // namespace

FieldMarks::FieldMarks(std::string_view text, char recordSep, char fieldSep, char escape)
{
    // The index of the last block. This block is never full (it may be empty), because it also marks the text's end.
    const std::size_t last = text.size() / kByteBlock;
    const std::size_t rest = text.size() % kByteBlock;
    // Not make_unique, which would fill the array with 0 before it is written below.
    marks_.reset(new Marks[last + 2]); // NOLINT(modernize-make-unique)
    std::uint64_t escapedFirst = 0;
    const auto mark = [&](const char* block) {
        const std::uint64_t backslashes = equalBytes(block, escape);
        const std::uint64_t separators = equalBytes(block, recordSep) | equalBytes(block, fieldSep);
        const auto [escapes, escaped] = escapesAmong(backslashes, escapedFirst);
        escapedFirst = escapes >> (kByteBlock - 1);
        // These bytes count as ends: a separator that no escape precedes, and a character that has an escape but needs
        // none (an error that the reader reports). An escape itself is not an end.
        return Marks{((separators | backslashes) & ~escapes) ^ escaped, escapes};
    };
    for (std::size_t i = 0; i < last; ++i) {
        marks_[i] = mark(text.data() + i * kByteBlock);
    }
    char padded[kByteBlock] = {};
    text.copy(padded, rest, last * kByteBlock);
    const Marks found = mark(padded);
    marks_[last] = {found.ends | std::uint64_t{1} << rest, found.escapes};
    marks_[last + 1] = {0, 0};
}

} // namespace orvan
