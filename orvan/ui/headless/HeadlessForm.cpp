#include "orvan/ui/headless/HeadlessForm.h"

#include "orvan/ui/headless/HeadlessPlatform.h"

namespace orvan::headless {

HeadlessForm::HeadlessForm(const ui::FormDesign& design, HeadlessPlatform& platform, std::int32_t ownerWindow)
    : DrivenSurface(design, platform), platform_(platform), ownerWindow_(ownerWindow)
{
    buildControls();
}

std::unique_ptr<ui::Control> HeadlessForm::make(const ui::ControlDesign& design, ui::Control* /*parent*/)
{
    return makeHeadlessControl(design, platform_, &platform_.clock());
}

void HeadlessForm::doShowModal()
{
    const auto drive = platform_.nextDriver();
    if (!drive) {
        unload(ui::UnloadMode::session);
        throw RuntimeError(ErrorNumber::internalError, {}, "Nobody drives the form \"" + caption() + "\"");
    }
    focusFirst();
    drive(*this);
    if (loaded()) {
        unload(ui::UnloadMode::session);
        throw RuntimeError(ErrorNumber::internalError, {}, "Nobody closed the form \"" + caption() + "\"");
    }
}

bool formTakes(ui::Surface& surface, const ui::KeyStroke& key)
{
    auto* const form = dynamic_cast<HeadlessForm*>(&surface);
    return form && form->press(key);
}

} // namespace orvan::headless
