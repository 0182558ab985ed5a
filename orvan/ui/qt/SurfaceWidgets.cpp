#include "orvan/ui/qt/SurfaceWidgets.h"

#include "orvan/base/RunHandler.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/ui/Platform.h"
#include "orvan/ui/qt/FieldCard.h"
#include "orvan/ui/qt/QtComboBox.h"
#include "orvan/ui/qt/QtControls.h"
#include "orvan/ui/qt/QtGrid.h"
#include "orvan/ui/qt/QtNoteBox.h"
#include "orvan/ui/qt/QtPopupMenu.h"
#include "orvan/ui/qt/QtText.h"
#include "orvan/ui/qt/QtTextBox.h"
#include "orvan/ui/qt/QtTimer.h"
#include "orvan/ui/qt/QtToolBar.h"
#include "orvan/ui/qt/Translation.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QResizeEvent>
#include <QScopedValueRollback>

#include <algorithm>

namespace orvan::qt {

QWidget* widgetOf(ui::Control& control)
{
    auto* holder = dynamic_cast<QtWidgetHolder*>(&control);
    return holder ? holder->widget() : nullptr;
}

SurfaceWidgets::SurfaceWidgets(const ui::Surface& surface, ui::Platform& platform, QWidget* host)
    : surface_(surface), platform_(platform), host_(host)
{
    // Qt emits this signal after both widgets have handled their focus events. A handler that selects text or moves the
    // focus is therefore not undone by those widgets.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*old*/, QWidget* now) { takeFocus(now); });
}

std::unique_ptr<ui::Control> SurfaceWidgets::make(const ui::ControlDesign& design, ui::Control* parent)
{
    QWidget* frame = parent ? widgetOf(*parent) : host_.data();
    auto* card = design.cell.row >= 0 ? dynamic_cast<FieldCard*>(frame) : nullptr;
    auto control = makeControl(design, card ? card->content() : frame);
    if (auto* holder = dynamic_cast<QtWidgetHolder*>(control.get())) {
        if (card) {
            holder->leaveToLayout();
            card->add(*holder->widget(), design);
        }
        if (control->canTakeFocus()) {
            addStop(design, *control, *holder->widget());
        }
    }
    labelBefore_ = dynamic_cast<QtLabel*>(control.get());
    captionBefore_ = plainCaption(design.caption, design.mnemonic);
    return control;
}

std::unique_ptr<ui::Control> SurfaceWidgets::makeControl(const ui::ControlDesign& design, QWidget* parent)
{
    switch (design.kind) {
    case ui::ControlKind::button: return std::make_unique<QtButton>(design, parent);
    case ui::ControlKind::frame: return std::make_unique<QtFrame>(design, parent, hasCells(design.name));
    case ui::ControlKind::grid: return std::make_unique<QtGrid>(design, parent, platform_);
    case ui::ControlKind::label: return std::make_unique<QtLabel>(design, parent);
    case ui::ControlKind::line: return std::make_unique<QtLine>(design, parent);
    case ui::ControlKind::popupMenu: return std::make_unique<QtPopupMenu>(design, parent);
    case ui::ControlKind::timer: return std::make_unique<QtTimer>(design);
    case ui::ControlKind::toolBar: return std::make_unique<QtToolBar>(design, parent);
    case ui::ControlKind::comboBox: return std::make_unique<QtComboBox>(design, parent, platform_);
    case ui::ControlKind::textBox:
        if (design.multiLine) {
            return std::make_unique<QtNoteBox>(design, parent, platform_);
        }
        return std::make_unique<QtTextBox>(design, parent, platform_);
    }
    throw RuntimeError(ErrorNumber::internalError, {}, "a control of no known kind");
}

bool SurfaceWidgets::hasCells(std::string_view frame) const
{
    const auto& rows = surface_.design().controls;
    return std::any_of(rows.begin(), rows.end(),
                       [&](const ui::ControlDesign& row) { return row.parent == frame && row.cell.row >= 0; });
}

void SurfaceWidgets::addStop(const ui::ControlDesign& design, ui::Control& control, QWidget& widget)
{
    widget.setFocusPolicy(design.tabIndex >= 0 ? Qt::StrongFocus : Qt::ClickFocus);
    nameForAssistance(design, widget);
    stops_.push_back({&control, &widget, design.tabIndex});
}

/// Sets the name that a screen reader reads: the control's caption, else the caption of its label, else its tool tip.
void SurfaceWidgets::nameForAssistance(const ui::ControlDesign& design, QWidget& widget)
{
    if (!design.caption.empty()) {
        widget.setAccessibleName(plainCaption(design.caption, design.mnemonic));
    } else if (labelBefore_) {
        labelBefore_->nameFor(&widget);
        widget.setAccessibleName(captionBefore_);
    } else {
        widget.setAccessibleName(translatedSentence(design.toolTip));
    }
    if (auto* const combo = qobject_cast<QComboBox*>(&widget)) {
        combo->lineEdit()->setAccessibleName(widget.accessibleName());
    }
    if (!design.toolTip.empty()) {
        widget.setAccessibleDescription(translatedSentence(design.toolTip));
    }
}

void SurfaceWidgets::complete()
{
    std::vector<const Stop*> order;
    for (const Stop& stop : stops_) {
        if (stop.tabIndex >= 0) {
            order.push_back(&stop);
        }
    }
    std::stable_sort(order.begin(), order.end(), [](auto* a, auto* b) { return a->tabIndex < b->tabIndex; });
    for (std::size_t next = 1; next < order.size(); ++next) {
        QWidget::setTabOrder(order[next - 1]->widget, order[next]->widget);
    }
    host_->installEventFilter(this);
}

void SurfaceWidgets::setFocus(ui::Control& to)
{
    if (QWidget* widget = widgetOf(to)) {
        const QScopedValueRollback program(programMoves_, true);
        widget->setFocus();
    }
}

bool SurfaceWidgets::eventFilter(QObject* /*watched*/, QEvent* event)
{
    if (event->type() == QEvent::Resize) {
        const QSize size = static_cast<QResizeEvent*>(event)->size();
        runHandler(onHostSize, size.width(), size.height()); // may destroy the surface, and this with it
    }
    return false;
}

void SurfaceWidgets::takeFocus(QWidget* now)
{
    // Nothing is reported when the focus goes to another window, a menu or a list that drops down, because those are
    // not controls of the surface. For the surface the control keeps the focus, so there is no event when it comes
    // back.
    if (programMoves_) {
        return;
    }
    for (QWidget* widget = now; widget && widget != host_; widget = widget->parentWidget()) {
        for (const Stop& stop : stops_) {
            if (stop.widget == widget) {
                runHandler(onUserFocus, *stop.control); // may destroy the surface, and this with it
                return;
            }
        }
    }
}

} // namespace orvan::qt
