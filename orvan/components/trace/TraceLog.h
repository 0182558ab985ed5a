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
// The depth is the number of procedures open in the thread, as far as the calls tell: an exit closes
// the innermost open procedure of that label and all within it; an error closes the innermost open
// procedure, because a failing procedure reports no exit. Some procedures do: those that go on after
// an error. Their exit reopens what surrounds them, when it is still known. An exit that fits
// nothing changes nothing. With 64 procedures open (left without an exit, on purpose or not: real
// chains are a third of that), the count starts anew.
//
// Errors, shown errors and the end of an outermost procedure are flushed at once; other lines at the
// latest with the next line a second later. A crash can cost the last 4 KiB of the running event.
//
// No operation fails because of the file: see TraceLogOptions::report. ShowLastError passes on what
// the message box throws. Thread: each object belongs to the thread that created it; the factory may
// be called from any.
#pragma once

#include "orvan/ui/ComponentFactory.h"
#include "orvan/ui/MessageBox.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string_view>

namespace orvan {

/// What AppErrorNumber answers: the first number free to an application, 513 above the base from
/// which components number their own errors.
inline constexpr std::int32_t kAppErrorNumber = -2147221504 + 513;

/// One file per process: "orvan/trace-<pid>.log" in $XDG_STATE_HOME, or in ~/.local/state where that is
/// not set. Empty when the user has no home directory: no trace is written then.
[[nodiscard]] std::filesystem::path defaultTraceFile();

struct TraceLogOptions {
    std::filesystem::path file = defaultTraceFile();
    std::size_t maxFileSize = std::size_t{4} * 1024 * 1024; ///< Bytes; the file is rotated before it would be larger.
    std::size_t maxFiles = 3;                               ///< Rotated files that are kept beside the current one.
    /// Told once when the file cannot be written (any more); the trace goes on without it. Called in
    /// the tracing thread. Empty: one line on the standard error stream.
    std::function<void(std::string_view)> report = {};
};

/// What a component factory calls to create a trace object. The message box must outlive the last
/// ShowLastError. Where several factories name one file, the first one's options count.
[[nodiscard]] std::function<std::shared_ptr<ui::Component>()> traceLogFactory(TraceLogOptions options,
                                                                              ui::MessageBox& messageBox);

} // namespace orvan
