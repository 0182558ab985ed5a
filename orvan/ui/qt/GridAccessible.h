// GridAccessible: a grid as assistive technology sees it: a table of its visible columns, whose rows can be read whole.
//
// The children of the table are the headers of the columns, then the rows; the children of a row are its cells. A row's
// name is its whole text. Row and column numbers are those of the view without hidden columns, from 0. An object
// for a row or a cell is made when assistive technology first asks for it, and belongs to a position, not to a product.
// It is invalid while the grid has no such position.
// Ownership: Qt, which destroys it with the view. Thread: the user-interface thread.
#pragma once

#include <QAccessibleWidget>
#include <QHash>
#include <QObject>

namespace orvan::qt {

class GridView;

class GridAccessible final : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit GridAccessible(GridView& view);
    ~GridAccessible() override;

    GridView& view() const { return view_; }
    /// The object for a cell; for a whole row where the column is -1, for a header where the row is -1.
    QAccessibleInterface* part(int row, int column) const;
    /// The view's column for a visible one.
    int viewColumn(int column) const { return shownColumns().value(column, -1); }
    QString headerText(int column) const;
    QString cellText(int row, int column) const;
    /// Whether the cell's text is a number, which stands at the right.
    bool isNumber(int row, int column) const;

    int childCount() const override { return columnCount() + rowCount(); }
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override { return part(row, column); }
    int selectedCellCount() const override { return selectedRowCount() * columnCount(); }
    QList<QAccessibleInterface*> selectedCells() const override;
    QString columnDescription(int column) const override { return headerText(column); }
    QString rowDescription(int /*row*/) const override { return {}; }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
    int columnCount() const override { return static_cast<int>(shownColumns().size()); }
    int rowCount() const override;
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override;
    bool isColumnSelected(int /*column*/) const override { return false; }
    bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* /*event*/) override {}

private:
    QList<int> shownColumns() const;
    void tellCurrentRow() const;

    GridView& view_;
    QObject context_; ///< The receiver of the view's signals.
    mutable QHash<std::pair<int, int>, QAccessible::Id> parts_;
};

} // namespace orvan::qt
