// ContainerSite: what an embedded control may ask of the container that holds it.
//
// Implemented by whoever embeds the control; it must outlive the control. Thread: the
// user-interface thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orvan::ui {

class ContainerSite {
public:
    virtual ~ContainerSite() = default;

    /// The name of the form that the control is on. The control's preferences are kept under this name, so it must be
    /// the same in every run.
    virtual std::string parentTypeName() = 0;
    /// The handle of the form's window, as Message::ownerWindow takes it; 0 if there is none.
    virtual std::int32_t parentWindow() = 0;
    /// A property that the container saves has changed: the container should save the control.
    virtual void propertyChanged(std::string_view property) = 0;
};

} // namespace orvan::ui
