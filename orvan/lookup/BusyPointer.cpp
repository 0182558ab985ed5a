#include "orvan/lookup/BusyPointer.h"

namespace orvan {

BusyPointer::~BusyPointer()
{
    try {
        PrvRestorePointer();
    } catch (...) {
        // The error that ends the scope is the one to report.
    }
}

void BusyPointer::PrvSetBusyPointer()
{
    before_ = screen_.code();
    screen_.setCode(ui::PointerCode::arrowHourglass);
}

void BusyPointer::PrvRestorePointer()
{
    if (before_) {
        screen_.setCode(*before_);
        before_.reset();
    }
}

} // namespace orvan
