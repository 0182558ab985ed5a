#include "orvan/core/modInit.h"

#include "orvan/ui/Platform.h"

namespace orvan {

thread_local std::shared_ptr<Trace> gobjTrace;

namespace {

/// Outlives every destructor of the thread, because it has none.
thread_local bool threadEnded = false;

/// Declared after gobjTrace, so that it goes first.
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
        // No blank after the colon, and a title of its own: support staff search for this text.
        platform.messageBox().show({.text = "Could not create trace object. Module:"
                                            "KTVOrvanProduct.modInit::"
                                            "Main",
                                    .title = "Automation error",
                                    .buttons = ui::MessageButtons::ok,
                                    .icon = ui::MessageIcon::exclamation});
        throw RuntimeError(number);
    }
}

void enterLibrary(ui::Platform& platform)
{
    thread_local bool entered = false;
    if (!entered) {
        static_cast<void>(endMark); // made here, it is there to go
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

void raiseApplicationError(std::string_view sLabel, std::string sMessage)
{
    throw RuntimeError(traceObject().AppErrorNumber(), std::string(sLabel), std::move(sMessage));
}

void raiseLastError()
{
    throw RuntimeError(traceObject().LastErrorNumber());
}

namespace detail {

void recordError()
{
    traceObject().TraceError("");
}

void recordAndRaise()
{
    recordError();
    raiseLastError();
}

} // namespace detail

} // namespace orvan
