#include "orvan/ui/qt/GridModel.h"

#include "orvan/ui/qt/QtText.h"
#include "orvan/ui/qt/Translation.h"

#include <algorithm>

namespace orvan::qt {

GridModel::GridModel(const ui::Grid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(&grid) {}

std::int32_t GridModel::gridRow(int row) const
{
    return grid_ ? row + grid_->fixedRows() : row;
}

int GridModel::modelRow(std::int32_t gridRow) const
{
    return grid_ ? std::max(gridRow - grid_->fixedRows(), -1) : -1;
}

void GridModel::publish()
{
    if (!grid_) {
        return;
    }
    publishColumns(grid_->columnCount());
    publishRows(std::max(grid_->rowCount() - grid_->fixedRows(), 0));
    // headerDataChanged is deliberately not emitted: Qt's views would lay out and paint a second time, later.
    if (columns_ > 0 && rows_ > 0) {
        emit dataChanged(index(0, 0), index(rows_ - 1, columns_ - 1));
    }
}

void GridModel::publishRows(int rows)
{
    if (rows > rows_) {
        beginInsertRows({}, rows_, rows - 1);
        rows_ = rows;
        endInsertRows();
    } else if (rows < rows_) {
        beginRemoveRows({}, rows, rows_ - 1);
        rows_ = rows;
        endRemoveRows();
    }
}

void GridModel::publishColumns(int columns)
{
    if (columns > columns_) {
        beginInsertColumns({}, columns_, columns - 1);
        columns_ = columns;
        endInsertColumns();
    } else if (columns < columns_) {
        beginRemoveColumns({}, columns, columns_ - 1);
        columns_ = columns;
        endRemoveColumns();
    }
}

bool GridModel::holds(std::int32_t row, int column) const
{
    return grid_ && row >= 0 && row < grid_->rowCount() && column >= 0 && column < grid_->columnCount();
}

QVariant GridModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole && role != Qt::TextAlignmentRole && role != Qt::ToolTipRole) {
        return {};
    }
    const std::int32_t row = gridRow(index.row());
    if (!index.isValid() || !holds(row, index.column())) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant::fromValue(alignment(row, index.column()));
    }
    const QString text = toQt(grid_->displayText(row, index.column()));
    return role == Qt::DisplayRole ? QVariant(text) : tip(text, index.column());
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || !holds(0, section)) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole: return headerText(section);
    case Qt::ToolTipRole: return headerTip(section);
    case kOpensMenuRole: return !grid_->headerTip(section).empty();
    // A header is aligned like the first row of its column, whose value decides if the column has no type.
    case Qt::TextAlignmentRole: return QVariant::fromValue(alignment(grid_->fixedRows(), section));
    default: return {};
    }
}

QString GridModel::headerText(int column) const
{
    QString text;
    for (std::int32_t row = 0; row < std::min(grid_->fixedRows(), grid_->rowCount()); ++row) {
        text += (row > 0 ? QStringLiteral(" ") : QString()) + translatedSentence(grid_->displayText(row, column));
    }
    return text;
}

Qt::Alignment GridModel::alignment(std::int32_t row, int column) const
{
    bool number = false;
    switch (grid_->columnType(column)) {
    case ui::GridType::string: break;
    case ui::GridType::int32:
    case ui::GridType::currency:
    case ui::GridType::decimal:
    case ui::GridType::float64: number = true; break;
    case ui::GridType::none:
        if (row < grid_->rowCount()) {
            number = grid_->cell(row, column).number().has_value();
        }
        break;
    }
    // Amounts stand at the right edge in every language, texts where reading begins; see orvan/ui/qt/Alignment.h.
    return Qt::AlignVCenter | (number ? Qt::AlignRight | Qt::AlignAbsolute : Qt::Alignment(Qt::AlignLeft));
}

QVariant GridModel::tip(const QString& text, int column) const
{
    return isCut && isCut(text, column) ? QVariant(toolTipText(text)) : QVariant();
}

QVariant GridModel::headerTip(int column) const
{
    const QString text = headerText(column);
    if (grid_->headerTip(column).empty()) {
        return tip(text, column);
    }
    const QString own = translated(grid_->headerTip(column));
    return toolTipText(isCut && isCut(text, column) ? text + u'\n' + own : own);
}

} // namespace orvan::qt
