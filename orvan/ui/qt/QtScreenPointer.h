// QtScreenPointer: the pointer as QApplication's override cursor.
//
// The library puts at most one cursor on Qt's stack of cursors. When it is removed, the host's own cursor
// is shown again. Ownership: the platform. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/ScreenPointer.h"

namespace orvan::qt {

class QtScreenPointer final : public ui::ScreenPointer {
public:
    ui::PointerCode code() const override { return code_; }
    void setCode(ui::PointerCode code) override;

private:
    ui::PointerCode code_ = ui::PointerCode::standard;
};

} // namespace orvan::qt
