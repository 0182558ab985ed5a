#include "core/modInit.h"

#include "ui/Platform.h"

namespace orvan {

thread_local std::shared_ptr<Trace> gobjTrace;

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
        entered = true; // before Main: a failed start is not tried again in this thread
        Main(platform);
    }
}

Trace& traceObject()
{
    if (!gobjTrace) {
        throw RuntimeError(ErrorNumber::objectNotSet);
    }
    return *gobjTrace;
}

void raiseApplicationError(std::string_view sLabel, std::string sMessage)
{
    throw RuntimeError(traceObject().AppErrorNumber(), std::string(sLabel), std::move(sMessage));
}

namespace detail {

void recordError()
{
    traceObject().TraceError("");
}

void recordAndRaise()
{
    recordError();
    throw RuntimeError(traceObject().LastErrorNumber());
}

} // namespace detail

} // namespace orvan
