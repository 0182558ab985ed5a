// Assistance: what assistive technology, such as a screen reader, learns beyond what Qt tells it by itself.
//
// A form is a dialog. A combo box has its label as its name, not the text in it. A grid consists of its visible rows
// and columns (orvan/ui/qt/GridAccessible.h). Thread: the user-interface thread.
#pragma once

#include <QString>

class QWidget;

namespace orvan::qt {

/// Has Qt ask this library first how a widget appears to assistive technology. May be called again.
void installAssistance();

/// Has a screen reader say the text, wherever the focus is. Does nothing while no assistive technology is there, or the
/// window of `from` cannot be seen.
void announce(const QWidget& from, const QString& text);

/// The base of a window that is a dialog for assistive technology, although it is no QDialog.
class DialogWindow {
public:
    DialogWindow(const DialogWindow&) = delete;
    DialogWindow& operator=(const DialogWindow&) = delete;

protected:
    DialogWindow() = default;
    virtual ~DialogWindow() = default;
};

} // namespace orvan::qt
