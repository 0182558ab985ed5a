// GridHeader: the grid's header row, and the user's resizing of columns. A handler may destroy the grid.
//
// Widths are in pixels. Ownership: the view. Thread: the user-interface thread.
#pragma once

#include <QFontMetrics>
#include <QHeaderView>

#include <functional>
#include <optional>
#include <vector>

namespace orvan::qt {

class GridHeader final : public QHeaderView {
public:
    explicit GridHeader(QWidget* parent);

    /// The user changed a column's width, by dragging its edge (reported once, when the button is
    /// released) or by double-clicking it. Widths that the program sets are never reported.
    std::function<void(int column, int pixels)> onUserResize;

    /// The user double clicked with the left button, and no column was resized by that.
    std::function<void()> onUserDoubleClick;
    /// The user clicked with the right button, or with the left one on a header that opens a menu; -1 where there is no
    /// column.
    std::function<void(int column)> onUserRightClick;

    /// The least width that a user can give a column.
    std::function<int(int column)> leastWidth;
    /// Whether the user is dragging an edge.
    [[nodiscard]] bool userActs() const { return userActs_; }
    /// Takes up the style sheets that apply now.
    void readStyleSheets();

    /// Sets whether the user can change the widths of the columns.
    void setUserResizing(bool allowed);
    /// The part of `area`, which is as wide as the header, that no column covers.
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
    /// The column whose menu a left click there opens; -1: none, for instance at an edge that can be dragged.
    [[nodiscard]] int menuColumnAt(const QPoint& at) const;
    [[nodiscard]] bool opensMenu(int column) const;
    void paintPlain(QPainter& painter, const QRect& area, int column) const;
    void paintStyled(QPainter& painter, const QRect& area, int column) const;
    /// `textWidth` includes the margins of the text.
    void paintArrow(QPainter& painter, const QRect& area, int column, int textWidth, const QColor& colour) const;
    /// The part of a section that its text has, without the arrow's.
    [[nodiscard]] QRect textArea(const QRect& area, int column) const;
    [[nodiscard]] int arrowSpace() const;
    /// The width that the text needs. A list that opens is laid out several times, and its heads stay the same.
    [[nodiscard]] int widthOfHead(int column, const QString& text) const;

    /// Ends the user's action; returns whether it was a resize, which has then been reported.
    bool reportResize();

    struct Measured {
        QString text;
        int width = -1; ///< -1: not measured.
    };

    mutable std::vector<Measured> measured_; ///< By columns.
    mutable std::optional<QFontMetrics> measuredWith_;
    bool styled_ = false;    ///< A style sheet says how sections look.
    bool userActs_ = false;  ///< The left button is down.
    int pressedMenu_ = -1;   ///< The column whose menu opens when the button is released there.
    int resizedColumn_ = -1; ///< The column that the present action of the user has resized; -1: none.
    int oldWidth_ = 0;       ///< The width of resizedColumn_ when the action began.
};

} // namespace orvan::qt
