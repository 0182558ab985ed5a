// EndSignals: lets the program end in order when the system asks it to: SIGTERM, SIGHUP and SIGINT.
//
// A signal handler may do almost nothing by itself. It writes a byte into a pipe, and the event loop then calls the
// given procedure. Thread: the user-interface thread; one object per process.
#pragma once

#include <QSocketNotifier>

#include <functional>

namespace orvan::desk {

class EndSignals {
public:
    /// Raises 51 where no pipe can be made.
    explicit EndSignals(const std::function<void()>& onEnd);
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;
    ~EndSignals();

private:
    QSocketNotifier notifier_;
};

} // namespace orvan::desk
