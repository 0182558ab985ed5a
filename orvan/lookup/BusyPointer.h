// BusyPointer: shows the busy mouse pointer while the catalogue is searched.
//
// It is made as a local variable. If the pointer has not been restored before, the destructor restores it, so that
// the message about an error appears under the usual pointer. The screen outlives it. Thread: the user-interface
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
    /// Never throws: if the pointer cannot be restored, it stays busy.
    ~BusyPointer();

    /// Remembers the pointer and shows the arrow with the hourglass.
    void PrvSetBusyPointer();
    /// Shows the remembered pointer again; does nothing when none is remembered.
    void PrvRestorePointer();

private:
    ui::ScreenPointer& screen_;
    std::optional<ui::PointerCode> before_;
};

} // namespace orvan
