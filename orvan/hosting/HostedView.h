// HostedView: a list view as the control that contains it has it. All that the host does with the view goes through
// this class, which tells the platform's tap of it (orvan/ui/EventTap.h), so that a recording has what the host did.
//
// While there is a tap, the view uses the tap's services in place of the platform's. Ownership, thread and errors are
// those of ProductView.
#pragma once

#include "orvan/base/Currency.h"
#include "orvan/catalogue_export.h"
#include "orvan/core/Command.h"
#include "orvan/view/ProductView.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace orvan {

namespace ui {
class EventTap;
}

class ORVAN_CATALOGUE_INTERNAL HostedView {
public:
    HostedView(ui::Platform& platform, ui::Surface& surface, ui::ContainerSite& site);
    HostedView(const HostedView&) = delete;
    HostedView& operator=(const HostedView&) = delete;
    ~HostedView();

    /// For what makes nothing happen in the list.
    ProductView& view() { return *view_; }
    const ProductView& view() const { return *view_; }

    /// See the operations of ProductView.
    void Show(std::string_view sProducts);
    [[nodiscard]] std::string Products();
    [[nodiscard]] Currency TotalValue();
    void setReadOnly(bool readOnly);
    void run(Command command);
    void setCurrentProduct(std::int32_t position);
    void refresh();
    /// The container has placed the view on its form.
    void placed();
    /// Lays the controls out, whose sizes the container has changed.
    void layOut();

private:
    std::shared_ptr<ui::EventTap> tap_; ///< Has made the services that the view uses.
    ui::Surface& surface_;
    ui::ContainerSite& site_;
    std::optional<ProductView> view_;
};

} // namespace orvan
