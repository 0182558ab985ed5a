// The rows of GridView: what the mouse does with them, and how they and the marks over them are painted.

#include "orvan/base/RunHandler.h"
#include "orvan/ui/qt/Colours.h"
#include "orvan/ui/qt/GridHeader.h"
#include "orvan/ui/qt/GridPaint.h"
#include "orvan/ui/qt/GridView.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QTimerEvent>

namespace orvan::qt {

namespace {

constexpr int kScrollInterval = 60; // milliseconds from row to row
constexpr int kDropLine = 2;        // pixels
constexpr int kSearchMargin = 6;    // pixels
constexpr float kSearchShade = 0.12F;

ui::RowChoice choiceOf(Qt::KeyboardModifiers modifiers)
{
    return modifiers.testFlag(Qt::ShiftModifier)     ? ui::RowChoice::upTo
           : modifiers.testFlag(Qt::ControlModifier) ? ui::RowChoice::toggle
                                                     : ui::RowChoice::only;
}

} // namespace

void GridView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const QPoint at = event->position().toPoint();
    const int row = rowAt(at.y());
    drag_ = {.from = at, .pressedRow = row};
    if (row < 0) {
        return;
    }
    const ui::RowChoice choice = choiceOf(event->modifiers());
    // Of several selected rows, pressing one may begin a drag of all.
    drag_.chooseLater = choice == ui::RowChoice::only && rowSelected(row) && severalRowsSelected();
    if (!drag_.chooseLater) {
        runHandler(onUserRow, row, choice);
    }
}

void GridView::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint at = event->position().toPoint();
    if (!event->buttons().testFlag(Qt::LeftButton)) {
        QTableView::mouseMoveEvent(event);
        return;
    }
    const bool dragging = drag_.before >= 0;
    if (drag_.pressedRow >= 0 &&
        (dragging || (at - drag_.from).manhattanLength() >= QApplication::startDragDistance()) &&
        (dragging || (rowSelected(drag_.pressedRow) && runHandler(rowsCanBeDragged)))) {
        dragTo(at);
    }
}

/// Shows where the rows would be dropped: at the edge between two rows that is nearest to the pointer.
void GridView::dragTo(const QPoint& at)
{
    const int rows = model()->rowCount();
    const int y = std::clamp(at.y(), 0, viewport()->height() - 1);
    const int row = rowAt(y);
    drag_.before = row < 0 ? rows : y > rowViewportPosition(row) + rowHeight(row) / 2 ? row + 1 : row;
    if (at.y() < 0 || at.y() >= viewport()->height()) {
        if (!dragScroll_.isActive()) {
            dragScroll_.start(kScrollInterval, this);
        }
    } else {
        dragScroll_.stop();
    }
    viewport()->update();
}

void GridView::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != dragScroll_.timerId()) {
        QTableView::timerEvent(event);
        return;
    }
    const QPoint at = viewport()->mapFromGlobal(QCursor::pos());
    verticalScrollBar()->triggerAction(at.y() < 0 ? QScrollBar::SliderSingleStepSub : QScrollBar::SliderSingleStepAdd);
    dragTo(at);
}

void GridView::endDrag()
{
    if (drag_.before >= 0) {
        viewport()->update();
    }
    dragScroll_.stop();
    drag_ = {};
}

void GridView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const Drag drag = drag_;
    endDrag();
    if (drag.before >= 0) {
        runHandler(onUserDragRows, drag.before);
    } else if (drag.chooseLater) {
        runHandler(onUserRow, drag.pressedRow, ui::RowChoice::only);
    }
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const int row = rowAt(qRound(event->position().y()));
    const QPointer<GridView> alive(this); // choosing the row may destroy the grid
    drag_ = {};
    if (row >= 0 && (row != currentIndex().row() || !rowSelected(row))) {
        runHandler(onUserRow, row, ui::RowChoice::only);
    }
    if (alive) {
        runHandler(onUserDoubleClick, row);
    }
}

void GridView::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Keyboard) {
        event->setAccepted(runHandler(onUserKey, ui::KeyStroke{.key = ui::Key::menu}));
    } else {
        runHandler(onUserRightClick, rowAt(event->y()), columnAt(event->x()));
    }
}

QPoint GridView::menuPlace() const
{
    const QModelIndex current = currentIndex();
    if (!current.isValid()) {
        return viewport()->mapToGlobal(QPoint(0, 0));
    }
    const int top = rowViewportPosition(current.row()) + rowHeight(current.row());
    const int left = isRightToLeft() ? viewport()->width() - kSearchMargin : kSearchMargin;
    return viewport()->mapToGlobal(QPoint(left, std::clamp(top, 0, viewport()->height())));
}

