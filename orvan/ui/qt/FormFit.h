// FormFit: makes a form's controls as large as the fonts and texts of the user's system need.
//
// Thread: the user-interface thread.
#pragma once

#include <QSize>

namespace orvan::ui {
class Surface;
}

namespace orvan::qt {

/// Enlarges each tool bar, button and frame with cells that is too small in the design, and the frames around it, and
/// moves the controls below and beside it out of the way. Everything goes through Control::move. Returns the size in
/// pixels of a surface that shows all controls with the margins of the design, but at most the available one. Where
/// that is too narrow, the buttons with captions lose their pictures, so that they do not cover their neighbours.
[[nodiscard]] QSize fitToContents(const ui::Surface& surface, QSize available);

/// The same for a surface whose frames stand in one line, such as the band of the list view: puts frames and
/// what is in them back to the places of the design, fits labels and boxes that only show something, too, and makes the
/// controls in frames equally high. Called again when a font or one of those texts has changed.
void fitBand(const ui::Surface& surface);

} // namespace orvan::qt
