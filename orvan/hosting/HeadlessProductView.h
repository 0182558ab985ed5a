// HeadlessProductView: a list view without a window, for hosts without a toolkit.
//
// It has the same four operations as ProductViewWidget, and the drivers of its controls (orvan/ui/headless/Drivers.h),
// with which a program takes the place of the user. Thread: the one that made the platform. Errors: the constructor,
// Show, Products and TotalValue raise RuntimeError (orvan/base/RuntimeError.h).
#pragma once

#include "orvan/catalogue_export.h"
#include "orvan/hosting/Host.h"
#include "orvan/ui/headless/Drivers.h"
#include "orvan/ui/headless/HeadlessPlatform.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orvan {

using HeadlessHost = Host<headless::HeadlessPlatform>;

class ORVAN_CATALOGUE_EXPORT HeadlessProductView {
public:
    /// The view's preferences are kept under `hostTypeName` in the platform's settings store. The view's message boxes
    /// belong to `ownerWindow` (see ui::Message).
    explicit HeadlessProductView(ui::Platform& platform, std::string hostTypeName = "HeadlessHost",
                                 std::int32_t ownerWindow = 0);
    HeadlessProductView(const HeadlessProductView&) = delete;
    HeadlessProductView& operator=(const HeadlessProductView&) = delete;
    ~HeadlessProductView();

    void Show(std::string_view sProducts);
    [[nodiscard]] std::string Products();
    [[nodiscard]] Currency TotalValue();
    [[nodiscard]] bool Dirty() const;

    /// Whether the user can only look at the list and copy from it; false at first. The same as
    /// ProductViewWidget::readOnly.
    [[nodiscard]] bool isReadOnly() const;
    void setReadOnly(bool readOnly);

    headless::SurfaceDriver& surface();
    headless::GridDriver& flexGrid() { return surface().grid("flexGrid"); }
    headless::EntryDriver& txtTotal() { return surface().textBox("txtTotal"); }
    /// The properties that the view has asked its container to save, oldest first.
    const std::vector<std::string>& changedProperties() const;

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace orvan
