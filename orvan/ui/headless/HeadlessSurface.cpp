#include "orvan/ui/headless/HeadlessSurface.h"

#include "orvan/ui/headless/HeadlessControls.h"

namespace orvan::headless {

HeadlessSurface::HeadlessSurface(const ui::FormDesign& design, ui::Platform& platform) : Surface(design, platform)
{
    buildControls();
}

std::unique_ptr<ui::Control> HeadlessSurface::make(const ui::ControlDesign& design, ui::Control* /*parent*/)
{
    return makeHeadlessControl(design, platform(), nullptr);
}

} // namespace orvan::headless
