#include "orvan/ui/qt/QtForm.h"

#include "orvan/base/RunHandler.h"
#include "orvan/ui/qt/Assistance.h"
#include "orvan/ui/qt/FormFit.h"
#include "orvan/ui/qt/KeyStrokes.h"
#include "orvan/ui/qt/QtText.h"
#include "orvan/ui/qt/QtTimer.h"
#include "orvan/ui/qt/Twips.h"
#include "orvan/ui/qt/WindowHandles.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLayout>
#include <QLineEdit>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScreen>
#include <QWindow>

#include <cmath>

namespace orvan::qt {

namespace {

/// An estimate of the size of a window's borders and caption together; Qt knows it only after the window is shown.
constexpr QSize kDecoration(16, 48);

/// Without a minimize button, because the program's other windows wait for the form.
constexpr Qt::WindowFlags kFlags = Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                                   Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint;

/// Selects the text of the box with the focus, as Tab does. Setting the focus with TabFocusReason would not be enough:
/// that reason is lost if the window becomes active only later.
void selectFirst(const QWidget* window)
{
    QWidget* focus = window ? window->focusWidget() : nullptr;
    auto* combo = dynamic_cast<QComboBox*>(focus);
    auto* line = combo ? combo->lineEdit() : dynamic_cast<QLineEdit*>(focus);
    if (line) {
        line->selectAll();
    }
}

/// The window that a form with that owner is placed above; null where it has no owner and none of the program's windows
/// is active.
QWidget* windowBelow(QWidget* owner)
{
    QWidget* const modal = QApplication::activeModalWidget();
    return owner ? owner : modal ? modal : QApplication::activeWindow();
}

} // namespace

QScreen* screenOfForm(QWidget* owner)
{
    const QWidget* const front = windowBelow(owner);
    return front ? front->screen() : QApplication::primaryScreen();
}

class QtForm::Window final : public QWidget, public DialogWindow {
public:
    explicit Window(QtForm& form) : QWidget(nullptr, kFlags), form_(&form)
    {
        setWindowModality(Qt::ApplicationModal);
        setAttribute(Qt::WA_QuitOnClose, false); // closing the form does not end the program
    }

    /// Called when the form is destroyed. The window still exists until the present event has ended.
    void detach() { form_ = nullptr; }

    void standAbove(QWidget* other)
    {
        const QScreen* screen = other ? other->screen() : QApplication::primaryScreen();
        const QRect available = screen->availableGeometry();
        QRect place(QPoint(), size() + kDecoration);
        place.moveCenter(other ? other->window()->frameGeometry().center() : available.center());
        place.moveRight(std::min(place.right(), available.right()));
        place.moveBottom(std::min(place.bottom(), available.bottom()));
        place.moveLeft(std::max(place.left(), available.left()));
        place.moveTop(std::max(place.top(), available.top()));
        move(place.topLeft());
        winId(); // creates the native window, which the next line needs
        windowHandle()->setTransientParent(other ? other->window()->windowHandle() : nullptr);
    }

protected:
    void closeEvent(QCloseEvent* event) override
    {
        if (form_) {
            form_->unload(ui::UnloadMode::closeBox);
        }
        event->setAccepted(!form_ || !form_->loaded());
    }

    void keyPressEvent(QKeyEvent* event) override
    {
        // Only keys that no control has handled come here. A repeated key is ignored, because the user may have pressed
        // it in another window.
        if (event->isAutoRepeat() || !form_) {
            event->accept();
        } else if (event->key() == Qt::Key_Escape) {
            form_->userPressedEscape();
        } else {
            QWidget::keyPressEvent(event);
        }
    }

    /// Filters the application's events while the form is shown.
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress) {
            return takesKey(watched, static_cast<QKeyEvent*>(event));
        }
        if (event->type() != QEvent::Quit || !form_ || !form_->loaded()) {
            return false;
        }
        form_->unload(ui::UnloadMode::session);
        const bool stays = form_->loaded();
        event->setAccepted(!stays);
        return stays;
    }

