#include "orvan/core/modInit.h"

#include "orvan/core/KeptError.h"
#include "orvan/ui/Platform.h"

#include <utility>

namespace orvan {

thread_local std::shared_ptr<Trace> gobjTrace;

namespace {

/// A plain bool has no destructor, so it can still be read while the thread's other objects are destroyed.
thread_local bool threadEnded = false;

thread_local KeptError keptError; ///< What the thread's procedures have told the trace object.

/// The endMark object is declared after gobjTrace and keptError, so that it is destroyed first and sets threadEnded in
/// time.
struct EndMark {
    ~EndMark() { threadEnded = true; }
};
thread_local EndMark endMark;

} // namespace

void Main(ui::Platform& platform)
{
    try {
        gobjTrace = ui::createComponent<Trace>(platform.components(), kTraceClassName);
    } catch (...) {
        const std::int32_t number = currentError().number();
        // Deliberately without a blank after the colon and with this title: support staff search for this text.
        asRuntimeError([&] {
            platform.messageBox().show({.text = "Could not create trace object. Module:"
                                                "KTVOrvanProduct.modInit::"
                                                "Main",
                                        .title = "Automation error",
                                        .buttons = ui::MessageButtons::ok,
                                        .icon = ui::MessageIcon::exclamation});
        });
        throw RuntimeError(number);
    }
}

void enterLibrary(ui::Platform& platform)
{
    thread_local bool entered = false;
    if (!entered) {
        static_cast<void>(endMark); // constructs the thread-local, so that its destructor runs at the thread's end
        entered = true;             // before Main: a failed start is not tried again in this thread
        Main(platform);
    }
}

std::shared_ptr<Trace> exchangeTrace(std::shared_ptr<Trace> trace)
{
    return std::exchange(gobjTrace, std::move(trace));
}

Trace& traceObject()
{
    if (threadEnded || !gobjTrace) {
        throw RuntimeError(ErrorNumber::objectNotSet);
    }
    return *gobjTrace;
}

void raiseApplicationError(std::string_view label, std::string message)
{
    throw RuntimeError(traceObject().AppErrorNumber(), std::string(label), std::move(message));
}

void raiseLastError()
{
    if (!threadEnded) {
        keptError.passOn();
    }
    throw RuntimeError(asRuntimeError([] { return traceObject().LastErrorNumber(); }));
}

RuntimeError currentErrorWithText() noexcept
{
    RuntimeError error = currentError();
    try {
        const bool keepsText = !threadEnded && error.description().empty() && keptError.error() &&
                               keptError.error()->number() == error.number();
        return keepsText ? *keptError.error() : error;
    } catch (...) {
        return error; // no memory for a copy of the text
    }
}

void forgetErrorText() noexcept
{
    if (!threadEnded) {
        keptError.forget();
    }
}

namespace detail {

void recordError()
{
    if (!threadEnded) {
        keptError.note(currentError()); // first, because the trace object may fail
    }
    asRuntimeError([] { traceObject().TraceError(""); });
}

void recordAndRaise()
{
    recordError();
    raiseLastError();
}

} // namespace detail

} // namespace orvan
