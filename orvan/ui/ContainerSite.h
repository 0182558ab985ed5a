// ContainerSite: what an embedded control may ask of the container it stands in.
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

    /// A stable name of the form the control stands on; the control's preferences are kept under it.
    virtual std::string parentTypeName() = 0;
    /// Handle of the form's window, as MessageBox takes it; 0 for none.
    virtual std::int32_t parentWindow() = 0;
    /// A saved property of the control changed: the container should save the control.
    virtual void propertyChanged(std::string_view property) = 0;
};

} // namespace orvan::ui
