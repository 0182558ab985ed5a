#include "orvan/ui/qt/GridView.h"

#include "orvan/base/RunHandler.h"
#include "orvan/ui/qt/GridHeader.h"
#include "orvan/ui/qt/GridPaint.h"
#include "orvan/ui/qt/KeyStrokes.h"
#include "orvan/ui/qt/StyleSheets.h"

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>
#include <iterator>

namespace orvan::qt {

namespace {

constexpr int kFrame = 2; ///< Pixels around the rows and the header: the focus ring, or the line and a free pixel.

} // namespace

GridView::GridView(QWidget* parent) : QTableView(parent), header_(new GridHeader(this))
{
    setHorizontalHeader(header_);
    setItemDelegate(new GridDelegate(this));
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setTabKeyNavigation(false);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectRows);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(kFrame);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    header_->leastWidth = [this](int column) { return fit_.leastOf(column); };
    updateRowHeight();
    readStyleSheets();
}

void GridView::readStyleSheets()
{
    header_->readStyleSheets();
    setShowGrid(namedInStyleSheets(*this, QLatin1String("gridline-color")));
    constexpr const char* kAroundRows[] = {"QTableView", "QAbstractItemView", "QFrame"};
    framed_ = !namedInStyleSheets(*this, QLatin1String("border")) ||
              std::none_of(std::begin(kAroundRows), std::end(kAroundRows),
                           [&](const char* name) { return namedInStyleSheets(*this, QLatin1String(name)); });
    update();
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

void GridView::setColumns(std::vector<FittedColumn> columns, bool fillsAgain)
{
    fit_.setColumns(std::move(columns));
    if (fillsAgain) {
        fit_.fillAgain();
    }
}

int GridView::setUserWidth(int column, int pixels)
{
    fit_.setByUser(column, pixels, viewport()->width());
    updateGeometries();
    return columnWidth(column);
}

int GridView::fittingWidth(int column) const
{
    return std::max(sizeHintForColumn(column), header_->sectionSizeHint(column));
}

int GridView::sizeHintForColumn(int column) const
{
    // Qt would measure only the rows that are in sight.
    int width = 0;
    for (int row = 0; model() && row < model()->rowCount(); ++row) {
        width = std::max(width, widthFor(fontMetrics(), model()->index(row, column).data().toString()));
    }
    return width;
}

void GridView::updateGeometries()
{
    layOutColumns();
    QTableView::updateGeometries();
}

void GridView::layOutColumns()
{
    if (header_->userActs()) {
        return; // the edge stays under the pointer
    }
    // The header's signals would have the view laid out again later.
    const QSignalBlocker quiet(*header_);
    const std::vector<int> widths = fit_.shownIn(viewport()->width());
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const int column = fit_.columns()[i].column;
        if (column < header_->count() && header_->sectionSize(column) != widths[i]) {
            header_->resizeSection(column, widths[i]);
            viewport()->update();
            header_->viewport()->update();
        }
    }
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

void GridView::showRows(int current, const std::vector<ui::RowRange>& selected, bool reveal)
{
    const QScopedValueRollback program(programActs_, true);
    const QScopedValueRollback still(mayScroll_, reveal);
    const QModelIndex now = currentIndex();
    const bool keepsColumn = now.isValid() && !header_->isSectionHidden(now.column());
    const QModelIndex index = model()->index(current, keepsColumn ? now.column() : firstShownColumn());
    const std::vector<RowLook> before = rowsInSight();
    if (!index.isValid()) {
        selectionModel()->clear();
        updateChangedRows(before);
        return;
    }
    QItemSelection rows;
    for (const ui::RowRange& range : selected) {
        rows.select(model()->index(range.first, 0), model()->index(range.last, model()->columnCount() - 1));
    }
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
    updateChangedRows(before);
    if (reveal) {
        scrollTo(index);
    }
}

void GridView::updateChangedRows(const std::vector<RowLook>& before)
{
    for (const RowLook& look : rowsInSight()) {
        const auto same = std::find(before.begin(), before.end(), look);
        if (same == before.end()) {
            updateRow(look.row);
        }
    }
}

std::vector<GridView::RowLook> GridView::rowsInSight() const
{
    std::vector<RowLook> looks;
    const int current = currentIndex().isValid() ? currentIndex().row() : -1;
    const bool several = severalRowsSelected();
    for (int row = rowAt(0); row >= 0 && row < model()->rowCount() && rowViewportPosition(row) < viewport()->height();
         ++row) {
        looks.push_back({.row = row,
                         .selected = rowSelected(row),
                         .current = row == current,
                         .severalSelected = row == current && several});
    }
    return looks;
}

void GridView::updateRow(int row)
{
    // The whole width, because a row's background goes on to the right of its cells.
    viewport()->update(0, rowViewportPosition(row), viewport()->width(), rowHeight(row));
}

bool GridView::rowSelected(int row) const
{
    return selectionModel() && selectionModel()->rowIntersectsSelection(row);
}

bool GridView::severalRowsSelected() const
{
    const QItemSelection ranges = selectionModel()->selection(); // ranges, because there may be very many rows
    return ranges.size() > 1 || (ranges.size() == 1 && ranges.constFirst().height() > 1);
}

int GridView::rowsPerPage() const
{
    const int rowHeight = std::max(verticalHeader()->defaultSectionSize(), 1);
    return std::max(viewport()->height() / rowHeight - 1, 1);
}

void GridView::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    if (!mayScroll_) {
        return;
    }
    // The horizontal position stays, because whole rows are chosen and not cells.
    const int across = horizontalScrollBar()->value();
    if (!searchText_.isEmpty()) {
        viewport()->update(); // the text stays where it is while the rows move
    }
    QTableView::scrollTo(index, hint);
    horizontalScrollBar()->setValue(across);
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    // QTableView would count hidden columns: see GridAccessible.h.
    QAbstractItemView::currentChanged(current, previous); // NOLINT(bugprone-parent-virtual-call): for this reason
    for (const QModelIndex& index : {current, previous}) {
        if (index.isValid()) {
            updateRow(index.row());
        }
    }
    if (!programActs_ && current.isValid() && current.row() != previous.row()) {
        runHandler(onUserRow, current.row(), ui::RowChoice::only);
    }
}

