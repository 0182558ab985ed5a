// GridHeader: the grid's header row, and the user's resizing of columns.
//
// Thread: the user-interface thread.
#pragma once

#include <QHeaderView>

#include <functional>

namespace orvan::qt {

class GridHeader final : public QHeaderView {
public:
    explicit GridHeader(QWidget* parent);

    /// The user changed a column's width, by dragging its edge (told once, when the button is let
    /// go) or by double-clicking it. Widths that the program sets are never reported.
    std::function<void(int column, int pixels)> onUserResize;

    /// The user double clicked with the left button, not on an edge that fits its column.
    std::function<void()> onUserDoubleClick;
    /// The user clicked with the right button; -1 beside all columns.
    std::function<void(int column)> onUserRightClick;

    /// The header's sections are fixed while the user may not resize.
    void setUserResizing(bool allowed);
    /// The part of `area`, as wide as the header, in which no column stands.
    QRect restBeyondColumns(const QRect& area) const;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& area, int column) const override;
    QSize sectionSizeFromContents(int column) const override;

private:
    /// Whether there was a resize to report.
    bool reportResize();

    bool userActs_ = false;
    int resizedColumn_ = -1;
    int widthBefore_ = 0;
};

} // namespace orvan::qt
