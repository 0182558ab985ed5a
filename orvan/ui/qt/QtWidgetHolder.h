// QtWidgetHolder: the base class of each control of the Qt platform; it holds the control's widget.
//
// The control and its widget may be destroyed in either order. Ownership: the parent widget owns the
// widget, which may be destroyed with its window first; the control then keeps its state and shows
// nothing. In a window that runs from right to left, positions count from the right edge. A control that is destroyed
// first hides its widget and has it deleted by the event loop, because the widget may still be handling the event that
// destroys the control. Lengths are in twips. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/Control.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace orvan::qt {

class QtWidgetHolder {
public:
    QtWidgetHolder(const QtWidgetHolder&) = delete;
    QtWidgetHolder& operator=(const QtWidgetHolder&) = delete;

    /// Null once the widget has been destroyed.
    QWidget* widget() const { return widget_; }
    /// From now on a layout places the widget; the control keeps its own position and size unchanged.
    void leaveToLayout() { inLayout_ = true; }

protected:
    /// Takes a new child widget; names, places and shows it.
    QtWidgetHolder(QWidget* widget, const ui::ControlDesign& design);
    ~QtWidgetHolder();

    void place(const ui::Control& control);
    void showEnabled(bool enabled);
    /// The receiver for Qt connections that call the control, so that they end with the control and not with the
    /// widget.
    QObject* context() { return &context_; }

private:
    void place(float left, float top, float width, float height);
    void placeWidget();

    /// Has the widget placed anew when its parent gets another width or direction.
    class Context final : public QObject {
    public:
        explicit Context(QtWidgetHolder& holder) : holder_(holder) {}
        bool eventFilter(QObject* watched, QEvent* event) override;

    private:
        QtWidgetHolder& holder_;
    };

    QPointer<QWidget> widget_;
    QRect place_; ///< In a window that runs from left to right.
    Context context_{*this};
    bool inLayout_ = false;
};

} // namespace orvan::qt
