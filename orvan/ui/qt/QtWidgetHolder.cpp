#include "orvan/ui/qt/QtWidgetHolder.h"

#include "orvan/ui/qt/QtText.h"
#include "orvan/ui/qt/Translation.h"
#include "orvan/ui/qt/Twips.h"

#include <QWidget>

namespace orvan::qt {

QtWidgetHolder::QtWidgetHolder(QWidget* widget, const ui::ControlDesign& design) : widget_(widget)
{
    widget->setObjectName(toQt(design.name));
    if (!design.toolTip.empty()) {
        widget->setToolTip(toolTipText(translatedSentence(design.toolTip)));
    }
    place(design.left, design.top, design.width, design.height);
    widget->show();
}

QtWidgetHolder::~QtWidgetHolder()
{
    if (widget_) {
        widget_->hide();
        widget_->deleteLater();
    }
}

void QtWidgetHolder::showEnabled(bool enabled)
{
    if (widget_) {
        widget_->setEnabled(enabled);
    }
}

void QtWidgetHolder::place(const ui::Control& control)
{
    place(control.left(), control.top(), control.width(), control.height());
}

void QtWidgetHolder::place(float left, float top, float width, float height)
{
    if (widget_ && !inLayout_) {
        widget_->setGeometry(toPixels(left), toPixels(top), toPixels(width), toPixels(height));
    }
}

} // namespace orvan::qt
