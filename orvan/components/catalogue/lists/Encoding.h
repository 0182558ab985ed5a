// Encoding: finds out in which encoding a text file is written, and reads it as UTF-8.
//
// Encodings have the names that ICU knows. A file is UTF-16 if it begins with a mark, or if the bytes 0 in its
// beginning stand at even or at odd places only. It is UTF-8 if all its bytes are, or if more of its characters beyond
// ASCII are UTF-8 than not: it is then a UTF-8 file with faults. Any other file is in one of the encodings of one byte
// for each character, or in one of East Asia's; ICU tells which by the frequency of letters, and where it cannot, the
// file counts as Windows-1252. The memory needed does not depend on the file's length. Thread: one at a time for a
// stream.
#pragma once

#include "orvan/catalogue_export.h"

#include <atomic>
#include <cstdint>
#include <istream>
#include <memory>
#include <string>
#include <string_view>

namespace orvan {

inline constexpr std::string_view kUtf8 = "UTF-8";

/// Reads the stream to its end.
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL std::string foundEncoding(std::istream& input);

/// The name by which ICU knows an encoding; empty if it does not know it.
[[nodiscard]] std::string knownEncoding(const std::string& name);

/// How many bytes have been read of the stream below.
using ReadCount = std::shared_ptr<std::atomic<std::uint64_t>>;

/// The text as UTF-8; a character that the encoding does not have becomes U+FFFD. A text in UTF-8 stays as it is,
/// faults included. Adds what was read of `input` to `count`, except for a text in UTF-8.
/// Raises 5 for an encoding that ICU does not know.
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL std::unique_ptr<std::istream>
utf8Stream(std::unique_ptr<std::istream> input, const std::string& encoding, const ReadCount& count = nullptr);

} // namespace orvan
