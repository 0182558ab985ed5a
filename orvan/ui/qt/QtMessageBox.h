// QtMessageBox: message boxes as QMessageBox shows them.
//
// The text is shown as it is, never as markup. Ownership: the platform. Thread: the user-interface
// thread.
#pragma once

#include "orvan/ui/MessageBox.h"

namespace orvan::qt {

class QtMessageBox : public ui::MessageBox {
public:
    /// `message.ownerWindow` is a number from windowHandle() (orvan/ui/qt/WindowHandles.h).
    ui::MessageResult show(const ui::Message& message) override;
};

} // namespace orvan::qt
