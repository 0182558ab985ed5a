// The form's layout at every size: the frame with the fields fills the form, and the row of buttons stands below it.

#include "orvan/core/modInit.h"
#include "orvan/editor/frmProduct.h"
#include "orvan/ui/Button.h"
#include "orvan/ui/Form.h"
#include "orvan/ui/Frame.h"

namespace orvan {

namespace {

// Lengths in twips.
constexpr float kOuterMargin = 240; ///< Space to the right of the frame, and below the row of buttons.
constexpr float kGap = 120;         ///< Space between the frame and the row, and between the row's two right buttons.

} // namespace

void frmProduct::Form_Resize()
{
    // If the window is too small for the frame, the frame's move fails and is skipped: the frame keeps its size, and
    // the row of buttons still stands below it.
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
    if (cmdSaveClose_) {
        step([&] { cmdSaveClose_->move(cmdCancel_.left() - cmdSaveClose_->width() - kGap, cmdCancel_.top()); });
    }
    step([&] { fraLeftButtons_.move(fraWizProducts_.left(), cmdCancel_.top()); });
}

} // namespace orvan
