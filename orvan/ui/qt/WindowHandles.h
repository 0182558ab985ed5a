// WindowHandles: numbers by which the logic names windows of a toolkit that it does not know.
//
// The window system's own identifiers may have more than 32 bits and may be used again for another
// window, so the library numbers the windows itself. Ownership: no window is owned here. Thread: the user-interface
// thread.
#pragma once

#include <cstdint>

class QWidget;

namespace orvan::qt {

/// The number of a widget. It stays the same, and no other widget of this process ever gets it. 0 for null. Raises 7
/// when there are no more numbers.
[[nodiscard]] std::int32_t windowHandle(QWidget* widget);

/// The widget of that number; null for 0, for an unknown number, and for a widget that has been destroyed.
[[nodiscard]] QWidget* windowOf(std::int32_t handle);

} // namespace orvan::qt
