// MessageKeys: the keys that answer a message box.
//
// Thread: the user-interface thread.
#pragma once

#include <QBasicTimer>
#include <QObject>

class QMessageBox;

namespace orvan::qt {

/// Gives each button of the box a mnemonic of its own. Qt's translations leave out some, and some desktops all.
void giveMnemonics(QMessageBox& box);

/// Keeps keys from a box that its user has not seen. A key answers from the moment on in which the box has been on the
/// screen for a while without any key: then the user has seen it, or has at least stopped typing. Ownership: the box.
class TypeAheadGuard final : public QObject {
public:
    explicit TypeAheadGuard(QMessageBox& box);

private:
    /// Filters the application's events.
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    bool isBoxOrInside(const QObject* object) const;

    QMessageBox& box_;
    QBasicTimer pause_; ///< Runs from the first paint and from each key on.
};

} // namespace orvan::qt
