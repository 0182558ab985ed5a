// modInit: the thread's trace object and the six shapes of a traced procedure.
//
// Each procedure that has a label runs its body inside one of the shapes below and writes its label
// there, once. A body never catches. All shapes call TraceEnter inside their try block, so that a
// TraceEnter that fails is an error like any other. TraceExit is called only if the body raises nothing;
// a body that returns Leaving::withoutExit prevents even that.
//
//   shape              used by                         after the error is recorded
//   tracePropagate     public members, Prv procedures  raises LastErrorNumber again, number alone
//   traceCloseDialog   event handlers of a dialog      closes the dialog; ends without raising
//   traceShowToUser    the list view's event handlers  ShowLastError; ends without raising
//   traceRecover       procedures that recover         the procedure's own recovery
//   traceResume        a few event handlers            goes on with the next statement
//   traceIgnore        reading properties, terminating goes on; nothing is recorded
//
// A failure inside a handler (TraceError, LastErrorNumber, ShowLastError, the closing) is never
// caught by the same shape: it leaves the procedure as an error to its caller. What TraceError and LastErrorNumber
// throw leaves it as a RuntimeError, whatever its type.
//
// Ownership: each thread that uses the library has a trace object of its own (orvan/core/Trace.h) and keeps it
// to its end. Thread: any; nothing is locked, because threads share nothing.
#pragma once

#include "orvan/base/RuntimeError.h"
#include "orvan/core/Trace.h"
#include "orvan/core_export.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace orvan {

namespace ui {
class Platform;
}

/// The thread's trace object: empty until Main has run in the thread. The library replaces it only while it records or
/// replays (exchangeTrace).
extern thread_local std::shared_ptr<Trace> gobjTrace;

/// Creates the thread's trace object. On failure shows a message box and raises the creation error
/// again with its number alone; gobjTrace stays empty and every traced procedure raises 91.
void Main(ui::Platform& platform);

/// Runs Main when the library is first used in the calling thread. It does so only once, even if Main fails.
/// Every public object of the library calls it before anything else.
ORVAN_CORE_INTERNAL void enterLibrary(ui::Platform& platform);

/// Puts another trace object into the place of the thread's, which may be empty, and returns the former one.
ORVAN_CORE_INTERNAL std::shared_ptr<Trace> exchangeTrace(std::shared_ptr<Trace> trace);

/// Returns gobjTrace. Raises 91 before Main has made it, and after the thread has released it: a static object of the
/// program can outlive its thread's trace object.
Trace& traceObject();

/// Raises one of the library's own errors; `label` is the label of the procedure that raises it.
[[noreturn]] void raiseApplicationError(std::string_view label, std::string message);

/// Raises LastErrorNumber without a description, as tracePropagate does. A recovery that handles only some errors
/// raises the others with it.
[[noreturn]] void raiseLastError();

/// The error that the calling thread is handling, as currentError() gives it, but with the text that it had when it was
/// raised: what the public operations raise has none. For the reasons that hosts show to a person. To be called inside
/// a catch block around operations of the library, before any other one.
[[nodiscard]] ORVAN_CORE_INTERNAL RuntimeError currentErrorWithText() noexcept;
/// To be called before such an operation, so that currentErrorWithText does not give the text of an earlier error that
/// happens to have the same number.
ORVAN_CORE_INTERNAL void forgetErrorText() noexcept;

/// A body that returns this decides whether TraceExit is called. A few event handlers deliberately trace only their
/// entry when they have nothing to do. The shape around such a body returns nothing.
enum class Leaving { withExit, withoutExit };

namespace detail {

/// The first step of every error handler: TraceError. Called inside a catch block only.
void recordError();
/// The whole error handler of tracePropagate.
[[noreturn]] void recordAndRaise();

template <class Body>
auto enterRunExit(std::string_view label, Body&& body)
{
    traceObject().TraceEnter(label);
    if constexpr (std::is_void_v<std::invoke_result_t<Body>>) {
        std::forward<Body>(body)();
        traceObject().TraceExit(label);
    } else if constexpr (std::is_same_v<std::invoke_result_t<Body>, Leaving>) {
        if (std::forward<Body>(body)() == Leaving::withExit) {
            traceObject().TraceExit(label);
        }
    } else {
        auto result = std::forward<Body>(body)();
        traceObject().TraceExit(label);
        return result;
    }
}

} // namespace detail

template <class Body>
auto tracePropagate(std::string_view label, Body&& body)
{
    try {
        return detail::enterRunExit(label, std::forward<Body>(body));
    } catch (...) {
        detail::recordAndRaise();
    }
}

/// `recover` runs in the error handler; an error that it raises itself goes to the procedure's caller.
template <class Body, class Recover>
auto traceRecover(std::string_view label, Body&& body, Recover&& recover)
{
    try {
        return detail::enterRunExit(label, std::forward<Body>(body));
    } catch (...) {
        detail::recordError();
        return std::forward<Recover>(recover)();
    }
}

/// `closeOnError` tells the user and closes the dialog.
template <class Body, class Close>
void traceCloseDialog(std::string_view label, Body&& body, Close&& closeOnError)
{
    traceRecover(label, std::forward<Body>(body), std::forward<Close>(closeOnError));
}

/// `hostWindow` returns the handle of the host's window; it is called only when there is an error.
template <class Body, class HostWindow>
void traceShowToUser(std::string_view label, Body&& body, HostWindow&& hostWindow)
{
    traceRecover(label, std::forward<Body>(body), [&] { traceObject().ShowLastError(hostWindow()); });
}

/// Runs one statement. An error in it is recorded if `recordErrors` is set, and the procedure goes on with the next
/// statement.
template <bool recordErrors>
class ResumeNext {
public:
    template <class Statement>
    void operator()(Statement&& statement) const
    {
        try {
            std::forward<Statement>(statement)();
        } catch (...) {
            if constexpr (recordErrors) {
                detail::recordError();
            }
        }
    }
};

namespace detail {

template <bool recordErrors, class Body>
void enterResumeExit(std::string_view label, Body&& body)
{
    const ResumeNext<recordErrors> step;
    step([&] { traceObject().TraceEnter(label); });
    std::forward<Body>(body)(step);
    step([&] { traceObject().TraceExit(label); });
}

} // namespace detail

/// The body gets a ResumeNext named `step` and runs each of its statements with it: step([&] { ... }).
template <class Body>
void traceResume(std::string_view label, Body&& body)
{
    detail::enterResumeExit<true>(label, std::forward<Body>(body));
}

/// Like traceResume, but errors are not recorded.
template <class Body>
void traceIgnore(std::string_view label, Body&& body)
{
    detail::enterResumeExit<false>(label, std::forward<Body>(body));
}

} // namespace orvan
