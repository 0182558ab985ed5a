// GridPaint: how the grid's cells and header look.
//
// There are no lines between cells, every other row has a slightly different background, and one line
// separates the header. Colours are taken from the widget's palette at each painting, so that a change
// of theme needs no handling. Lengths are in pixels. Thread: the user-interface thread.
#pragma once

#include <QColor>
#include <QFontMetrics>
#include <QPalette>
#include <QString>
#include <QStyledItemDelegate>

class QPainter;
class QWidget;

namespace orvan::qt {

class GridView;

/// A text as it is shown in a cell of a given width.
struct FittedText {
    QString text; ///< One line; ends in an ellipsis where it was cut.
    int margin;   ///< Pixels that stay free at the side that the text is aligned to.
    bool cut;
};

/// Margins depend on the cell's width alone, so that a column stays aligned; in a very narrow cell they shrink before
/// any character is cut. A text that does not fit ends in an ellipsis, so that the rest of an amount is never read as
/// another amount.
[[nodiscard]] FittedText fitText(const QFontMetrics& metrics, const QString& text, int width);
/// The narrowest width that shows the text whole with full margins.
int widthFor(const QFontMetrics& metrics, const QString& text);
/// The same for each number that is written as this one, whatever its digits are.
int widthForNumber(const QFontMetrics& metrics, QString text);
/// `alignment` may name the leading side (Qt::AlignLeft without AlignAbsolute), which is the right one in `direction`
/// from right to left.
void drawFitted(QPainter& painter, const QRect& cell, const FittedText& text, Qt::Alignment alignment,
                Qt::LayoutDirection direction);

struct RowColours {
    QColor ground;
    QColor text;
};
/// The colours of a row. A selected row is highlighted, and less strongly when the grid does not have the focus, so
/// that the user can see where the focus is.
RowColours rowColours(const QWidget& grid, int row, bool selected);

int gridRowHeight(const QFontMetrics& metrics);
int gridHeaderHeight(const QFontMetrics& metrics);

struct HeaderColours {
    QColor ground;
    QColor text;
    QColor edge; ///< Of the line below the header, and between columns, where a user can drag an edge.
};
HeaderColours headerColours(const QPalette& palette);
/// The colour of the line around the grid, and that of the ring that takes its place while the grid has the focus.
QColor edgeColour(const QPalette& palette);
QColor focusColour(const QPalette& palette);

/// Paints a cell's background and text, nothing else.
class GridDelegate final : public QStyledItemDelegate {
public:
    explicit GridDelegate(GridView* view);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    const GridView& view_;
};

} // namespace orvan::qt
