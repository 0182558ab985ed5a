// QtScreenPointer: the pointer as QApplication's override cursor.
//
// At most one cursor of Qt's stack is the library's, so that the host's own comes back when that is
// removed. Ownership: the platform. Thread: the user-interface thread.
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
