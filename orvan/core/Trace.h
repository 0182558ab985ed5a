// Trace: what the library asks of a trace component, which records its procedures and its errors.
//
// orvan/components/trace/TraceLog.h is the one that comes with the library. A host that brings a trace of its own
// registers a factory of it under the class name below, before its thread makes its first view or dialog:
//
//     host.components().registerClass(std::string(orvan::kTraceClassName),
//                                     [] { return std::make_shared<AcmeTrace>(); });
//
// orvan/testing/TraceConformance.h tests a trace against what is said here.
//
// Ownership: shared. Each thread that uses the library has the factory make one object, when the thread first uses the
// library, and keeps this object until the thread ends. The object outlives every host and every window of the thread,
// so it must not keep a reference to one of them. If the factory makes no object, the user is told once, and the
// thread's procedures raise 91 from then on.
//
// Thread: the thread that created the object. Objects of several threads may be called at the same time.
//
// Errors: any operation may throw anything. What TraceEnter and TraceExit throw is an error of the procedure that they
// are about, and is recorded by TraceError; what the others throw goes to the caller of the procedure. A trace that has
// nowhere to write should therefore not throw. Each keystroke makes several calls, so they should not wait for a disk.
#pragma once

#include "orvan/ui/ComponentFactory.h"

#include <cstdint>
#include <string_view>

namespace orvan {

/// Class name of the trace component.
inline constexpr std::string_view kTraceClassName = "OrvnTWrp.Trace";

/// The operations in the order of the component's interface. Texts are valid during the call only; a label is
/// "KTVOrvanProduct.", the object, "::" and the procedure. An error's source and description may be any text.
class ORVAN_EXPORT Trace : public ui::Component {
public:
    /// Number of the error that the last TraceError recorded, until the next one; the procedure that failed raises it
    /// to its caller. Of a RuntimeError, its number; of anything else, the one that currentError() gives. 0 becomes 5,
    /// so it is no answer after an error.
    [[nodiscard]] virtual std::int32_t LastErrorNumber() = 0;
    /// Records the error that the calling thread is handling, with an extra text; the library always passes "". Called
    /// inside the catch block, so currentError() has the error. Each procedure that the error passes through records it
    /// again, with its number alone.
    virtual void TraceError(std::string_view sText) = 0;
    /// The first step of a procedure. Some procedures are entered under another one's label, and some report no exit: a
    /// procedure that fails, unless it goes on after its error, and a few that had nothing to do. So enters and exits
    /// do not pair.
    virtual void TraceEnter(std::string_view label) = 0;
    /// The last step of a procedure that has not failed. One that goes on after a failed TraceEnter calls it, too.
    virtual void TraceExit(std::string_view label) = 0;
    /// Number for errors that the library raises itself, not 0.
    [[nodiscard]] virtual std::int32_t AppErrorNumber() = 0;
    /// Shows the error that was recorded last to the user, and returns when the user has seen it; other operations may
    /// be called meanwhile, because timers and windows go on. hWnd is the handle of the window that owns the message
    /// box (Message::ownerWindow in orvan/ui/MessageBox.h), 0 for none. Called for errors in commands of the list only.
    virtual void ShowLastError(std::int32_t hWnd) = 0;
};

} // namespace orvan
