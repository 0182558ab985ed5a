// QtTimer: the timer on Qt's event loop.
//
// Ownership: the surface. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/Timer.h"

#include <QTimer>

namespace orvan::qt {

class QtTimer final : public ui::Timer {
public:
    explicit QtTimer(const ui::ControlDesign& design);

    /// Called when the form has been unloaded: from now on the timer never fires, even if it is enabled again.
    void end();

private:
    void doMove() override {}
    void doSchedule() override;

    QTimer timer_;
    bool ended_ = false;
};

} // namespace orvan::qt
