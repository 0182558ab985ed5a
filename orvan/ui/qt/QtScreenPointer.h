// QtScreenPointer: the pointer as QApplication's override cursor.
//
// At most one cursor of the stack is ours, so that a host's own comes back when ours goes. Thread:
// the user-interface thread.
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
