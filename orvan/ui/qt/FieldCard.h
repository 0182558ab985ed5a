// FieldCard: a frame that lays out its labels, boxes and separators in rows and columns.
//
// The rows and columns follow the size of the font and the length of the labels. A frame too small for
// its rows scrolls, and the control with the focus comes into view. It looks like a card with a thin
// border. Ownership: its parent widget. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/FormDesign.h"

#include <QFrame>

class QGridLayout;
class QScrollArea;

namespace orvan::qt {

class FieldCard final : public QFrame {
public:
    explicit FieldCard(QWidget* parent);

    /// Parent of the widgets that are added.
    QWidget* content() const { return content_; }
    /// Puts the widget into the cell that its design names.
    void add(QWidget& widget, const ui::ControlDesign& design);
    /// The smallest size that shows all without scrolling.
    QSize neededSize() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void addBox(QWidget& box, const ui::ControlDesign& design);
    void alignLabels(int row);

    QScrollArea* area_;
    QWidget* content_;
    QGridLayout* cells_;
};

} // namespace orvan::qt
