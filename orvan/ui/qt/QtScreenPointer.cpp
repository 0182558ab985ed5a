#include "orvan/ui/qt/QtScreenPointer.h"

#include <QCursor>
#include <QGuiApplication>

namespace orvan::qt {

void QtScreenPointer::setCode(ui::PointerCode code)
{
    if (code == code_) {
        return;
    }
    code_ = code;
    switch (code) {
    case ui::PointerCode::standard: QGuiApplication::restoreOverrideCursor(); break;
    case ui::PointerCode::arrowHourglass: QGuiApplication::setOverrideCursor(QCursor(Qt::BusyCursor)); break;
    }
}

} // namespace orvan::qt
