// RecordingAction: the menu's entry with which a user records what they do, for support staff.
//
// Before it starts, the user is told what a recording holds and where it is kept; while it runs, the status bar says
// so; when it has ended, the user is told where the file is. Each recording is a file of its own, for the user alone,
// in "orvan/recordings" beside the trace logs. Ownership: the window's menu. Thread: the user-interface thread.
#pragma once

#include "orvan/base/UserText.h"

#include <QAction>
#include <QLabel>
#include <QPointer>
#include <QString>

class QMainWindow;

namespace orvan {
class ProductViewWidget;
}

namespace orvan::desk {

class RecordingAction : public QAction {
    Q_OBJECT

public:
    /// Both outlive the action.
    RecordingAction(ProductViewWidget& list, QMainWindow& window);
    ~RecordingAction() override;

private:
    void start();
    void stop();
    void tellEnd(const UserText& why);

    ProductViewWidget& list_;
    QMainWindow& window_;
    QPointer<QLabel> sign_; ///< In the status bar, while a recording runs.
    QString file_;
};

} // namespace orvan::desk
