#include "ui/headless/HeadlessSurface.h"

#include "ui/headless/HeadlessControls.h"

namespace orvan::headless {

HeadlessSurface::HeadlessSurface(const ui::FormDesign& design, ui::Platform& platform)
    : Surface(design), platform_(platform)
{
    buildControls();
}

std::unique_ptr<ui::Control> HeadlessSurface::make(const ui::ControlDesign& design, ui::Control* /*parent*/)
{
    switch (design.kind) {
    case ui::ControlKind::button: return std::make_unique<HeadlessButton>(design, platform_);
    case ui::ControlKind::frame: return std::make_unique<HeadlessFrame>(design);
    case ui::ControlKind::grid: return std::make_unique<HeadlessGrid>(design, platform_);
    case ui::ControlKind::label: return std::make_unique<HeadlessLabel>(design);
    case ui::ControlKind::textBox: return std::make_unique<HeadlessTextBox>(design);
    }
    throw RuntimeError(ErrorNumber::internalError, std::string(design.name), "unknown kind of control");
}

} // namespace orvan::headless
