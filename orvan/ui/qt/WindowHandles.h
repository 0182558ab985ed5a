// WindowHandles: numbers by which the logic names windows of a toolkit that it does not know.
//
// An identifier of the window system may exceed 32 bits and may be used again, so the library counts
// its own. Ownership: none, of any window. Thread: the user-interface thread.
#pragma once

#include <cstdint>

class QWidget;

namespace orvan::qt {

/// The same number for the same widget, never that of another in the life of the process; 0 for
/// no widget. Raises 7 when the numbers are used up.
[[nodiscard]] std::int32_t windowHandle(QWidget* widget);

/// The widget of that number; null for 0, for a number never given and for a widget that is gone.
[[nodiscard]] QWidget* windowOf(std::int32_t handle);

} // namespace orvan::qt
