// ProcessIdentity: who runs this process, and whether a process that left a file behind still runs.
//
// Thread: any. Errors: none is raised; a text that cannot be found out is "".
#pragma once

#include "orvan/core_export.h"

#include <cstdint>
#include <string>

namespace orvan::files {

[[nodiscard]] std::string userName();
[[nodiscard]] ORVAN_CORE_INTERNAL std::string hostName();

/// A text that distinguishes a process of this host from a later process with the same number: it names the start of
/// the computer and the start of the process.
[[nodiscard]] ORVAN_CORE_INTERNAL std::string processIdentity(std::int64_t process);

/// Whether the process that had this identity still runs on this host.
[[nodiscard]] ORVAN_CORE_INTERNAL bool isRunning(std::int64_t process, const std::string& identity);

} // namespace orvan::files
