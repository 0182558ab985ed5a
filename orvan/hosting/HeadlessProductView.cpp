#include "orvan/hosting/HeadlessProductView.h"

#include "orvan/view/ProductView.h"
#include "orvan/view/ProductViewDesign.h"

#include <utility>

namespace orvan {

HeadlessProductView::HeadlessProductView(ui::Platform& platform, std::string hostTypeName)
    : surface_(kProductViewDesign, platform), site_(std::move(hostTypeName)),
      view_(std::make_unique<ProductView>(platform, surface_, site_))
{
    view_->UserControl_ReadProperties();
}

HeadlessProductView::~HeadlessProductView() = default;

void HeadlessProductView::Show(std::string_view sProducts)
{
    view_->Show(sProducts);
}

std::string HeadlessProductView::Products()
{
    return view_->Products();
}

Currency HeadlessProductView::TotalValue()
{
    return view_->TotalValue();
}

bool HeadlessProductView::Dirty() const
{
    return view_->Dirty();
}

} // namespace orvan
