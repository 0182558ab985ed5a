// Interruption: whether a signal has asked the program to end.
//
// Thread: one, besides the handler.
#pragma once

#include <csignal>

namespace orvan::tool {

inline volatile std::sig_atomic_t interrupted = 0;

/// The first signal cancels what the program does, which removes its unfinished file. A second one ends the program at
/// once. Without SA_RESTART, a signal also ends a system call that waits.
inline void endInOrderAtSignals()
{
    struct sigaction action = {};
    action.sa_handler = [](int) { interrupted = 1; };
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        ::sigaction(signal, &action, nullptr);
    }
}

} // namespace orvan::tool
