// BusyPointer: the mouse pointer while the catalogue is asked.
//
// An object of one scope. Its destructor restores the pointer where that was not done before, so that an error
// is recorded and shown under the user's own pointer. The screen outlives it. Thread: the user-interface
// thread. Errors: what the screen raises.
#pragma once

#include "orvan/ui/ScreenPointer.h"

#include <optional>

namespace orvan {

class [[nodiscard]] BusyPointer {
public:
    explicit BusyPointer(ui::ScreenPointer& screen) : screen_(screen) {}
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
    /// Never throws: a pointer that cannot be restored stays.
    ~BusyPointer();

    /// Remembers the pointer and shows the arrow with the hourglass.
    void PrvSetBusyPointer();
    /// Shows the remembered pointer again; nothing when none is remembered.
    void PrvRestorePointer();

private:
    ui::ScreenPointer& screen_;
    std::optional<ui::PointerCode> before_;
};

} // namespace orvan
