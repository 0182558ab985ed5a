#include "orvan/ui/qt/GridAccessible.h"

#include "orvan/base/RunHandler.h"
#include "orvan/ui/qt/GridHeader.h"
#include "orvan/ui/qt/GridView.h"
#include "orvan/ui/qt/Translation.h"

#include <QCoreApplication>
#include <QPointer>

#include <algorithm>

namespace orvan::qt {

namespace {

QString editAction()
{
    return QStringLiteral("edit");
}

/// A header, a row or a cell; see GridAccessible::part.
class GridPart final : public QAccessibleInterface,
                       public QAccessibleTableCellInterface,
                       public QAccessibleActionInterface {
public:
    GridPart(const GridAccessible& grid, int row, int column) : grid_(grid), row_(row), column_(column) {}

    bool isValid() const override { return row_ < grid_.rowCount() && column_ < grid_.columnCount(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return grid_.window(); }
    QAccessibleInterface* parent() const override
    {
        return isCell() ? grid_.part(row_, -1) : const_cast<GridAccessible*>(&grid_); // NOLINT: Qt's interfaces
    }
    int childCount() const override { return isRow() ? grid_.columnCount() : 0; }
    QAccessibleInterface* child(int index) const override { return isRow() ? grid_.part(row_, index) : nullptr; }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        const auto* const cell = dynamic_cast<const GridPart*>(child);
        return isRow() && cell && cell->row_ == row_ ? cell->column_ : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override
    {
        for (int column = 0; column < childCount(); ++column) {
            if (QAccessibleInterface* const cell = child(column); cell && cell->rect().contains(x, y)) {
                return cell;
            }
        }
        return nullptr;
    }

    QAccessible::Role role() const override
    {
        return isHeader() ? QAccessible::ColumnHeader : isRow() ? QAccessible::Row : QAccessible::Cell;
    }
    QString text(QAccessible::Text kind) const override
    {
        if (kind != QAccessible::Name || !isValid()) {
            return {};
        }
        return isHeader() ? grid_.headerText(column_) : isRow() ? rowText() : grid_.cellText(row_, column_);
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QAccessible::State state() const override;
    QRect rect() const override;

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (isHeader()) {
            return nullptr;
        }
        return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this)
               : type == QAccessible::ActionInterface  ? static_cast<QAccessibleActionInterface*>(this)
                                                       : static_cast<void*>(nullptr);
    }

    // A whole row counts as a cell that extends over all columns, for clients that ask the table about its children.
    bool isSelected() const override { return grid_.isRowSelected(row_); }
    QList<QAccessibleInterface*> columnHeaderCells() const override
    {
        return isCell() ? QList<QAccessibleInterface*>{grid_.part(-1, column_)} : QList<QAccessibleInterface*>();
    }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return std::max(column_, 0); }
    int rowIndex() const override { return row_; }
    int columnExtent() const override { return isRow() ? grid_.columnCount() : 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return const_cast<GridAccessible*>(&grid_); } // NOLINT: as in parent

    QStringList actionNames() const override { return {editAction()}; }
    QString localizedActionName(const QString& name) const override
    {
        return name == editAction() ? translatedSentence("Edit") : QString();
    }
    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }
    void doAction(const QString& name) override;

private:
    bool isHeader() const { return row_ < 0; }
    bool isRow() const { return row_ >= 0 && column_ < 0; }
    bool isCell() const { return row_ >= 0 && column_ >= 0; }
    /// The texts of the cells, and where they are numbers their headers: "1, Desk lamp, Qty 3, Ext Price 90.00".
    QString rowText() const;

    const GridAccessible& grid_;
    int row_;
    int column_;
};

QString GridPart::rowText() const
{
    QStringList texts;
    for (int column = 0; column < grid_.columnCount(); ++column) {
        const QString cell = grid_.cellText(row_, column);
        const QString header = grid_.headerText(column);
        const bool named = std::any_of(header.begin(), header.end(), [](QChar c) { return c.isLetter(); });
        if (!cell.isEmpty()) {
            texts << (named && grid_.isNumber(row_, column) ? header + u' ' + cell : cell);
        }
    }
    return texts.join(QStringLiteral(", "));
}

QAccessible::State GridPart::state() const
{
    QAccessible::State state;
    const GridView& view = grid_.view();
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    state.offscreen = !grid_.rect().intersects(rect());
    if (isHeader()) {
        return state;
    }
    state.selectable = true;
    state.selected = isSelected();
    state.focusable = isRow();
    state.focused = isRow() && view.hasFocus() && view.currentIndex().row() == row_;
    return state;
}

QRect GridPart::rect() const
{
    if (!isValid()) {
        return {};
    }
    const GridView& view = grid_.view();
    const GridHeader& header = view.header();
    const QWidget& place = isHeader() ? *header.viewport() : *view.viewport();
    QRect area(0, isHeader() ? 0 : view.rowViewportPosition(row_), place.width(),
               isHeader() ? header.height() : view.rowHeight(row_));
    if (!isRow()) {
        const int column = grid_.viewColumn(column_);
        area.setLeft(header.sectionViewportPosition(column));
        area.setWidth(header.sectionSize(column));
    }
    return {place.mapToGlobal(area.topLeft()), area.size()};
}

