#include "EndSignals.h"

#include "orvan/base/RuntimeError.h"

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace orvan::desk {

namespace {

constexpr int kSignals[] = {SIGTERM, SIGHUP, SIGINT};

int pipeEnds[2] = {-1, -1}; ///< Read from, written to.

void writeByte(int /*signal*/)
{
    const int code = errno; // the program that is interrupted may be about to look at it
    [[maybe_unused]] const ssize_t written = ::write(pipeEnds[1], "", 1);
    errno = code;
}

int openPipe()
{
    if (::pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0) {
        throw RuntimeError(ErrorNumber::internalError, {}, "no pipe can be made");
    }
    return pipeEnds[0];
}

void handleSignals(void (*handler)(int))
{
    for (const int signal : kSignals) {
        struct sigaction action = {};
        action.sa_handler = handler;
        action.sa_flags = SA_RESTART;
        ::sigaction(signal, &action, nullptr);
    }
}

} // namespace

EndSignals::EndSignals(const std::function<void()>& onEnd) : notifier_(openPipe(), QSocketNotifier::Read)
{
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [onEnd] {
        char byte = 0;
        while (::read(pipeEnds[0], &byte, 1) == 1) {
        }
        onEnd();
    });
    handleSignals(writeByte);
}

EndSignals::~EndSignals()
{
    handleSignals(SIG_DFL);
    notifier_.setEnabled(false);
    ::close(pipeEnds[0]);
    ::close(pipeEnds[1]);
}

} // namespace orvan::desk
