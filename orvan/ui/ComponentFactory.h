// ComponentFactory: component objects created by class name at run time.
//
// Ownership: shared; an object is destroyed when its last holder releases it. Thread: the
// user-interface thread.
#pragma once

#include "orvan/base/RuntimeError.h"
#include "orvan/core_export.h"

#include <memory>
#include <string>
#include <string_view>

namespace orvan::ui {

/// The base of every object that can be created by name; createComponent asks it for the wanted interface. Its symbols
/// are visible, and so are those of each interface and of RuntimeError, because they pass between a host and a
/// component library that hides its symbols.
class ORVAN_EXPORT Component {
public:
    virtual ~Component() = default;
};

class ORVAN_CORE_EXPORT ComponentFactory {
public:
    virtual ~ComponentFactory() = default;

    /// Never null. Raises 429 with the class name in the description when the class is unknown or
    /// its object cannot be created.
    [[nodiscard]] virtual std::shared_ptr<Component> create(std::string_view className) = 0;
};

/// Creates an object and returns its interface T. Raises what create raises, as a RuntimeError whatever its type, and
/// 430 with the class name in the description when the object does not implement T.
template <class T>
[[nodiscard]] std::shared_ptr<T> createComponent(ComponentFactory& factory, std::string_view className)
{
    return asRuntimeError([&] {
        auto object = std::dynamic_pointer_cast<T>(factory.create(className));
        if (!object) {
            throw RuntimeError(ErrorNumber::interfaceNotSupported, {},
                               "Class \"" + std::string(className) + "\" does not support the expected interface");
        }
        return object;
    });
}

} // namespace orvan::ui
