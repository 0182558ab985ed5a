// windowIcon: the picture of the desk's windows, drawn by code.
//
// It is the drawing of apps/orvan-desk/desktop/orvan-desk.svg, which desktops show from its files; a test compares
// both. Reading it from a file would load all of Qt's readers of pictures at each start, for each of them is asked
// first whether the file is one of its own. Thread: the user-interface thread.
#pragma once

#include <QIcon>

namespace orvan::desk {

[[nodiscard]] QIcon windowIcon();

} // namespace orvan::desk
