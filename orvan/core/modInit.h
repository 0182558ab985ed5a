// modInit: the thread's trace object and the six shapes of a traced procedure.
//
// Each procedure that has a label runs its body inside one of the shapes below and writes its label
// there, once. A body never catches. All shapes arm their handler before TraceEnter, so that a
// failing TraceEnter is an error like any other; TraceExit is reported on the normal path only, and
// where the body says so not even there (Leaving).
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
// caught by the same shape: it leaves the procedure as an error to its caller.
//
// Ownership: a thread holds its trace object (orvan/core/Trace.h) to its end. Thread: every thread that uses
// the library has its own one; nothing is locked.
#pragma once

#include "orvan/base/RuntimeError.h"
#include "orvan/core/Trace.h"

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

/// The thread's trace object: empty until Main has run in the thread, never replaced by the library.
extern thread_local std::shared_ptr<Trace> gobjTrace;

/// Creates the thread's trace object. On failure shows a message box and raises the creation error
/// again with its number alone; gobjTrace stays empty and every traced procedure raises 91.
void Main(ui::Platform& platform);

/// Runs Main when the library is first used in the calling thread, and only then, whatever came of
/// it. Every public object of the library calls it before anything else.
void enterLibrary(ui::Platform& platform);

/// gobjTrace. Raises 91 when there is none: before Main has made one, and for an object that outlives its
/// thread, such as a program's static.
Trace& traceObject();

/// Raises one of the library's own errors; label is the raising procedure's.
[[noreturn]] void raiseApplicationError(std::string_view label, std::string message);

/// Raises LastErrorNumber, number alone, as tracePropagate does: for a recovery that passes some errors on.
[[noreturn]] void raiseLastError();

/// Returned by a body that decides whether its exit is reported. A few event handlers deliberately report
/// their entry alone when they have nothing to do. The shape around such a body returns nothing.
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

/// `recover` runs inside the handler; its own failure leaves the procedure.
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

/// `hostWindow` yields the handle of the host's window; it is asked only when there is an error.
template <class Body, class HostWindow>
void traceShowToUser(std::string_view label, Body&& body, HostWindow&& hostWindow)
{
    traceRecover(label, std::forward<Body>(body), [&] { traceObject().ShowLastError(hostWindow()); });
}

/// A statement guard: runs one statement, and on an error goes on with the next one.
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

/// The body is given a guard and passes each of its statements through it: step([&] { ... }).
template <class Body>
void traceResume(std::string_view label, Body&& body)
{
    detail::enterResumeExit<true>(label, std::forward<Body>(body));
}

/// As traceResume, but errors leave no record.
template <class Body>
void traceIgnore(std::string_view label, Body&& body)
{
    detail::enterResumeExit<false>(label, std::forward<Body>(body));
}

} // namespace orvan