private:
    /// Gives the form a key before the control that has the focus.
    bool takesKey(QObject* watched, QKeyEvent* event)
    {
        const auto* const widget = qobject_cast<QWidget*>(watched);
        if (!form_ || !widget || widget->window() != this) {
            return false; // also the list of a combo box, which is a window of its own
        }
        const ui::KeyStroke key = keyStrokeOf(*event);
        if (key.key == ui::Key::none) {
            return false;
        }
        if (event->type() == QEvent::KeyPress) {
            return form_->userPressedKey(key);
        }
        const bool takes = form_->loaded() && runHandler(form_->takesKey, key);
        event->setAccepted(takes); // the key then comes as a key press, and to no menu
        return takes;
    }

    QtForm* form_;
};

QtForm::QtForm(const ui::FormDesign& design, ui::Platform& platform, QWidget* owner)
    : Form(design, platform), owner_(owner), window_(new Window(*this)), widgets_(*this, platform, window_)
{
    widgets_.onUserFocus = [this](ui::Control& to) { userMovedFocus(to); };
    widgets_.onHostSize = [this](int width, int height) { setInnerSize(toTwips(width), toTwips(height)); };
    try {
        buildControls();
    } catch (...) {
        delete window_;
        throw;
    }
    widgets_.complete();
    doSetCaption();
    const QScreen* const screen = screenOfForm(owner);
    const QSize fitting = fitToContents(*this, screen->availableSize() - kDecoration);
    // At a scale such as 150 %, the window gets whole pixels of the screen, which can be a part of a pixel less; the
    // frame with the fields would then need a scroll bar.
    const bool fraction = screen->devicePixelRatio() != std::floor(screen->devicePixelRatio());
    window_->resize(fraction ? fitting + QSize(1, 1) : fitting);
    setInnerSize(toTwips(window_->width()), toTwips(window_->height()));
}

QtForm::~QtForm()
{
    if (window_) {
        window_->detach();
        window_->hide();
        window_->deleteLater();
    }
    runHandler(onReleased);
}

QWidget* QtForm::widget() const
{
    return window_;
}

void QtForm::setOwner(QWidget* owner)
{
    owner_ = owner;
}

void QtForm::prepareToShow()
{
    window_->ensurePolished();
    for (QLayout* const layout : window_->findChildren<QLayout*>()) {
        layout->activate();
    }
    // The native window is not made yet: window managers place one that is moved later by another corner.
}

std::unique_ptr<ui::Control> QtForm::make(const ui::ControlDesign& design, ui::Control* parent)
{
    return widgets_.make(design, parent);
}

std::int32_t QtForm::window()
{
    return window_ && window_->isVisible() ? windowHandle(window_) : 0;
}

void QtForm::doSetCaption()
{
    if (window_) {
        window_->setWindowTitle(titleText(toQt(caption())));
    }
}

void QtForm::doShowModal()
{
    QEventLoop loop;
    const QScopedValueRollback shown(loop_, &loop);
    const QPointer<QWidget> front = windowBelow(owner_);
    if (window_) {
        window_->standAbove(front);
        qApp->installEventFilter(window_);
        QObject::connect(window_, &QObject::destroyed, &loop, &QEventLoop::quit);
        window_->show();
        window_->activateWindow();
        if (loaded()) { // an error in the first onResize may have led the host to close the form
            focusFirst();
        }
        selectFirst(window_);
    }
    if (loaded()) {
        loop.exec(QEventLoop::DialogExec);
    }
    unload(ui::UnloadMode::session); // does nothing unless the program's event loop ended while the form was open
    if (window_) {
        qApp->removeEventFilter(window_);
        window_->hide();
    }
    if (front) {
        // A window manager activates that window by itself, except when a message box of the form has just closed: then
        // it would still activate the form.
        front->window()->activateWindow();
    }
}

void QtForm::repaint()
{
    if (window_) {
        window_->update();
    }
}

void QtForm::doUnload()
{
    for (const ui::ControlDesign& row : design().controls) {
        if (row.kind == ui::ControlKind::timer) {
            control<QtTimer>(row.name).end();
        }
    }
    if (window_) {
        window_->hide();
    }
    if (loop_) {
        loop_->quit();
    }
}

} // namespace orvan::qt
