// TemporaryFiles: a directory for the files of this run, which is removed when the program ends.
#pragma once

#include <filesystem>

namespace orvan::bench {

/// The directory is on a disk; it is not in /tmp, which may be in memory.
const std::filesystem::path& temporaryFiles();

} // namespace orvan::bench
