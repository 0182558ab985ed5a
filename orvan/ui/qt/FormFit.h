// FormFit: makes a form's controls as large as the fonts and texts of the user's system need.
//
// Thread: the user-interface thread.
#pragma once

#include <QSize>

namespace orvan::ui {
class Surface;
}

namespace orvan::qt {

/// Enlarges tool bars, buttons and frames laid out in cells, and the frames around them, where the design's size is
/// too small, and moves what stands below or beside them out of the way, all through Control::move.
/// Returns the size in pixels of a surface that shows all with the design's margins.
[[nodiscard]] QSize fitToContents(const ui::Surface& surface);

} // namespace orvan::qt
