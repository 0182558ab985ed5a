// The grid on top takes all the room above a band as high as the buttons: the total at its left
// edge, the buttons at the grid's right edge.

#include "orvan/core/modInit.h"
#include "orvan/ui/Button.h"
#include "orvan/ui/Frame.h"
#include "orvan/ui/Grid.h"
#include "orvan/ui/Surface.h"
#include "orvan/view/ProductView.h"

namespace orvan {

namespace {

constexpr float kGap = 60; // twips between the grid and the band

} // namespace

void ProductView::UserControl_Resize()
{
    // No length is clamped: a control lower than its band keeps the grid's last height, and each
    // step goes by what the controls then have.
    const ResumeNext<false> step;
    step([&] { flexGrid_.move(0, 0, surface_.innerWidth(), surface_.innerHeight() - kGap - cmdNew_.height()); });
    step([&] { fraBottomLeft_.move(0, flexGrid_.height() + kGap); });
    step([&] { fraBottomRight_.move(flexGrid_.width() - fraBottomRight_.width(), fraBottomLeft_.top()); });
}

} // namespace orvan
