#include "orvan/ui/Form.h"

#include "orvan/base/RunHandler.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/ui/Button.h"

#include <algorithm>
#include <utility>

namespace orvan::ui {

Form::Form(const FormDesign& design, Platform& platform) : Surface(design, platform), caption_(design.caption) {}

void Form::setCaption(std::string caption)
{
    caption_ = std::move(caption);
    doSetCaption();
}

void Form::showModal()
{
    if (!loaded_) {
        throw RuntimeError(ErrorNumber::objectUnloaded);
    }
    if (shown_) {
        throw RuntimeError(ErrorNumber::formAlreadyShown);
    }
    shown_ = true;
    doShowModal();
}

void Form::unload(UnloadMode mode)
{
    if (!loaded_) {
        return;
    }
    const bool stays = platform().dispatch([&] { return runHandler(onQueryUnload, mode); });
    if (stays || !loaded_) { // something else may have closed the form while the handler asked the user
        return;
    }
    loaded_ = false;
    platform().dispatch([this] { runHandler(onUnload); });
    doUnload();
}

void Form::userPressedEscape()
{
    const auto cancels = std::find_if(design().controls.begin(), design().controls.end(),
                                      [](const ControlDesign& row) { return row.cancels; });
    if (cancels == design().controls.end()) {
        unload(UnloadMode::closeBox);
    } else {
        control<Button>(cancels->name).userClicked();
    }
}

bool Form::userPressedKey(KeyStroke key)
{
    if (!loaded_ || !runHandler(takesKey, key)) {
        return false;
    }
    platform().dispatch([&] { runHandler(onKeyDown, key); });
    return key.key == Key::none;
}

void Form::focusFirst()
{
    if (Control* first = focused() ? focused() : firstTabStop()) {
        first->setFocus();
    }
}

} // namespace orvan::ui
