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
// C++ objects cross the border, so both sides are built with the same compiler family, the same
// standard library and the same headers of this library; the interface version tells only the last.
// Exceptions may cross too. A library that links parts of this one has copies of its own of
// their variables: the trace object of the calling thread (gobjTrace) is not visible to it.
#pragma once

#include "orvan/ui/ComponentFactory.h"

#include <cstdint>
#include <memory>

/// Marks what a shared library shows to its host, also where all else is built hidden.
#define ORVAN_EXPORT __attribute__((visibility("default")))

namespace orvan {

/// Raised whenever an interface that components implement changes.
inline constexpr std::int32_t kComponentInterfaceVersion = 1;

inline constexpr const char* kInterfaceVersionEntryPoint = "OrvanComponentInterfaceVersion";
inline constexpr const char* kCreateComponentEntryPoint = "OrvanCreateComponent";

} // namespace orvan

/// The kComponentInterfaceVersion that the library was built with.
extern "C" ORVAN_EXPORT std::int32_t OrvanComponentInterfaceVersion() noexcept;

/// Stores a new object of the class in *object, which is empty at the call and stays so for a class
/// that the library does not have (a parameter, because a C function returns no object). className is
/// spelled as the host registered it. May throw. Called by any thread, by several at once too.
extern "C" ORVAN_EXPORT void OrvanCreateComponent(const char* className, std::shared_ptr<orvan::ui::Component>* object);

#define ORVAN_COMPONENT_LIBRARY                                                                                        \
    extern "C" std::int32_t OrvanComponentInterfaceVersion() noexcept                                                  \
    {                                                                                                                  \
        return orvan::kComponentInterfaceVersion;                                                                      \
    }
