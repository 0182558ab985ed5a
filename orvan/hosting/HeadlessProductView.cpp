#include "orvan/hosting/HeadlessProductView.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/hosting/HostedView.h"
#include "orvan/ui/headless/HeadlessSurface.h"
#include "orvan/view/ProductViewDesign.h"

#include <utility>

namespace orvan {

/// The view is the last part, so that it is destroyed before the surface and the site.
struct HeadlessProductView::Parts {
    Parts(ui::Platform& platform, std::string hostTypeName, std::int32_t ownerWindow)
        : surface(kProductViewDesign, platform), site(std::move(hostTypeName), ownerWindow),
          view(platform, surface, site)
    {
    }

    headless::HeadlessSurface surface;
    headless::HeadlessSite site;
    HostedView view;
};

HeadlessProductView::HeadlessProductView(ui::Platform& platform, std::string hostTypeName, std::int32_t ownerWindow)
    : parts_(asRuntimeError([&] { return std::make_unique<Parts>(platform, std::move(hostTypeName), ownerWindow); }))
{
    parts_->view.placed();
}

HeadlessProductView::~HeadlessProductView() = default;

void HeadlessProductView::Show(std::string_view sProducts)
{
    parts_->view.Show(sProducts);
}

std::string HeadlessProductView::Products()
{
    return parts_->view.Products();
}

Currency HeadlessProductView::TotalValue()
{
    return parts_->view.TotalValue();
}

bool HeadlessProductView::Dirty() const
{
    return parts_->view.view().Dirty();
}

bool HeadlessProductView::isReadOnly() const
{
    return parts_->view.view().readOnly();
}

void HeadlessProductView::setReadOnly(bool readOnly)
{
    asRuntimeError([&] { parts_->view.setReadOnly(readOnly); });
}

headless::SurfaceDriver& HeadlessProductView::surface()
{
    return parts_->surface;
}

const std::vector<std::string>& HeadlessProductView::changedProperties() const
{
    return parts_->site.changedProperties();
}

} // namespace orvan
