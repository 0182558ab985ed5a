#include "orvan/ui/qt/GridHeader.h"

#include "orvan/base/RunHandler.h"
#include "orvan/ui/qt/GridPaint.h"

#include <QAbstractItemModel>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

#include <utility>

namespace orvan::qt {

namespace {

/// The least width that a user can drag a column to: of a narrower one no edge would be left to drag it wider. The
/// program can set any width.
constexpr int kNarrowestDrag = 8;
constexpr int kSeparatorInset = 5;

} // namespace

GridHeader::GridHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent)
{
    setSectionsMovable(false);
    setSectionsClickable(false);
    setHighlightSections(false);
    setStretchLastSection(false);
    setMinimumSectionSize(0);
    setSectionResizeMode(QHeaderView::Fixed);
    // Qt emits sectionResized for each pixel of a drag, and also for widths that the program sets. Only the first
    // signal during a user's action is recorded; when the action ends, its old width is compared with the new one.
    connect(this, &QHeaderView::sectionResized, this, [this](int column, int oldWidth, int /*newWidth*/) {
        if (userActs_ && resizedColumn_ < 0) {
            resizedColumn_ = column;
            oldWidth_ = oldWidth;
        }
    });
}

void GridHeader::setUserResizing(bool allowed)
{
    const auto mode = allowed ? QHeaderView::Interactive : QHeaderView::Fixed;
    if (count() > 0 && sectionResizeMode(0) != mode) {
        setSectionResizeMode(mode);
    }
}

QRect GridHeader::restBeyondColumns(const QRect& area) const
{
    const int end = length() - offset();
    return QStyle::visualRect(layoutDirection(), area, area.adjusted(end, 0, 0, 0));
}

void GridHeader::mousePressEvent(QMouseEvent* event)
{
    userActs_ = event->button() == Qt::LeftButton;
    resizedColumn_ = -1;
    QHeaderView::mousePressEvent(event);
}

void GridHeader::mouseMoveEvent(QMouseEvent* event)
{
    setMinimumSectionSize(kNarrowestDrag);
    QHeaderView::mouseMoveEvent(event);
    setMinimumSectionSize(0);
}

void GridHeader::mouseReleaseEvent(QMouseEvent* event)
{
    QHeaderView::mouseReleaseEvent(event);
    reportResize();
}

void GridHeader::mouseDoubleClickEvent(QMouseEvent* event)
{
    userActs_ = event->button() == Qt::LeftButton;
    resizedColumn_ = -1;
    QHeaderView::mouseDoubleClickEvent(event); // on an edge, the view changes the column's width to fit its contents
    if (!reportResize() && event->button() == Qt::LeftButton) {
        runHandler(onUserDoubleClick);
    }
}

void GridHeader::contextMenuEvent(QContextMenuEvent* event)
{
    runHandler(onUserRightClick, logicalIndexAt(event->pos()));
}

bool GridHeader::reportResize()
{
    userActs_ = false;
    const int column = std::exchange(resizedColumn_, -1);
    if (column < 0 || column >= count() || sectionSize(column) == oldWidth_) {
        return false;
    }
    runHandler(onUserResize, column, sectionSize(column));
    return true;
}

void GridHeader::paintEvent(QPaintEvent* event)
{
    QHeaderView::paintEvent(event);
    // The area beyond the columns is painted over the background of the style.
    QPainter painter(viewport());
    const HeaderColours colours = headerColours(palette());
    const QRect rest = restBeyondColumns(viewport()->rect());
    if (!rest.isEmpty()) {
        painter.fillRect(rest, colours.ground);
        painter.fillRect(rest.adjusted(0, rest.height() - 1, 0, 0), colours.line);
    }
}

void GridHeader::paintSection(QPainter* painter, const QRect& area, int column) const
{
    if (!area.isValid() || !model()) {
        return;
    }
    const HeaderColours colours = headerColours(palette());
    painter->fillRect(area, colours.ground);
    painter->fillRect(area.adjusted(0, area.height() - 1, 0, 0), colours.line);
    painter->fillRect(QRect(area.right(), area.top() + kSeparatorInset, 1, area.height() - 2 * kSeparatorInset),
                      colours.separator);
    painter->setPen(colours.text);
    const QVariant text = model()->headerData(column, Qt::Horizontal, Qt::DisplayRole);
    const QVariant alignment = model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole);
    drawFitted(*painter, area.adjusted(0, 0, 0, -1), fitText(fontMetrics(), text.toString(), area.width()),
               alignment.value<Qt::Alignment>());
}

QSize GridHeader::sectionSizeFromContents(int column) const
{
    const QString text = model() ? model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString() : QString();
    return {widthFor(fontMetrics(), text), gridHeaderHeight(fontMetrics())};
}

} // namespace orvan::qt
