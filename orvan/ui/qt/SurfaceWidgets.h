// SurfaceWidgets: the widgets of one surface, which is embedded in a host widget or has a window of its own.
//
// Makes each control from its design row inside the surface's host widget, names it for assistive
// technology, orders the keyboard focus, and reports to the surface where the user moves the focus and
// how large the host is. A report may destroy the surface, and this object with it. Ownership: the
// surface owns this object and the controls that it makes; the host may be destroyed first. Thread: the user-interface
// thread.
#pragma once

#include "orvan/ui/Surface.h"

#include <QObject>
#include <QPointer>

#include <string>
#include <vector>

class QWidget;

namespace orvan::qt {

class QtLabel;
class QtWidgetHolder;

/// The control's widget; null for a control without one, and once it has been destroyed.
QWidget* widgetOf(ui::Control& control);

class SurfaceWidgets final : public QObject {
public:
    SurfaceWidgets(const ui::Surface& surface, ui::Platform& platform, QWidget* host);

    /// The user moved the focus to a control, by key or mouse.
    std::function<void(ui::Control& to)> onUserFocus;
    /// The host has another size, in pixels.
    std::function<void(int width, int height)> onHostSize;

    /// Makes one control inside `parent` (null: the host). Raises 380 for a button picture that does
    /// not exist.
    std::unique_ptr<ui::Control> make(const ui::ControlDesign& design, ui::Control* parent);
    /// To be called when all controls are made: sets the order of Tab and begins to watch the host.
    void complete();
    /// Gives the control's widget Qt's focus without a report.
    void setFocus(ui::Control& to);

private:
    struct Stop {
        ui::Control* control;
        QPointer<QWidget> widget;
        std::int32_t tabIndex;
    };

    /// Filters the host's events.
    bool eventFilter(QObject* watched, QEvent* event) override;
    std::unique_ptr<ui::Control> makeControl(const ui::ControlDesign& design, QWidget* parent);
    bool hasCells(std::string_view frame) const;
    void addStop(const ui::ControlDesign& design, ui::Control& control, QWidget& widget);
    void nameForAssistance(const ui::ControlDesign& design, QWidget& widget);
    void takeFocus(QWidget* now);

    const ui::Surface& surface_;
    ui::Platform& platform_;
    QPointer<QWidget> host_;
    std::vector<Stop> stops_;
    QtLabel* labelBefore_ = nullptr; ///< The control made last, if it is a label.
    QString captionBefore_;
    bool programMoves_ = false;
};

} // namespace orvan::qt
