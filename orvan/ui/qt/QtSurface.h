// QtSurface: a design's controls as child widgets of a host widget.
//
// The host widget's area is the surface: its resize is reported as the inner size. Surface and host
// may be destroyed in either order, and a control's own handler may destroy the surface; a surface
// whose host is gone keeps its controls' state and shows nothing. No exception of a handler crosses
// Qt's event loop: it reaches the platform's onUnhandledError. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/Surface.h"
#include "orvan/ui/qt/SurfaceWidgets.h"

namespace orvan::qt {

class QtSurface final : public ui::Surface {
public:
    /// Makes every control of the design. The platform must outlive the surface. Raises 424 for a
    /// control whose frame is missing and 380 for a button picture that does not exist.
    QtSurface(const ui::FormDesign& design, ui::Platform& platform, QWidget* host);

private:
    std::unique_ptr<ui::Control> make(const ui::ControlDesign& design, ui::Control* parent) override;
    void doSetFocus(ui::Control& to) override { widgets_.setFocus(to); }
    void reportSize(int width, int height);

    SurfaceWidgets widgets_;
};

} // namespace orvan::qt
