#include "orvan/ui/qt/QtWidgetHolder.h"

#include "orvan/ui/qt/QtText.h"
#include "orvan/ui/qt/Translation.h"
#include "orvan/ui/qt/Twips.h"

#include <QEvent>
#include <QWidget>

namespace orvan::qt {

QtWidgetHolder::QtWidgetHolder(QWidget* widget, const ui::ControlDesign& design) : widget_(widget)
{
    widget->setObjectName(toQt(design.name));
    if (!design.toolTip.empty()) {
        widget->setToolTip(toolTipText(translatedSentence(design.toolTip)));
    }
    place(design.left, design.top, design.width, design.height);
    if (QWidget* parent = widget->parentWidget()) {
        parent->installEventFilter(&context_);
    }
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
    place_ = QRect(toPixels(left), toPixels(top), toPixels(width), toPixels(height));
    placeWidget();
}

void QtWidgetHolder::placeWidget()
{
    if (!widget_ || inLayout_) {
        return;
    }
    QRect place = place_;
    if (const QWidget* parent = widget_->parentWidget(); parent && parent->isRightToLeft()) {
        place.moveLeft(parent->width() - place_.x() - place_.width());
    }
    widget_->setGeometry(place);
}

bool QtWidgetHolder::Context::eventFilter(QObject* /*watched*/, QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutDirectionChange) {
        holder_.placeWidget();
    }
    return false;
}

} // namespace orvan::qt
