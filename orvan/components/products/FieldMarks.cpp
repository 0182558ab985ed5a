#include "orvan/components/products/FieldMarks.h"

namespace orvan {

namespace {

/// What is known of 64 bytes once it is known whether an escape stands before them.
struct Escapes {
    std::uint64_t escapes;
    std::uint64_t escaped;
};

/// In a run of backslashes each escape takes the next one with it, so every second is an escape, from the first on.
/// The subtraction leaves a run that begins at an even place as it is, and of one that begins at an odd place only the
/// bit behind its end; with the mask of the odd places either becomes every second bit, from the run's first on.
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
    const std::size_t last =
        text.size() / kByteBlock; // index of the last block; never a full one, because it also marks the text's end
    const std::size_t rest = text.size() % kByteBlock;
    marks_.reset(new Marks[last + 2]); // left as it is: each block is written below (make_unique would fill it first)
    std::uint64_t escapedFirst = 0;
    const auto mark = [&](const char* block) {
        const std::uint64_t backslashes = equalBytes(block, escape);
        const std::uint64_t separators = equalBytes(block, recordSep) | equalBytes(block, fieldSep);
        const auto [escapes, escaped] = escapesAmong(backslashes, escapedFirst);
        escapedFirst = escapes >> (kByteBlock - 1);
        // Marked: a separator or backslash that no escape precedes (the field ends here, or is refused), and any other
        // character that one does precede (a needless escape).
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
