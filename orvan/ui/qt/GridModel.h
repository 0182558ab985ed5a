// GridModel: a grid's values as Qt's views ask for them.
//
// It holds no cells: it reads the grid, and formats a cell only when its text is asked for.
// Model rows are the grid's rows below the header; model columns are the grid's columns. The sizes
// the view knows change only in publish(); between a change of the grid and that call, cells outside
// the grid read as empty. Ownership: the view. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/Grid.h"

#include <QAbstractTableModel>

#include <functional>

namespace orvan::qt {

/// A header's role: whether a click on it opens a menu.
inline constexpr int kOpensMenuRole = Qt::UserRole;

class GridModel final : public QAbstractTableModel {
public:
    GridModel(const ui::Grid& grid, QObject* parent);

    /// Whether a text does not fit its column. The cell's tool tip then shows all of it.
    std::function<bool(const QString& text, int column)> isCut;

    /// Tells the view that cells may have changed, and the new number of rows and columns if it has changed. The header
    /// is not told, so the caller must have it painted.
    void publish();
    /// The grid is being destroyed: every cell reads as empty from now on.
    void detach() { grid_ = nullptr; }

    /// The grid's row of a model row.
    std::int32_t gridRow(int row) const;
    /// The model's row of a row of the grid; -1 for a header row.
    int modelRow(std::int32_t gridRow) const;

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : columns_; }
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    bool holds(std::int32_t row, int column) const;
    QString headerText(int column) const;
    Qt::Alignment alignment(std::int32_t row, int column) const;
    QVariant tip(const QString& text, int column) const;
    QVariant headerTip(int column) const;
    void publishRows(int rows);
    void publishColumns(int columns);

    const ui::Grid* grid_;
    int rows_ = 0;
    int columns_ = 0;
};

} // namespace orvan::qt
