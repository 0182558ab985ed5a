// The form at every size: the field frame fills it, the row of buttons follows its bottom edge.

#include "orvan/core/modInit.h"
#include "orvan/editor/frmProduct.h"
#include "orvan/ui/Button.h"
#include "orvan/ui/Form.h"
#include "orvan/ui/Frame.h"

namespace orvan {

namespace {

// Twips.
constexpr float kOuterMargin = 240; ///< Right of the frame, and below the row of buttons.
constexpr float kGap = 120;         ///< Between the frame and the row, and between its two buttons.

} // namespace

void frmProduct::Form_Resize()
{
    // In a window that is too small for it, the frame keeps its size, and the row of buttons still follows it.
    const ResumeNext<false> step;
    step([&] {
        fraWizProducts_.move(fraWizProducts_.left(), fraWizProducts_.top(),
                             form_->innerWidth() - fraWizProducts_.left() - kOuterMargin,
                             form_->innerHeight() - fraWizProducts_.top() - cmdCancel_.height() - kOuterMargin);
    });
    step([&] {
        cmdCancel_.move(fraWizProducts_.left() + fraWizProducts_.width() - cmdCancel_.width(),
                        fraWizProducts_.top() + fraWizProducts_.height() + kGap);
    });
    step([&] { cmdSaveClose_.move(cmdCancel_.left() - cmdSaveClose_.width() - kGap, cmdCancel_.top()); });
    step([&] { fraLeftButtons_.move(fraWizProducts_.left(), cmdSaveClose_.top()); });
}

} // namespace orvan
