// HeadlessProductView: a list view without a window, for hosts without a toolkit.
//
// It has the same four operations as ProductViewWidget, and access to the controls, which a program uses in the place
// of a user. Thread: the one that made the platform. Errors: the constructor, Show, Products and TotalValue raise
// RuntimeError (orvan/base/RuntimeError.h). Lengths are in twips.
#pragma once

#include "orvan/hosting/Host.h"
#include "orvan/ui/headless/HeadlessControls.h"
#include "orvan/ui/headless/HeadlessEntries.h"
#include "orvan/ui/headless/HeadlessPlatform.h"
#include "orvan/ui/headless/HeadlessSurface.h"

#include <memory>
#include <string>
#include <string_view>

namespace orvan {

class ProductView;

using HeadlessHost = Host<headless::HeadlessPlatform>;

class HeadlessProductView {
public:
    /// The view's preferences are kept under `hostTypeName` in the platform's settings store.
    explicit HeadlessProductView(ui::Platform& platform, std::string hostTypeName = "HeadlessHost");
    HeadlessProductView(const HeadlessProductView&) = delete;
    HeadlessProductView& operator=(const HeadlessProductView&) = delete;
    ~HeadlessProductView();

    void Show(std::string_view sProducts);
    [[nodiscard]] std::string Products();
    [[nodiscard]] Currency TotalValue();
    [[nodiscard]] bool Dirty() const;

    headless::HeadlessSurface& surface() { return surface_; }
    headless::HeadlessSite& site() { return site_; }
    headless::HeadlessGrid& flexGrid() { return surface_.control<headless::HeadlessGrid>("flexGrid"); }
    headless::HeadlessTextBox& txtTotal() { return surface_.control<headless::HeadlessTextBox>("txtTotal"); }

private:
    headless::HeadlessSurface surface_;
    headless::HeadlessSite site_;
    std::unique_ptr<ProductView> view_; ///< Last, so that it is destroyed before the surface and the site.
};

} // namespace orvan
