#include "orvan/ui/qt/FieldCard.h"

#include "orvan/ui/qt/Colours.h"

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QScrollArea>

namespace orvan::qt {

namespace {

constexpr int kBorder = 1;
constexpr int kRadius = 6;
constexpr int kMargin = 14;
constexpr int kColumnSpace = 12;
constexpr int kRowSpace = 9;
constexpr int kNarrowestBox = 13; ///< In characters; enough for an amount in the millions.
constexpr float kBorderShade = 0.15F;
constexpr float kDarkCardShade = 0.05F;

int boxHeight(QWidget* parent)
{
    const QLineEdit model(parent);
    return model.sizeHint().height();
}

} // namespace

FieldCard::FieldCard(QWidget* parent)
    : QFrame(parent), area_(new QScrollArea(this)), content_(new QWidget), cells_(new QGridLayout(content_))
{
    cells_->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    cells_->setHorizontalSpacing(kColumnSpace);
    cells_->setVerticalSpacing(kRowSpace);
    area_->setWidget(content_);
    area_->setWidgetResizable(true);
    area_->setFrameShape(QFrame::NoFrame);
    area_->setFocusPolicy(Qt::NoFocus);
    area_->viewport()->setAutoFillBackground(false); // so that the card, which paintEvent paints, shows through
    content_->setAutoFillBackground(false);
    auto* inside = new QVBoxLayout(this);
    inside->setContentsMargins(kBorder, kBorder, kBorder, kBorder);
    inside->addWidget(area_);
    connect(qApp, &QApplication::focusChanged, this, [this] {
        QWidget* focus = QApplication::focusWidget();
        if (focus && content_->isAncestorOf(focus)) {
            area_->ensureWidgetVisible(focus, kMargin, kMargin);
        }
    });
}

void FieldCard::add(QWidget& widget, const ui::ControlDesign& design)
{
    const ui::LayoutCell& cell = design.cell;
    cells_->addWidget(&widget, cell.row, cell.column, cell.rowSpan, cell.columnSpan);
    if (cell.stretch) {
        cells_->setRowStretch(cell.row, 1);
    }
    switch (design.kind) {
    case ui::ControlKind::label:
        if (cell.columnSpan > 1) { // a label over several columns is a heading
            QFont font = widget.font();
            font.setWeight(QFont::DemiBold);
            widget.setFont(font);
        }
        break;
    case ui::ControlKind::line: break;
    default: addBox(widget, design); break;
    }
    alignLabels(cell.row);
}

void FieldCard::addBox(QWidget& box, const ui::ControlDesign& design)
{
    // The width that Qt proposes is ignored, so that all boxes are as wide as their column.
    box.setSizePolicy(QSizePolicy::Ignored, design.multiLine ? QSizePolicy::Expanding : QSizePolicy::Fixed);
    box.setMinimumWidth(kNarrowestBox * box.fontMetrics().horizontalAdvance(u'0') + boxHeight(this));
    if (design.cell.columnSpan == 1) {
        cells_->setColumnStretch(design.cell.column, 1);
    }
}

/// Places a label beside a box of several lines at the height of the first line.
void FieldCard::alignLabels(int row)
{
    if (cells_->rowStretch(row) == 0) {
        return;
    }
    for (int column = 0; column < cells_->columnCount(); ++column) {
        QLayoutItem* item = cells_->itemAtPosition(row, column);
        auto* label = item ? dynamic_cast<QLabel*>(item->widget()) : nullptr;
        if (label) {
            label->setMinimumHeight(boxHeight(this));
            cells_->setAlignment(label, Qt::AlignTop);
        }
    }
}

QSize FieldCard::neededSize() const
{
    return content_->minimumSizeHint() + QSize(2 * kBorder, 2 * kBorder);
}

void FieldCard::paintEvent(QPaintEvent* /*event*/)
{
    const QColor window = palette().color(QPalette::Window);
    const QColor text = palette().color(QPalette::WindowText);
    const QColor base = palette().color(QPalette::Base);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(between(window, text, kBorderShade));
    // The card is always lighter than the window: in a dark theme the boxes are darker than the window, and on a card
    // of their own colour they could not be seen.
    painter.setBrush(base.lightness() > window.lightness() ? base : between(window, text, kDarkCardShade));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
}

} // namespace orvan::qt