QItemSelectionModel::SelectionFlags GridView::selectionCommand(const QModelIndex& index, const QEvent* /*event*/) const
{
    // What reaches this comes from assistive technology: clicks and keys are handled in this class.
    return index.isValid() ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                           : QItemSelectionModel::SelectionFlags(QItemSelectionModel::NoUpdate);
}

void GridView::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        updateRowHeight();
        readStyleSheets();
        runHandler(onNewFont);
    }
}

// QAbstractItemView's own handlers of these two events would paint the whole list anew, and the first one would also
// make the first row current; getting the focus must not choose a row.
void GridView::focusInEvent(QFocusEvent* /*event*/)
{
    updateForFocus();
}

void GridView::focusOutEvent(QFocusEvent* /*event*/)
{
    updateForFocus();
}

bool GridView::viewportEvent(QEvent* event)
{
    const bool activation = event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate;
    // QAbstractItemView would paint the whole list anew. That is needed only where a style sheet has other colours for
    // a window that is not active: where the palette has them, QWidget itself paints anew.
    return activation && !hasStyleSheets(*this)
               ? QAbstractScrollArea::viewportEvent(event) // NOLINT(bugprone-parent-virtual-call): see above
               : QTableView::viewportEvent(event);
}

/// Paints what shows where the focus is: the ring, and the rows that are selected or current.
void GridView::updateForFocus()
{
    if (hasStyleSheets(*this)) {
        viewport()->update();
        update();
        return;
    }
    for (const RowLook& look : rowsInSight()) {
        if (look.selected || look.current) {
            updateRow(look.row);
        }
    }
    const QRect inside = rect().adjusted(frameWidth(), frameWidth(), -frameWidth(), -frameWidth());
    update(QRegion(rect()).subtracted(inside));
}

bool GridView::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const ui::KeyStroke key = keyStrokeOf(*static_cast<QKeyEvent*>(event));
        if (key.key != ui::Key::none && runHandler(takesKey, key)) {
            event->accept(); // the key then comes to keyPressEvent, and triggers no shortcut of the window
            return true;
        }
    }
    const bool handled = QTableView::event(event);
    if (event->type() == QEvent::Paint) {
        paintFrame();
    }
    return handled;
}

void GridView::keyPressEvent(QKeyEvent* event)
{
    QScrollBar* across = horizontalScrollBar();
    if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
        const bool right = (event->key() == Qt::Key_Right) != isRightToLeft();
        across->triggerAction(right ? QScrollBar::SliderSingleStepAdd : QScrollBar::SliderSingleStepSub);
        return;
    }
    if (event->key() == Qt::Key_Escape && drag_.before >= 0) {
        endDrag();
        return;
    }
    const ui::KeyStroke key = keyStrokeOf(*event);
    // QTableView is not asked: its own keys would select rows and copy single cells, and the grid would not know of it.
    event->setAccepted(key.key != ui::Key::none && runHandler(onUserKey, key));
}

} // namespace orvan::qt
