// ProcessIdentity: who runs this process, and whether a process that left a file behind still runs.
//
// Thread: any. Errors: none is raised; what cannot be found out is "".
#pragma once

#include <cstdint>
#include <string>

namespace orvan::files {

[[nodiscard]] std::string userName();
[[nodiscard]] std::string hostName();

/// Tells a process of this host from a later one with the same number: when the computer was started, and
/// when the process was.
[[nodiscard]] std::string processIdentity(std::int64_t process);

/// Whether the process that had this identity still runs on this host.
[[nodiscard]] bool isRunning(std::int64_t process, const std::string& identity);

} // namespace orvan::files
