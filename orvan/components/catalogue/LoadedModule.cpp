#include "orvan/components/catalogue/LoadedModule.h"

#include <filesystem>
#include <system_error>
#include <vector>

#include <dlfcn.h>

namespace orvan {

namespace {

namespace fs = std::filesystem;

/// The places where the module may stand, the first one first.
std::vector<fs::path> modulePlaces(const std::string& file)
{
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error).parent_path();
    std::vector<fs::path> places;
    if (!error) {
        places.push_back(program / file);
        places.push_back(program.parent_path() / ORVAN_MODULES_BELOW_PREFIX / file);
    }
    // Beside the shared library that has this code; a host's program may stand anywhere. If it is no shared library,
    // the name is that with which the program was started, which may be relative to any folder.
    Dl_info here = {};
    if (::dladdr(reinterpret_cast<const void*>(&moduleFunction), &here) != 0) {
        if (const fs::path library = here.dli_fname; library.is_absolute()) {
            places.push_back(library.parent_path() / "orvan" / file);
        }
    }
    places.push_back(fs::path(ORVAN_INSTALLED_MODULES) / file);
    return places;
}

} // namespace

void* moduleFunction(const std::string& module, const char* function, std::string& reasons)
{
    for (const fs::path& place : modulePlaces(module + ORVAN_MODULE_SUFFIX)) {
        void* const loaded = ::dlopen(place.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (void* const found = loaded ? ::dlsym(loaded, function) : nullptr) {
            return found;
        }
        reasons.append(reasons.empty() ? "" : "; ").append(::dlerror());
    }
    return nullptr;
}

} // namespace orvan
