// HeadlessProductView: a list view without a window, for hosts without a toolkit.
//
// The headless twin of ProductViewWidget: the same four members, and the controls to drive.
// Errors, threads and units as in orvan/view/ProductView.h.
#pragma once

#include "orvan/hosting/Host.h"
#include "orvan/ui/headless/HeadlessControls.h"
#include "orvan/ui/headless/HeadlessEntries.h"
#include "orvan/ui/headless/HeadlessPlatform.h"
#include "orvan/ui/headless/HeadlessSurface.h"
#include "orvan/view/ProductView.h"
#include "orvan/view/ProductViewDesign.h"

#include <string>
#include <string_view>

namespace orvan {

using HeadlessHost = Host<headless::HeadlessPlatform>;

class HeadlessProductView {
public:
    /// The view's preferences are kept under `hostTypeName` in the platform's settings store.
    explicit HeadlessProductView(ui::Platform& platform, std::string hostTypeName = "HeadlessHost")
        : surface_(kProductViewDesign, platform), site_(std::move(hostTypeName)), view_(platform, surface_, site_)
    {
        view_.UserControl_ReadProperties();
    }

    void Show(std::string_view sProducts) { view_.Show(sProducts); }
    std::string Products() { return view_.Products(); }
    Currency TotalValue() { return view_.TotalValue(); }
    bool Dirty() const { return view_.Dirty(); }

    headless::HeadlessSurface& surface() { return surface_; }
    headless::HeadlessSite& site() { return site_; }
    headless::HeadlessGrid& flexGrid() { return surface_.control<headless::HeadlessGrid>("flexGrid"); }
    headless::HeadlessTextBox& txtTotal() { return surface_.control<headless::HeadlessTextBox>("txtTotal"); }

private:
    headless::HeadlessSurface surface_;
    headless::HeadlessSite site_;
    ProductView view_;
};

} // namespace orvan