void GridView::showEmptyText(const QString& text)
{
    emptyText_ = text;
    viewport()->update();
}

void GridView::showSearchText(const QString& text)
{
    searchText_ = text;
    viewport()->update();
}

void GridView::paintEvent(QPaintEvent* event)
{
    // The background of a row is painted beyond its last cell, up to the right edge.
    const QRect rest = event->rect() & header_->restBeyondColumns(viewport()->rect());
    if (!rest.isEmpty() && model()) {
        paintRowGrounds(rest);
    }
    QTableView::paintEvent(event);
    if (model()) {
        paintMarks();
    }
}

void GridView::paintRowGrounds(const QRect& rest)
{
    QPainter painter(viewport());
    for (int row = rowAt(rest.top()); row >= 0 && row < model()->rowCount(); ++row) {
        const int top = rowViewportPosition(row);
        if (top > rest.bottom()) {
            break;
        }
        painter.fillRect(rest.left(), top, rest.width(), rowHeight(row),
                         rowColours(*this, row, rowSelected(row)).ground);
    }
}

void GridView::paintMarks()
{
    QPainter painter(viewport());
    const int current = currentIndex().isValid() ? currentIndex().row() : -1;
    if (hasFocus() && current >= 0 && (!rowSelected(current) || severalRowsSelected())) {
        // Of several selected rows, or where the current one is not selected, the keys go on from here.
        const bool marked = rowSelected(current);
        painter.setPen(palette().color(marked ? QPalette::HighlightedText : QPalette::Highlight));
        painter.drawRect(1, rowViewportPosition(current) + 1, viewport()->width() - 3, rowHeight(current) - 3);
    }
    if (drag_.before >= 0) {
        const int rows = model()->rowCount();
        const int y = drag_.before < rows ? rowViewportPosition(drag_.before)
                                          : rowViewportPosition(rows - 1) + rowHeight(rows - 1);
        painter.fillRect(0, std::max(y - kDropLine / 2, 0), viewport()->width(), kDropLine,
                         palette().color(QPalette::Highlight));
    }
    if (!searchText_.isEmpty()) {
        paintSearchText(painter);
    }
    if (!emptyText_.isEmpty()) {
        paintEmptyText(painter);
    }
}

void GridView::paintEmptyText(QPainter& painter)
{
    const QColor base = palette().color(QPalette::Base);
    const QColor text = palette().color(QPalette::Text);
    painter.setPen(visibleOn({base}, palette().color(QPalette::PlaceholderText), text, kTextContrast));
    const int margin = fontMetrics().height();
    painter.drawText(viewport()->rect().adjusted(margin, 0, -margin, 0), Qt::AlignCenter | Qt::TextWordWrap,
                     emptyText_);
}

void GridView::paintFrame()
{
    QPainter painter(this);
    // The frame is made of filled rectangles and not of lines: at a scale such as 150 %, the place of a line along the
    // right edge would be rounded to one outside the view, and the line would be missing.
    const auto fill = [&](int thickness, const QColor& colour) {
        const QRect outer = rect();
        painter.fillRect(QRect(0, 0, outer.width(), thickness), colour);
        painter.fillRect(QRect(0, outer.height() - thickness, outer.width(), thickness), colour);
        painter.fillRect(QRect(0, 0, thickness, outer.height()), colour);
        painter.fillRect(QRect(outer.width() - thickness, 0, thickness, outer.height()), colour);
    };
    if (hasFocus()) {
        fill(frameWidth(), focusColour(palette()));
    } else if (framed_) {
        fill(frameWidth(), palette().color(QPalette::Base));
        fill(1, edgeColour(palette()));
    }
}

void GridView::paintSearchText(QPainter& painter)
{
    const QFontMetrics metrics = fontMetrics();
    const QString text = metrics.elidedText(searchText_, Qt::ElideLeft, viewport()->width() / 2);
    QRect box(0, 0, metrics.horizontalAdvance(text) + 2 * kSearchMargin, metrics.height() + kSearchMargin);
    box.moveBottom(viewport()->height() - kSearchMargin);
    box.moveLeft(isRightToLeft() ? kSearchMargin : viewport()->width() - box.width() - kSearchMargin);
    const QColor base = palette().color(QPalette::Base);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.setBrush(between(base, palette().color(QPalette::Text), kSearchShade));
    painter.drawRect(box);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(box, Qt::AlignCenter, text);
}

} // namespace orvan::qt
