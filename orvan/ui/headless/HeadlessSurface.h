// HeadlessSurface and HeadlessSite: the surface and the container of a control without a window.
//
// Ownership: the host. Thread: the platform's.
#pragma once

#include "orvan/ui/ContainerSite.h"
#include "orvan/ui/Surface.h"

#include <string>
#include <vector>

namespace orvan::headless {

class HeadlessSurface final : public ui::Surface {
public:
    /// Makes every control of the design. The platform must outlive the surface. Raises 51 for a timer:
    /// only a form has a clock for timers.
    HeadlessSurface(const ui::FormDesign& design, ui::Platform& platform);

    /// The container gives the control another size, in twips.
    void resize(float width, float height) { setInnerSize(width, height); }

private:
    std::unique_ptr<ui::Control> make(const ui::ControlDesign& design, ui::Control* parent) override;
    void doSetFocus(ui::Control& /*to*/) override {}
};

class HeadlessSite final : public ui::ContainerSite {
public:
    explicit HeadlessSite(std::string typeName, std::int32_t window = 0)
        : typeName_(std::move(typeName)), window_(window)
    {
    }

    std::string parentTypeName() override { return typeName_; }
    std::int32_t parentWindow() override { return window_; }
    void propertyChanged(std::string_view property) override { changedProperties_.emplace_back(property); }

    const std::vector<std::string>& changedProperties() const { return changedProperties_; }

private:
    std::string typeName_;
    std::int32_t window_;
    std::vector<std::string> changedProperties_;
};

} // namespace orvan::headless
