// TraceLog: a trace component that writes a log file and shows errors in a message box.
//
// For hosts without a trace component of their own: register the factory below under
// kTraceClassName (orvan/core/modInit.h). All trace objects of a process that name the same file write to
// one file, one line per call:
//
//     2026-01-31 09:15:02.123 4711  0 enter KTVOrvanProduct.ProductView::cmdDelete_Click
//     2026-01-31 09:15:02.125 4711  1   enter KTVOrvanProduct.ProductView::PrvDeleteProduct
//     2026-01-31 09:15:02.125 4711  1   error 91 Object variable not set
//     2026-01-31 09:15:02.126 4711  0 error 91 Object variable not set
//     2026-01-31 09:15:02.126 4711  0 show  91 Object variable not set
//
//   local time, thread, depth, kind (enter, exit, error, show), and the label or the error's number
//   and text, followed by "[source]" and the caller's extra text where there are any. Control
//   characters are written as \xNN, very long texts are cut.
//
// The depth is the number of procedures that are open in the thread. It is derived from the calls: an exit closes the
// innermost open procedure with that label and all procedures within it; an error closes the innermost open procedure,
// because a procedure that fails usually reports no exit. A procedure that goes on after an error does report one; its
// exit then reopens the procedures around it, if they are still known. An exit whose label no known procedure has
// changes nothing. Some procedures never report an exit, on purpose or not, so the depth could grow without end:
// beyond 64, about three times the depth of real calls, it starts again at 0.
//
// Errors, shown errors and the end of an outermost procedure are flushed at once. Other lines are flushed at the
// latest by a line that comes a second later. A crash can lose up to 4 KiB of lines that were not flushed.
//
// No operation fails because of the file: see TraceLogOptions::report. ShowLastError passes on what
// the message box throws. Thread: each object belongs to the thread that created it; the factory may
// be called from any.
#pragma once

#include "orvan/core_export.h"
#include "orvan/ui/ComponentFactory.h"
#include "orvan/ui/MessageBox.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string_view>

namespace orvan {

/// What AppErrorNumber returns: the first number that an application may use for its own errors, which is 513 above
/// the base from which components number theirs.
inline constexpr std::int32_t kAppErrorNumber = -2147221504 + 513;

/// One file per process: "orvan/trace-<pid>.log" in $XDG_STATE_HOME, or in ~/.local/state where that is
/// not set. Empty when the user has no home directory: no trace is written then.
[[nodiscard]] ORVAN_CORE_EXPORT std::filesystem::path defaultTraceFile();

struct TraceLogOptions {
    std::filesystem::path file = defaultTraceFile();
    std::size_t maxFileSize = std::size_t{4} * 1024 * 1024; ///< In bytes; rotation keeps the file below this.
    std::size_t maxFiles = 3;                               ///< How many rotated files are kept beside the current one.
    /// Called once, in the tracing thread, when the file cannot be written (any more); the trace goes on without the
    /// file. If this is empty, one line is written to the standard error stream instead.
    std::function<void(const UserText& message)> report = {};
};

/// Returns the factory that creates trace objects. The message box must outlive the last call of ShowLastError. Where
/// several factories name one file, the first one's options count.
[[nodiscard]] ORVAN_CORE_EXPORT std::function<std::shared_ptr<ui::Component>()>
traceLogFactory(TraceLogOptions options, ui::MessageBox& messageBox);

} // namespace orvan
