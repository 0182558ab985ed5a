#include "orvan/ui/qt/GridView.h"

#include "orvan/base/RunHandler.h"
#include "orvan/ui/qt/GridHeader.h"
#include "orvan/ui/qt/GridPaint.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>

namespace orvan::qt {

GridView::GridView(QWidget* parent) : QTableView(parent), header_(new GridHeader(this))
{
    setHorizontalHeader(header_);
    setItemDelegate(new GridDelegate(this));
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setTabKeyNavigation(false);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectRows);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    updateRowHeight();
}

void GridView::updateRowHeight()
{
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(gridRowHeight(fontMetrics()));
}

void GridView::applyLayout(const std::function<void()>& change)
{
    const QScopedValueRollback program(programActs_, true);
    const QScopedValueRollback still(mayScroll_, false);
    change();
    executeDelayedItemsLayout();
    updateGeometries();
    viewport()->update();
}

int GridView::firstShownColumn() const
{
    for (int column = 0; column < header_->count(); ++column) {
        if (!header_->isSectionHidden(column)) {
            return column;
        }
    }
    return 0;
}

void GridView::setCurrentRow(int row, bool reveal)
{
    const QScopedValueRollback program(programActs_, true);
    const QScopedValueRollback still(mayScroll_, reveal);
    const QModelIndex now = currentIndex();
    const bool keepsColumn = now.isValid() && !header_->isSectionHidden(now.column());
    const QModelIndex index = model()->index(row, keepsColumn ? now.column() : firstShownColumn());
    if (!index.isValid()) {
        selectionModel()->clear();
        return;
    }
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (reveal) {
        scrollTo(index);
    }
}

void GridView::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    if (!mayScroll_) {
        return;
    }
    // The horizontal position stays, because whole rows are chosen and not cells.
    const int across = horizontalScrollBar()->value();
    QTableView::scrollTo(index, hint);
    horizontalScrollBar()->setValue(across);
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    viewport()->update(); // paints the whole row, including the area to the right of its cells
    if (!programActs_ && current.isValid() && current.row() != previous.row()) {
        runHandler(onUserRow, current.row());
    }
}

QItemSelectionModel::SelectionFlags GridView::selectionCommand(const QModelIndex& index, const QEvent* /*event*/) const
{
    // The current row is always the only selected one, also while Shift or Ctrl is held.
    return index.isValid() ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                           : QItemSelectionModel::SelectionFlags(QItemSelectionModel::NoUpdate);
}

void GridView::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        updateRowHeight();
    }
}

void GridView::focusInEvent(QFocusEvent* event)
{
    // QTableView would make the first row current if there is no current row. Getting the focus must not choose a row.
    const int row = currentIndex().isValid() ? currentIndex().row() : -1;
    {
        const QScopedValueRollback program(programActs_, true);
        const QScopedValueRollback still(mayScroll_, false);
        QTableView::focusInEvent(event);
    }
    setCurrentRow(row, false);
    viewport()->update();
}

void GridView::focusOutEvent(QFocusEvent* event)
{
    QTableView::focusOutEvent(event);
    viewport()->update();
}

void GridView::keyPressEvent(QKeyEvent* event)
{
    QScrollBar* across = horizontalScrollBar();
    if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
        const bool right = (event->key() == Qt::Key_Right) != isRightToLeft();
        across->triggerAction(right ? QScrollBar::SliderSingleStepAdd : QScrollBar::SliderSingleStepSub);
        return;
    }
    QTableView::keyPressEvent(event);
}

void GridView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        QTableView::mousePressEvent(event);
    }
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const int row = rowAt(qRound(event->position().y()));
    const QPointer<GridView> alive(this); // choosing the row may destroy the grid
    QTableView::mouseDoubleClickEvent(event);
    if (alive && row >= 0 && row != currentIndex().row()) { // to the right of the last cell QTableView chooses no row
        selectionModel()->setCurrentIndex(model()->index(row, firstShownColumn()),
                                          QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
    if (alive) {
        runHandler(onUserDoubleClick, row);
    }
}

void GridView::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Keyboard) {
        // The grid's menu is about one column, and the keyboard names none. The window may show a menu of its own.
        event->ignore();
    } else {
        runHandler(onUserRightClick, rowAt(event->y()), columnAt(event->x()));
    }
}

void GridView::paintEvent(QPaintEvent* event)
{
    // The background of a row is painted beyond its last cell, up to the right edge.
    const QRect rest = event->rect() & header_->restBeyondColumns(viewport()->rect());
    if (!rest.isEmpty() && model()) {
        QPainter painter(viewport());
        for (int row = rowAt(rest.top()); row >= 0 && row < model()->rowCount(); ++row) {
            const int top = rowViewportPosition(row);
            if (top > rest.bottom()) {
                break;
            }
            painter.fillRect(rest.left(), top, rest.width(), rowHeight(row),
                             rowColours(*this, row, row == currentIndex().row()).ground);
        }
    }
    QTableView::paintEvent(event);
    if (hasFocus() && !currentIndex().isValid()) { // without a current row, a border shows that the grid has the focus
        QPainter painter(viewport());
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
    }
}

} // namespace orvan::qt
