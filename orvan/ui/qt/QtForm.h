// QtForm: a form as a window that blocks the program's other windows while it is shown.
//
// The window has no parent, so that a window which a host destroys does not take the form along. It opens in the middle
// of its owner, or of the program's active window where it has none, as large as the design says, or larger where fonts
// and texts need it, and within the screen; no size or place is kept for the next time. Escape and the close box ask to
// close, and Enter goes to the control that has the focus. Quitting the program asks the form to close
// (UnloadMode::session); if the form stays, so does the program. Errors and ownership: see orvan/ui/Form.h. Thread: the
// user-interface thread.
#pragma once

#include "orvan/ui/Form.h"
#include "orvan/ui/qt/SurfaceWidgets.h"

class QEventLoop;
class QScreen;

namespace orvan::qt {

/// The screen on which a form with that owner (null: none) would be shown now. Never null.
[[nodiscard]] QScreen* screenOfForm(QWidget* owner);

class QtForm final : public ui::Form {
public:
    /// Raises what ui::Surface does, and 380 for a button picture that does not exist.
    /// `owner` may be null, and may be destroyed at any time.
    QtForm(const ui::FormDesign& design, ui::Platform& platform, QWidget* owner);
    ~QtForm() override;

    /// The window's number from windowHandle() while it is shown; otherwise 0.
    std::int32_t window() override;
    void repaint() override;

    /// The form's window, which exists from the beginning; null once it has been destroyed.
    [[nodiscard]] QWidget* widget() const;
    /// Does already what Qt would do when the form is shown, as far as that does not depend on its owner.
    void prepareToShow();
    /// Before the form is shown: the window that it belongs to, as in the constructor.
    void setOwner(QWidget* owner);
    /// The form has been destroyed.
    std::function<void()> onReleased;

private:
    class Window;

    std::unique_ptr<ui::Control> make(const ui::ControlDesign& design, ui::Control* parent) override;
    void doSetFocus(ui::Control& to) override { widgets_.setFocus(to); }
    void doSetCaption() override;
    void doShowModal() override;
    void doUnload() override;

    QPointer<QWidget> owner_;
    QPointer<Window> window_;
    SurfaceWidgets widgets_;
    QEventLoop* loop_ = nullptr; ///< Null unless the form is shown.
};

} // namespace orvan::qt
