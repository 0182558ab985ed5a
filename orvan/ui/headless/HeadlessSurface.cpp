#include "orvan/ui/headless/HeadlessSurface.h"

namespace orvan::headless {

HeadlessSurface::HeadlessSurface(const ui::FormDesign& design, ui::Platform& platform) : DrivenSurface(design, platform)
{
    buildControls();
}

std::unique_ptr<ui::Control> HeadlessSurface::make(const ui::ControlDesign& design, ui::Control* /*parent*/)
{
    return makeHeadlessControl(design, platform(), nullptr);
}

} // namespace orvan::headless
