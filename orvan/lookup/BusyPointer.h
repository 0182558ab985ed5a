// BusyPointer: the mouse pointer while the catalogue is asked.
//
// A scope's object: what its end finds not restored it restores, so that an error is recorded and
// shown under the user's own pointer. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/ScreenPointer.h"

#include <optional>

namespace orvan {

class BusyPointer {
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
