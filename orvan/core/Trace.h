// Trace: what the library asks of a trace component, which records its procedures and its errors.
//
// A host that brings a trace of its own implements this interface and registers it by the class name below.
// Ownership: shared; the library keeps one object per thread, from its first use there to the thread's end.
// Thread: the thread that created it. Errors: any operation may throw what it likes.
#pragma once

#include "orvan/ui/ComponentFactory.h"

#include <cstdint>
#include <string_view>

namespace orvan {

/// Class name of the trace component.
inline constexpr std::string_view kTraceClassName = "OrvnTWrp.Trace";

/// The operations in the order of the component's interface.
class ORVAN_EXPORT Trace : public ui::Component {
public:
    /// Number of the error that the last TraceError recorded.
    [[nodiscard]] virtual std::int32_t LastErrorNumber() = 0;
    /// Records the error that the calling thread is handling (currentError()), with an extra text; the library
    /// always passes "".
    virtual void TraceError(std::string_view sText) = 0;
    virtual void TraceEnter(std::string_view label) = 0;
    virtual void TraceExit(std::string_view label) = 0;
    /// Number for errors that the library raises itself.
    [[nodiscard]] virtual std::int32_t AppErrorNumber() = 0;
    /// Shows the recorded error to the user; hWnd owns the message box.
    virtual void ShowLastError(std::int32_t hWnd) = 0;
};

} // namespace orvan
