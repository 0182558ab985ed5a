#include "orvan/ui/qt/GridPaint.h"

#include "orvan/ui/qt/Colours.h"
#include "orvan/ui/qt/GridView.h"

#include <QPainter>
#include <QStyle>

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
    constexpr int kWidthPerMargin = 4;
    const int margin = std::clamp(width / kWidthPerMargin, 1, kFullMargin);
    const QString line = singleLine(text);
    const int needed = metrics.horizontalAdvance(line);
    // Only a very narrow cell gives up its margin for a text: elsewhere texts would not stand below each other.
    if (needed <= (margin < kFullMargin ? width : width - margin)) {
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

int widthForNumber(const QFontMetrics& metrics, QString text)
{
    QChar widest = u'0';
    for (QChar digit = u'1'; digit <= u'9'; digit = QChar(digit.unicode() + 1)) {
        widest = metrics.horizontalAdvance(digit) > metrics.horizontalAdvance(widest) ? digit : widest;
    }
    for (QChar& character : text) {
        character = character >= u'0' && character <= u'9' ? widest : character;
    }
    return widthFor(metrics, text);
}

void drawFitted(QPainter& painter, const QRect& cell, const FittedText& text, Qt::Alignment alignment,
                Qt::LayoutDirection direction)
{
    const Qt::Alignment side = QStyle::visualAlignment(direction, alignment);
    const bool right = side.testFlag(Qt::AlignRight);
    // The text alone decides its direction, so that an amount looks the same in a window that runs from right to left.
    painter.setLayoutDirection(text.text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.drawText(cell.adjusted(right ? 0 : text.margin, 0, right ? -text.margin : 0, 0),
                     static_cast<int>(side.toInt()) | Qt::AlignAbsolute | Qt::TextSingleLine, text.text);
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
        const QColor selectedText = palette.color(group, QPalette::HighlightedText);
        const QColor away = selectedText.lightnessF() > 0.5F ? Qt::black : Qt::white; // many themes have too little
        return {visibleOn({selectedText}, palette.color(group, QPalette::Highlight), away, kTextContrast),
                selectedText};
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
    const QColor edge = visibleOn({base}, base, text, kEdgeContrast);
    return {base, visibleOn({base}, between(base, text, kHeaderTextShade), text, kTextContrast), edge};
}

QColor edgeColour(const QPalette& palette)
{
    const QColor base = palette.color(QPalette::Base);
    return visibleOn({base, palette.color(QPalette::Window)}, base, palette.color(QPalette::Text), kEdgeContrast);
}

QColor focusColour(const QPalette& palette)
{
    return visibleOn({palette.color(QPalette::Base), palette.color(QPalette::Window)},
                     palette.color(QPalette::Highlight), palette.color(QPalette::Text), kEdgeContrast);
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
               index.data(Qt::TextAlignmentRole).value<Qt::Alignment>(), view_.layoutDirection());
}

QSize GridDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    return {widthFor(option.fontMetrics, index.data(Qt::DisplayRole).toString()), gridRowHeight(option.fontMetrics)};
}

} // namespace orvan::qt