void GridPart::doAction(const QString& name)
{
    if (name != editAction() || !isValid()) {
        return;
    }
    // Not now: the editor is modal, and the assistive technology waits until the action has been done.
    QMetaObject::invokeMethod(
        &grid_.view(),
        [view = QPointer<GridView>(&grid_.view()), row = row_] {
            runHandler(view->onUserRow, row, ui::RowChoice::only);
            if (view) {
                runHandler(view->onUserDoubleClick, row);
            }
        },
        Qt::QueuedConnection);
}

} // namespace

GridAccessible::GridAccessible(GridView& view) : QAccessibleWidget(&view, QAccessible::Table), view_(view)
{
    // GridView leaves out the events of QTableView, which count hidden columns.
    if (view.selectionModel()) { // a view that is going to be destroyed has none any more, but is still hidden and told
                                 // of
        QObject::connect(view.selectionModel(), &QItemSelectionModel::currentChanged, &context_,
                         [this] { tellCurrentRow(); });
    }
}

GridAccessible::~GridAccessible()
{
    for (const QAccessible::Id id : std::as_const(parts_)) {
        QAccessible::deleteAccessibleInterface(id);
    }
}

void GridAccessible::tellCurrentRow() const
{
    QAccessibleInterface* const row = view_.hasFocus() ? focusChild() : nullptr;
    if (row && QAccessible::isActive()) {
        QAccessibleEvent focus(row, QAccessible::Focus);
        QAccessible::updateAccessibility(&focus);
    }
}

QAccessibleInterface* GridAccessible::part(int row, int column) const
{
    if (row >= rowCount() || column >= columnCount() || (row < 0 && column < 0)) {
        return nullptr;
    }
    QAccessible::Id& id = parts_[{row, column}];
    if (id == 0) {
        id = QAccessible::registerAccessibleInterface(new GridPart(*this, row, column));
    }
    return QAccessible::accessibleInterface(id);
}

QList<int> GridAccessible::shownColumns() const
{
    QList<int> shown;
    for (int column = 0; view_.model() && column < view_.model()->columnCount(); ++column) {
        if (!view_.isColumnHidden(column)) {
            shown << column;
        }
    }
    return shown;
}

QString GridAccessible::headerText(int column) const
{
    return view_.model()->headerData(viewColumn(column), Qt::Horizontal).toString();
}

QString GridAccessible::cellText(int row, int column) const
{
    return view_.model()->index(row, viewColumn(column)).data().toString();
}

bool GridAccessible::isNumber(int row, int column) const
{
    const auto alignment = view_.model()->index(row, viewColumn(column)).data(Qt::TextAlignmentRole);
    return alignment.value<Qt::Alignment>().testFlag(Qt::AlignRight);
}

QAccessibleInterface* GridAccessible::child(int index) const
{
    const int columns = columnCount();
    return index < 0 ? nullptr : index < columns ? part(-1, index) : part(index - columns, -1);
}

int GridAccessible::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* const part = dynamic_cast<const GridPart*>(child);
    if (!part) {
        return -1;
    }
    return part->role() == QAccessible::ColumnHeader ? part->columnIndex() : columnCount() + part->rowIndex();
}

QAccessibleInterface* GridAccessible::childAt(int x, int y) const
{
    const QPoint at = view_.viewport()->mapFromGlobal(QPoint(x, y));
    if (view_.viewport()->rect().contains(at)) {
        const int row = view_.rowAt(at.y());
        return row < 0 ? nullptr : part(row, -1);
    }
    for (int column = 0; column < columnCount(); ++column) {
        if (part(-1, column)->rect().contains(x, y)) {
            return part(-1, column);
        }
    }
    return nullptr;
}

QAccessibleInterface* GridAccessible::focusChild() const
{
    const int row = view_.currentIndex().row();
    return row < 0 ? nullptr : part(row, -1);
}

void* GridAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

int GridAccessible::rowCount() const
{
    return view_.model() ? view_.model()->rowCount() : 0;
}

QList<QAccessibleInterface*> GridAccessible::selectedCells() const
{
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows()) {
        for (int column = 0; column < columnCount(); ++column) {
            cells << part(row, column);
        }
    }
    return cells;
}

QList<int> GridAccessible::selectedRows() const
{
    QList<int> rows;
    if (!view_.selectionModel()) {
        return rows;
    }
    for (const QItemSelectionRange& range : view_.selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            rows << row;
        }
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

bool GridAccessible::isRowSelected(int row) const
{
    return view_.rowSelected(row);
}

bool GridAccessible::selectRow(int row)
{
    if (row < 0 || row >= rowCount()) {
        return false;
    }
    runHandler(view_.onUserRow, row, ui::RowChoice::only);
    return true;
}

} // namespace orvan::qt
