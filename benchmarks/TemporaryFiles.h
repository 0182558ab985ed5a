// TemporaryFiles: a directory of this run's own, gone with the program.
#pragma once

#include <filesystem>

namespace orvan::bench {

/// On a disk, where /tmp may be memory.
const std::filesystem::path& temporaryFiles();

} // namespace orvan::bench
