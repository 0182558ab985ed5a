#include "orvan/ui/qt/QtSurface.h"

#include "orvan/ui/qt/Twips.h"

#include <QWidget>

namespace orvan::qt {

QtSurface::QtSurface(const ui::FormDesign& design, ui::Platform& platform, QWidget* host)
    : Surface(design, platform), widgets_(*this, platform, host)
{
    widgets_.onUserFocus = [this](ui::Control& to) { userMovedFocus(to); };
    widgets_.onHostSize = [this](int width, int height) { reportSize(width, height); };
    buildControls();
    widgets_.complete();
    if (host->testAttribute(Qt::WA_Resized) || host->isVisible()) {
        reportSize(host->width(), host->height()); // Qt sends no event for the size that the host already has
    }
}

std::unique_ptr<ui::Control> QtSurface::make(const ui::ControlDesign& design, ui::Control* parent)
{
    return widgets_.make(design, parent);
}

void QtSurface::reportSize(int width, int height)
{
    setInnerSize(toTwips(width), toTwips(height));
}

} // namespace orvan::qt
