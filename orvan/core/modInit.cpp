#include "orvan/core/modInit.h"

#include "orvan/ui/Platform.h"

#include <utility>

namespace orvan {

thread_local std::shared_ptr<Trace> gobjTrace;

namespace {

/// A plain bool has no destructor, so it can still be read while the thread's other objects are destroyed.
thread_local bool threadEnded = false;

/// The endMark object is declared after gobjTrace, so that it is destroyed first and sets threadEnded in time.
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
    throw RuntimeError(asRuntimeError([] { return traceObject().LastErrorNumber(); }));
}

namespace detail {

void recordError()
{
    asRuntimeError([] { traceObject().TraceError(""); });
}

void recordAndRaise()
{
    recordError();
    raiseLastError();
}

} // namespace detail

} // namespace orvan
