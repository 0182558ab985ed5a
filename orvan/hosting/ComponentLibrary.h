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
// compiler family, the same standard library and the same headers of this library; the interface version checks only
// the headers. A component library that links parts of this library has its own copies of their variables: it does not
// see the trace object of the calling thread (gobjTrace).
#pragma once

#include "orvan/ui/ComponentFactory.h"

#include <cstdint>
#include <memory>

/// Marks a function that a shared library exports, even where it is built with hidden symbols.
#define ORVAN_EXPORT __attribute__((visibility("default")))

namespace orvan {

/// Increased whenever an interface that components implement changes.
inline constexpr std::int32_t kComponentInterfaceVersion = 1;

inline constexpr const char* kInterfaceVersionEntryPoint = "OrvanComponentInterfaceVersion";
inline constexpr const char* kCreateComponentEntryPoint = "OrvanCreateComponent";

} // namespace orvan

/// The kComponentInterfaceVersion that the library was built with.
extern "C" ORVAN_EXPORT std::int32_t OrvanComponentInterfaceVersion() noexcept;

/// Stores a new object of the class in *object, which is empty before the call; for a class that the library does not
/// have it stays empty. (The object is not the result, because a function with C linkage cannot return one.) className
/// is spelled as the host registered it. May throw. It may be called from any thread, and from several at once.
extern "C" ORVAN_EXPORT void OrvanCreateComponent(const char* className, std::shared_ptr<orvan::ui::Component>* object);

#define ORVAN_COMPONENT_LIBRARY                                                                                        \
    extern "C" std::int32_t OrvanComponentInterfaceVersion() noexcept                                                  \
    {                                                                                                                  \
        return orvan::kComponentInterfaceVersion;                                                                      \
    }
