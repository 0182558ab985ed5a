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
    /// Keeps the tap that was there when the form was shown, because a handler may end the recording.
    struct Wait {
        Wait(std::shared_ptr<EventTap> heard, const Form& form) : tap(std::move(heard))
        {
            if (tap) {
                tap->waitForForm(form);
            }
        }
        ~Wait()
        {
            if (tap) {
                tap->formClosed();
            }
        }
        const std::shared_ptr<EventTap> tap;
    };
    const Wait wait(platform().tap, *this);
    doShowModal();
}

void Form::unload(UnloadMode mode)
{
    if (!loaded_) {
        return;
    }
    const Tapped tapped(mode == UnloadMode::code ? nullptr : this,
                        [&] { return Event{.kind = EventKind::close, .first = static_cast<std::int32_t>(mode)}; });
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
    const Tapped tapped(this, [] { return Event{.kind = EventKind::escape}; });
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
    const Tapped tapped(this, [&] { return Event{.kind = EventKind::formKey, .text = keyText(key)}; });
    platform().dispatch([&] { runHandler(onKeyDown, key); });
    return key.key == Key::none;
}

void Form::focusFirst()
{
    if (!platform().tap || !platform().tap->plays()) {
        open();
    }
}

void Form::open()
{
    if (Control* first = focused() ? focused() : firstTabStop()) {
        const Tapped tapped(this, [] { return Event{.kind = EventKind::opened}; });
        first->setFocus();
    }
}

void Form::playOwn(const Event& event)
{
    switch (event.kind) {
    case EventKind::opened: open(); break;
    case EventKind::formKey: static_cast<void>(userPressedKey(keyOfText(event.text))); break;
    case EventKind::escape: userPressedEscape(); break;
    case EventKind::close: unload(static_cast<UnloadMode>(event.first)); break;
    default: Surface::playOwn(event);
    }
}

} // namespace orvan::ui
