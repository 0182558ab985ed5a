// How GridHeader looks: by itself, or as a host's style sheet says.

#include "orvan/ui/qt/GridHeader.h"
#include "orvan/ui/qt/GridModel.h"
#include "orvan/ui/qt/GridPaint.h"
#include "orvan/ui/qt/StyleSheets.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyle>

#include <algorithm>

namespace orvan::qt {

namespace {

constexpr int kSeparatorInset = 5;
constexpr int kArrowMargin = 4;
constexpr double kArrowHalf = 0.5; ///< Half of an arrow's width, as a part of its space.
constexpr double kArrowTip = 0.7;  ///< How far the tip is below the middle, as a part of half the width.
constexpr int kFrameSpace = 3;     ///< Pixels beside the line around the grid, where a second line would look wrong.

} // namespace

void GridHeader::readStyleSheets()
{
    styled_ = namedInStyleSheets(*this, QLatin1String("QHeaderView"));
    viewport()->update();
}

bool GridHeader::opensMenu(int column) const
{
    return column >= 0 && model() && model()->headerData(column, Qt::Horizontal, kOpensMenuRole).toBool();
}

int GridHeader::arrowSpace() const
{
    return fontMetrics().height() / 2 + kArrowMargin;
}

QRect GridHeader::textArea(const QRect& area, int column) const
{
    if (!opensMenu(column)) {
        return area;
    }
    // The arrow is at the side that the text is not aligned to, so that the text stays above the column's cells.
    const auto alignment = model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).value<Qt::Alignment>();
    const bool textAtRight = QStyle::visualAlignment(layoutDirection(), alignment).testFlag(Qt::AlignRight);
    return textAtRight ? area.adjusted(arrowSpace(), 0, 0, 0) : area.adjusted(0, 0, -arrowSpace(), 0);
}

void GridHeader::paintArrow(QPainter& painter, const QRect& area, int column, int textWidth, const QColor& colour) const
{
    if (!opensMenu(column)) {
        return;
    }
    // Beside the text, and at the edge of the section where the text leaves no more.
    const QRect text = textArea(area, column);
    const int width = arrowSpace() - kArrowMargin;
    const bool atLeft = text.left() > area.left();
    const int left = atLeft ? std::max(text.right() - textWidth - width, area.left() + kArrowMargin)
                            : std::min(text.left() + textWidth, text.right());
    const double half = width * kArrowHalf;
    const QPointF centre = QRectF(left, area.top(), width, area.height()).center();
    QPainterPath arrow(centre + QPointF(-half, -half / 2));
    arrow.lineTo(centre + QPointF(half, -half / 2));
    arrow.lineTo(centre + QPointF(0, half * kArrowTip));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(arrow, colour);
    painter.restore();
}

void GridHeader::paintEvent(QPaintEvent* event)
{
    QHeaderView::paintEvent(event);
    const QRect rest = restBeyondColumns(viewport()->rect());
    if (styled_ || rest.isEmpty()) {
        return;
    }
    // The area beyond the columns is painted over the background of the style.
    QPainter painter(viewport());
    const HeaderColours colours = headerColours(palette());
    painter.fillRect(rest, colours.ground);
    painter.fillRect(rest.adjusted(0, rest.height() - 1, 0, 0), colours.edge);
}

void GridHeader::paintSection(QPainter* painter, const QRect& area, int column) const
{
    if (area.isValid() && model()) {
        styled_ ? paintStyled(*painter, area, column) : paintPlain(*painter, area, column);
    }
}

void GridHeader::paintPlain(QPainter& painter, const QRect& area, int column) const
{
    const HeaderColours colours = headerColours(palette());
    painter.fillRect(area, colours.ground);
    painter.fillRect(area.adjusted(0, area.height() - 1, 0, 0), colours.edge);
    const int end = isRightToLeft() ? area.left() : area.right();
    if (end >= kFrameSpace && end < viewport()->width() - kFrameSpace) {
        painter.fillRect(QRect(end, area.top() + kSeparatorInset, 1, area.height() - 2 * kSeparatorInset),
                         colours.edge);
    }
    painter.setPen(colours.text);
    const QString text = model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    const QVariant alignment = model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole);
    const QRect place = textArea(area, column).adjusted(0, 0, 0, -1);
    const FittedText fitted = fitText(fontMetrics(), text, place.width());
    drawFitted(painter, place, fitted, alignment.value<Qt::Alignment>(), layoutDirection());
    paintArrow(painter, area, column, widthFor(fontMetrics(), fitted.text), colours.text);
}

void GridHeader::paintStyled(QPainter& painter, const QRect& area, int column) const
{
    painter.save();
    QHeaderView::paintSection(&painter, area, column);
    painter.restore();
    const QString text = model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    paintArrow(painter, area, column, widthFor(fontMetrics(), text), palette().color(QPalette::ButtonText));
}

int GridHeader::widthOfHead(int column, const QString& text) const
{
    if (!measuredWith_ || *measuredWith_ != fontMetrics()) {
        measuredWith_ = fontMetrics();
        measured_.clear();
    }
    const auto at = static_cast<std::size_t>(column);
    if (at >= measured_.size()) {
        measured_.resize(at + 1);
    }
    Measured& head = measured_[at];
    if (head.width < 0 || head.text != text) {
        head = {text, widthFor(fontMetrics(), text)};
    }
    return head.width;
}

QSize GridHeader::sectionSizeFromContents(int column) const
{
    const QString text = model() ? model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString() : QString();
    const QSize plain(widthOfHead(column, text), gridHeaderHeight(fontMetrics()));
    const QSize needed = styled_ ? plain.expandedTo(QHeaderView::sectionSizeFromContents(column)) : plain;
    return needed + QSize(opensMenu(column) ? arrowSpace() : 0, 0);
}

} // namespace orvan::qt
