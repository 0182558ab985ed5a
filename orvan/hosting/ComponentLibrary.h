// ComponentLibrary: what a shared library exports so that ComponentRegistry can create its classes.
//
// A component library includes this header in one source, writes ORVAN_COMPONENT_LIBRARY there and
// defines OrvanCreateComponent:
//
//     ORVAN_COMPONENT_LIBRARY
//
//     extern "C" void OrvanCreateComponent(const char* className, std::shared_ptr<orvan::ui::Component>* object)
//     {
//         if (std::string_view(className) == "Acme.Trace") {
//             *object = std::make_shared<AcmeTrace>();
//         }
//     }
//
// C++ objects and exceptions pass between the host and the component library, so both must be built with the same
// compiler family, the same standard library, the same options that change the form of its objects, and the same
// headers of this library. The word that OrvanComponentInterfaceVersion returns tells all but the compiler; where it
// differs from the host's, the library is refused before any object passes. A component library that links parts of
// this library has its own copies of their variables: it does not see the trace object of the calling thread
// (gobjTrace). With libc++, which compares types by their addresses, the host has to export its symbols (in CMake:
// ENABLE_EXPORTS); otherwise it does not recognise the library's classes and errors.
#pragma once

#include "orvan/base/RuntimeError.h"
#include "orvan/ui/ComponentFactory.h"

#include <cstdint>
#include <memory>

namespace orvan {

/// Increased whenever an interface that components implement changes.
inline constexpr std::int32_t kComponentInterfaceVersion = 2;
inline constexpr std::int32_t kInterfaceVersionMask = 0xFFFF;
static_assert(kComponentInterfaceVersion <= kInterfaceVersionMask);

/// Ways of building that give the standard library's objects another form, as bits of the interface word. The usual
/// build on Linux (libstdc++ without such options) has none, so that its word is the bare version.
enum class BuildTrait : std::int32_t {
    debugContainers = 1 << 16,    ///< _GLIBCXX_DEBUG: containers and iterators are larger.
    formerStrings = 1 << 17,      ///< _GLIBCXX_USE_CXX11_ABI is 0: strings have their form from before C++11.
    libcxx = 1 << 18,             ///< The standard library is libc++.
    unstableLibcxx = 1 << 19,     ///< libc++ with another ABI version than 1.
    versionedLibstdcxx = 1 << 20, ///< libstdc++ with its versioned namespace.
};

/// The version and the traits of the source that includes this header. Deliberately not inline: sources with other
/// options have a value of their own.
static constexpr std::int32_t kComponentInterfaceWord = [] { // NOLINT(misc-definitions-in-headers)
    std::int32_t word = kComponentInterfaceVersion;
    [[maybe_unused]] const auto add = [&word](BuildTrait trait, bool applies) {
        word |= applies ? static_cast<std::int32_t>(trait) : 0;
    };
#ifdef _GLIBCXX_DEBUG
    add(BuildTrait::debugContainers, true);
#endif
#if defined(_GLIBCXX_USE_CXX11_ABI) && _GLIBCXX_USE_CXX11_ABI == 0
    add(BuildTrait::formerStrings, true);
#endif
#ifdef _LIBCPP_VERSION
    add(BuildTrait::libcxx, true);
    add(BuildTrait::unstableLibcxx, _LIBCPP_ABI_VERSION != 1);
#endif
#if defined(_GLIBCXX_INLINE_VERSION) && _GLIBCXX_INLINE_VERSION
    add(BuildTrait::versionedLibstdcxx, true);
#endif
    return word;
}();

inline constexpr const char* kInterfaceVersionEntryPoint = "OrvanComponentInterfaceVersion";
inline constexpr const char* kCreateComponentEntryPoint = "OrvanCreateComponent";

} // namespace orvan

/// The kComponentInterfaceWord that the library was built with.
extern "C" ORVAN_EXPORT std::int32_t OrvanComponentInterfaceVersion() noexcept;

/// Stores a new object of the class in *object, which is empty before the call; for a class that the library does not
/// have it stays empty. (The object is not the result, because a function with C linkage cannot return one.) className
/// is spelled as the host registered it. May throw. It may be called from any thread, and from several at once.
extern "C" ORVAN_EXPORT void OrvanCreateComponent(const char* className, std::shared_ptr<orvan::ui::Component>* object);

#define ORVAN_COMPONENT_LIBRARY                                                                                        \
    extern "C" std::int32_t OrvanComponentInterfaceVersion() noexcept                                                  \
    {                                                                                                                  \
        return orvan::kComponentInterfaceWord;                                                                         \
    }
