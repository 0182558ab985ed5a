// Form: a dialog window of its own: loaded, shown modally, asked to close, unloaded.
//
// Its controls exist and can be set from the moment it is loaded (Platform::loadForm). unload raises
// onQueryUnload, which may keep the form open; otherwise it raises onUnload and closes the window. The
// object and its controls stay until the owner releases them: they keep their state, show nothing and
// raise no event any more, so that a handler in the middle of a chain may unload the form it runs on.
//
// Ownership: the caller of loadForm, who must not release it while showModal runs. Thread: the
// user-interface thread.
#pragma once

#include "orvan/core_export.h"
#include "orvan/ui/KeyStroke.h"
#include "orvan/ui/Surface.h"

#include <cstdint>
#include <functional>
#include <string>

namespace orvan::ui {

/// Why a form is asked to close. Existing hosts know these values.
enum class UnloadMode : std::int16_t {
    closeBox = 0, ///< The user closed the window: its close box or its system menu.
    code = 1,     ///< The program calls unload.
    session = 2,  ///< The user's session ends, or the program's event loop has ended.
    taskManager = 3,
};

class ORVAN_CORE_INTERNAL Form : public Surface {
public:
    Form(const FormDesign& design, Platform& platform);

    const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);

    /// Shows the form, gives the first tab stop the focus and returns when the form has been
    /// unloaded. No other window of the program takes input meanwhile. Raises 364 for a form that
    /// has been unloaded and 400 for one that is shown already.
    void showModal();
    /// Asks the form to close. Does nothing for a form that has been unloaded.
    void unload(UnloadMode mode = UnloadMode::code);
    /// False once the form has been unloaded.
    bool loaded() const { return loaded_; }

    /// Owner for message boxes about the form (see orvan/ui/MessageBox.h); 0 where there is no window.
    virtual std::int32_t window() = 0;

    /// The user pressed a key in the form, which no control has seen yet. A handler that takes the key sets its `key`
    /// to Key::none; no control gets it then, and no key filter.
    std::function<void(KeyStroke& key)> onKeyDown;
    /// Whether that handler would take the key now. Asked first, because keys that are typed must not wait for a
    /// handler. Changes nothing.
    std::function<bool(const KeyStroke& key)> takesKey;
    /// Returns whether the form is to stay open.
    std::function<bool(UnloadMode mode)> onQueryUnload;
    std::function<void()> onUnload;

protected:
    bool live() const override { return loaded_; }
    virtual void doSetCaption() = 0;
    /// The platform shows the window, runs the program's events until loaded() is false, and hides the window. If its
    /// event loop ends before that, the platform calls unload(UnloadMode::session).
    virtual void doShowModal() = 0;
    /// The form has been unloaded: the platform stops the form's timers and lets doShowModal return.
    virtual void doUnload() = 0;
    /// The platform reports that the user pressed Escape. Presses the cancel button; if the form has none, asks the
    /// form to close as the close box does.
    void userPressedEscape();
    /// The platform reports a key. Returns whether it has been taken; the handler may have unloaded the form.
    [[nodiscard]] bool userPressedKey(KeyStroke key);
    /// Gives the first control the focus, or again the one that has it. doShowModal calls this when the window can take
    /// keys.
    void focusFirst();

private:
    void playOwn(const Event& event) override;
    void open();

    std::string caption_;
    bool loaded_ = true;
    bool shown_ = false;
};

} // namespace orvan::ui
