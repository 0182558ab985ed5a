#include "orvan/ui/qt/GridHeader.h"

#include "orvan/base/RunHandler.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QStyle>

#include <utility>

namespace orvan::qt {

namespace {

/// The least width that a user can drag a column to: of a narrower one no edge would be left to drag it wider. The
/// program can set any width.
constexpr int kNarrowestDrag = 8;
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
    // Comes before the view fits the column. It is reported also where the column was shown in that width before.
    connect(this, &QHeaderView::sectionHandleDoubleClicked, this, [this](int column) {
        if (userActs_) {
            resizedColumn_ = column;
            oldWidth_ = -1;
        }
    });
    connect(this, &QHeaderView::sectionResized, this, [this](int column, int oldWidth, int newWidth) {
        if (!userActs_) {
            return;
        }
        if (resizedColumn_ < 0) {
            resizedColumn_ = column;
            oldWidth_ = oldWidth;
        }
        if (const int least = leastWidth ? leastWidth(column) : 0; newWidth < least) {
            resizeSection(column, least);
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
    pressedMenu_ = userActs_ ? menuColumnAt(event->position().toPoint()) : -1;
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
    const int menu = std::exchange(pressedMenu_, -1);
    if (!reportResize() && menu >= 0 && menuColumnAt(event->position().toPoint()) == menu) {
        runHandler(onUserRightClick, menu);
    }
}

int GridHeader::menuColumnAt(const QPoint& at) const
{
    const int column = logicalIndexAt(at);
    const int grip = style()->pixelMetric(QStyle::PM_HeaderGripMargin, nullptr, this);
    const int left = sectionViewportPosition(column);
    const bool atEdge = at.x() - left < grip || left + sectionSize(column) - 1 - at.x() < grip;
    return opensMenu(column) && !atEdge ? column : -1;
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

} // namespace orvan::qt
