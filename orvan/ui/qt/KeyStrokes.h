// keyStrokeOf: a key of Qt as the library's key stroke (orvan/ui/KeyStroke.h).
//
// Thread: any.
#pragma once

#include "orvan/ui/KeyStroke.h"

class QKeyEvent;

namespace orvan::qt {

/// Key::none for a key that no command is bound to and that types nothing, such as a modifier alone, Tab or a dead key.
[[nodiscard]] ui::KeyStroke keyStrokeOf(const QKeyEvent& event);

} // namespace orvan::qt
