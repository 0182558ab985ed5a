// WholeFile: a file read or replaced as a whole.
//
// Thread: any. Errors: 75 with the reason in the description (see NewFile.h and Descriptor.h).
#pragma once

#include "orvan/base/UserText.h"
#include "orvan/core_export.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace orvan::files {

/// Tells whether a file is still the one that was read or written.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;     ///< Bytes.
    std::int64_t modified = 0; ///< Nanoseconds since 1970 (UTC), by the clock of the file system.
    std::uint64_t content = 0; ///< A hash of the bytes; it can be compared only within one process.

    /// Whether the bytes are the same, even if another file has taken the place of the first one.
    bool sameContent(const FileStamp& other) const { return size == other.size && content == other.content; }
};

struct WholeFile {
    std::string bytes;
    FileStamp stamp;
};

/// Reads a file. Raises for anything but a regular file (a folder, a pipe, a device), without waiting, and for a file
/// of more than `most` bytes.
[[nodiscard]] ORVAN_CORE_INTERNAL WholeFile readFile(const std::filesystem::path& path, std::int64_t most);

/// The stamp of the file that has that name now; empty if there is no file. Raises if there is one that cannot be read.
[[nodiscard]] ORVAN_CORE_INTERNAL std::optional<FileStamp> currentStamp(const std::filesystem::path& path,
                                                                        std::int64_t most);

struct ReplacedFile {
    FileStamp stamp;
    UserText warning; ///< The warning that NewFile::commit returned.
};

/// Replaces a file, or makes it. The old content stays until the new one is on the disk.
[[nodiscard]] ORVAN_CORE_INTERNAL ReplacedFile replaceFile(const std::filesystem::path& path, std::string_view bytes);

} // namespace orvan::files
