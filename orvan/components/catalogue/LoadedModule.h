// moduleFunction: a function of one of this library's modules, which are shared libraries that are loaded at first use.
//
// A module is looked for beside the program, in the folder of the program's installation, in the folder "orvan" beside
// the shared library, and in the folder where the library was installed. It is never unloaded, because it may be needed
// again. Thread: any.
#pragma once

#include "orvan/catalogue_export.h"

#include <string>

namespace orvan {

/// `module` is the module's name without the ending of shared libraries. Returns null where the module cannot be
/// loaded; `reasons` then says why.
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL void* moduleFunction(const std::string& module, const char* function,
                                                            std::string& reasons);

} // namespace orvan
