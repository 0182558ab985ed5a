#include "orvan/ui/qt/GridPaint.h"

#include "orvan/ui/qt/Colours.h"
#include "orvan/ui/qt/GridView.h"

#include <QPainter>

#include <algorithm>

namespace orvan::qt {

namespace {

constexpr QChar kEllipsis(0x2026);
constexpr int kFullMargin = 6;
constexpr int kRowSpace = 8;     ///< Above and below a row's text together.
constexpr int kHeaderSpace = 11; ///< The same for the header, including the line below it.

constexpr float kAlternateShade = 0.035F;
constexpr float kUnfocusedSelection = 0.25F;
constexpr float kHeaderTextShade = 0.7F;
constexpr float kLineShade = 0.25F;
constexpr float kSeparatorShade = 0.15F;

/// Replaces line breaks, tabs and other control characters by blanks, so that a row stays one line of text.
QString singleLine(QString text)
{
    for (QChar& character : text) {
        if (character < u' ' || character == QChar::LineSeparator || character == QChar::ParagraphSeparator) {
            character = u' ';
        }
    }
    return text;
}

} // namespace

FittedText fitText(const QFontMetrics& metrics, const QString& text, int width)
{
    constexpr int kWidthPerMargin = 12;
    const int margin = std::clamp(width / kWidthPerMargin, 1, kFullMargin);
    const QString line = singleLine(text);
    const int needed = metrics.horizontalAdvance(line);
    if (needed <= width) {
        return {line, std::min(margin, width - needed), false};
    }
    const QString elided = metrics.elidedText(line, Qt::ElideRight, std::max(width - 2 * margin, 0));
    return {elided.isEmpty() ? QString(kEllipsis) : elided, margin,
            true}; // a cell too narrow for an ellipsis shows a part of one
}

int widthFor(const QFontMetrics& metrics, const QString& text)
{
    return metrics.horizontalAdvance(singleLine(text)) + 2 * kFullMargin;
}

void drawFitted(QPainter& painter, const QRect& cell, const FittedText& text, Qt::Alignment alignment)
{
    const bool right = alignment.testFlag(Qt::AlignRight);
    // The text alone decides its direction, so that an amount looks the same in a window that runs from right to left.
    painter.setLayoutDirection(text.text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.drawText(cell.adjusted(right ? 0 : text.margin, 0, right ? -text.margin : 0, 0),
                     static_cast<int>(alignment.toInt()) | Qt::AlignAbsolute | Qt::TextSingleLine, text.text);
}

RowColours rowColours(const QWidget& grid, int row, bool selected)
{
    const QPalette& palette = grid.palette();
    const QPalette::ColorGroup group = !grid.isEnabled()       ? QPalette::Disabled
                                       : grid.isActiveWindow() ? QPalette::Active
                                                               : QPalette::Inactive;
    const QColor base = palette.color(group, QPalette::Base);
    const QColor text = palette.color(group, QPalette::Text);
    if (selected && grid.hasFocus()) {
        return {palette.color(group, QPalette::Highlight), palette.color(group, QPalette::HighlightedText)};
    }
    if (selected) {
        return {between(base, palette.color(QPalette::Active, QPalette::Highlight), kUnfocusedSelection), text};
    }
    return {row % 2 == 0 ? base : between(base, text, kAlternateShade), text};
}

int gridRowHeight(const QFontMetrics& metrics)
{
    return metrics.height() + kRowSpace;
}

int gridHeaderHeight(const QFontMetrics& metrics)
{
    return metrics.height() + kHeaderSpace;
}

HeaderColours headerColours(const QPalette& palette)
{
    const QColor base = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    return {base, between(base, text, kHeaderTextShade), between(base, text, kLineShade),
            between(base, text, kSeparatorShade)};
}

GridDelegate::GridDelegate(GridView* view) : QStyledItemDelegate(view), view_(*view) {}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const RowColours colours = rowColours(view_, index.row(), view_.rowSelected(index.row()));
    painter->fillRect(option.rect, colours.ground);
    const QString text = index.data(Qt::DisplayRole).toString();
    if (text.isEmpty()) {
        return;
    }
    painter->setPen(colours.text);
    painter->setFont(option.font);
    drawFitted(*painter, option.rect, fitText(option.fontMetrics, text, option.rect.width()),
               index.data(Qt::TextAlignmentRole).value<Qt::Alignment>());
}

QSize GridDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    return {widthFor(option.fontMetrics, index.data(Qt::DisplayRole).toString()), gridRowHeight(option.fontMetrics)};
}

} // namespace orvan::qt
