// Version: which build of the library this is.
//
// The texts live as long as the process. Thread: any.
#pragma once

#include "orvan/core_export.h"

#include <string_view>

namespace orvan {

/// Major, minor and revision, as in the installed package's version: "2.1.30".
[[nodiscard]] ORVAN_CORE_EXPORT std::string_view libraryVersion();

/// The same in the fixed widths of a file's version field (minor 2 digits, revision 4): "2.01.0030".
[[nodiscard]] ORVAN_CORE_EXPORT std::string_view fileVersion();

[[nodiscard]] ORVAN_CORE_EXPORT std::string_view libraryDescription();

} // namespace orvan
