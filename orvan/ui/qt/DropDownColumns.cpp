#include "orvan/ui/qt/DropDownColumns.h"

#include <QApplication>
#include <QPainter>

#include <algorithm>

namespace orvan::qt {

namespace {

constexpr int kSpace = 14; ///< Between two columns.
constexpr int kMargin = 5; ///< At both ends of a row.
constexpr int kMostCharacters = 100;

} // namespace

int DropDownColumns::measure(const QAbstractItemModel& rows, int count, const QStyleOptionViewItem& option)
{
    widths_ = {};
    for (int row = 0; row < count; ++row) {
        const QStringList texts = rows.index(row, 0).data(kColumnsRole).toStringList();
        for (qsizetype column = 0; column < std::min<qsizetype>(texts.size(), std::ssize(widths_)); ++column) {
            int& width = widths_[static_cast<std::size_t>(column)];
            // One pixel more, because the advance is rounded, and a text that is wider by a fraction would be cut.
            width = std::max(width, option.fontMetrics.horizontalAdvance(texts[column].left(kMostCharacters)) + 1);
        }
    }
    const int all = widths_[0] + widths_[1] + widths_[2];
    return all == 0 ? 0 : all + 2 * kSpace + 2 * kMargin;
}

void DropDownColumns::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QStringList texts = index.data(kColumnsRole).toStringList();
    if (texts.size() != std::ssize(widths_)) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    QStyleOptionViewItem item(option);
    initStyleOption(&item, index);
    item.text.clear();
    const QStyle& style = item.widget ? *item.widget->style() : *QApplication::style();
    style.drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);

    const QRect row = item.rect.adjusted(kMargin, 0, -kMargin, 0);
    const int first = std::min(widths_[0], row.width() / 3);
    const int last = std::min(widths_[2], row.width() - first);
    const QRect areas[] = {
        {row.left(), row.top(), first, row.height()},
        {row.left() + first + kSpace, row.top(), row.width() - first - last - 2 * kSpace, row.height()},
        {row.right() + 1 - last, row.top(), last, row.height()},
    };
    const bool selected = item.state.testFlag(QStyle::State_Selected);
    painter->save();
    painter->setFont(item.font);
    painter->setPen(item.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
    for (std::size_t column = 0; column < widths_.size(); ++column) {
        const QRect area = QStyle::visualRect(item.direction, item.rect, areas[column]);
        const bool right = column == 2 || item.direction == Qt::RightToLeft; // an amount always stands at the right
        const QString text =
            item.fontMetrics.elidedText(texts[static_cast<qsizetype>(column)], Qt::ElideRight, area.width());
        const Qt::Alignment side = (right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute | Qt::AlignVCenter;
        painter->drawText(area, static_cast<int>(side.toInt()) | Qt::TextSingleLine, text);
    }
    painter->restore();
}

} // namespace orvan::qt
