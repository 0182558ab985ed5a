// GridView: QTableView as a list of whole rows, of which one may be current and several selected.
//
// What the user does with rows and keys is reported, and what the program sets is not. The view does not decide what a
// key or click selects: it shows what it is told (showRows). Tab and Shift+Tab leave the list, and keys that nobody
// takes go to the window. A handler may destroy the grid. Ownership: its parent widget. Thread: the user-interface
// thread.
#pragma once

#include "orvan/ui/Grid.h"
#include "orvan/ui/qt/ColumnFit.h"

#include <QBasicTimer>
#include <QTableView>

#include <functional>

namespace orvan::qt {

class GridHeader;

class GridView final : public QTableView {
public:
    explicit GridView(QWidget* parent);

    GridHeader& header() const { return *header_; }

    /// The user chose a row, by mouse or through assistive technology.
    std::function<void(int row, ui::RowChoice choice)> onUserRow;
    /// The user pressed a key. Returns whether it was taken.
    std::function<bool(const ui::KeyStroke& key)> onUserKey;
    /// Whether onUserKey would take the key, so that it is not used as a shortcut of the window.
    std::function<bool(const ui::KeyStroke& key)> takesKey;
    /// Whether the user can drag rows to another place.
    std::function<bool()> rowsCanBeDragged;
    /// The user dragged the selected rows to the place above a row; the row count stands for the end.
    std::function<void(int before)> onUserDragRows;
    /// The user double clicked with the left button; -1 where there is no row. The row has been chosen.
    std::function<void(int row)> onUserDoubleClick;
    /// The user clicked with the right button; -1 where there is no row or column. Chooses nothing.
    std::function<void(int row, int column)> onUserRightClick;

    /// The font or the style is another one now.
    std::function<void()> onNewFont;

    /// Runs a change of the model's size or of its columns without reporting anything to the grid. The view is laid out
    /// at once, so that Qt does not lay it out and paint it again later. The scroll position stays.
    void applyLayout(const std::function<void()>& change);
    /// Sets the columns that are shown. They are laid out with the view, also when its width changes.
    void setColumns(std::vector<FittedColumn> columns, bool fillsAgain);
    /// Gives a column the width that the user chose, and returns the width that is shown.
    [[nodiscard]] int setUserWidth(int column, int pixels);
    /// The least width that shows the header and all cells of a column whole.
    [[nodiscard]] int fittingWidth(int column) const;
    /// Makes a row the current one (-1: none) and selects rows, without calling onUserRow. Scrolls to the current row
    /// only if `reveal` is set.
    void showRows(int current, const std::vector<ui::RowRange>& selected, bool reveal);
    [[nodiscard]] bool rowSelected(int row) const;
    [[nodiscard]] bool severalRowsSelected() const;
    /// Shows a text in the lower corner, over the rows; an empty text removes it.
    void showSearchText(const QString& text);
    /// Shows a text where otherwise the rows are; an empty one removes it.
    void showEmptyText(const QString& text);
    [[nodiscard]] int rowsPerPage() const;
    /// Where the context menu of the current row opens, on the screen.
    [[nodiscard]] QPoint menuPlace() const;

    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    /// Does nothing: the search of Qt for letters that are typed in the list would format every row.
    void keyboardSearch(const QString& /*text*/) override {}

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    /// Leaves out QTableView's events for assistive technology, as currentChanged does.
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override
    {
        QAbstractItemView::selectionChanged(selected, deselected); // NOLINT(bugprone-parent-virtual-call): see above
    }
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
    int sizeHintForColumn(int column) const override;
    void updateGeometries() override;
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// What a row's background and marks depend on.
    struct RowLook {
        int row;
        bool selected;
        bool current;
        bool severalSelected; ///< Of the current row: it is marked among others.
        bool operator==(const RowLook& other) const = default;
    };
    std::vector<RowLook> rowsInSight() const;
    /// Paints the rows that look different from before. All others stay as they are on the screen, also while the list
    /// scrolls.
    void updateChangedRows(const std::vector<RowLook>& before);
    void updateRow(int row);
    void updateForFocus();
    void updateRowHeight();
    void readStyleSheets();
    void layOutColumns();
    void paintFrame();
    int firstShownColumn() const;
    void chooseIndex(const QModelIndex& index);
    void chooseRow(int row, ui::RowChoice choice);
    void paintRowGrounds(const QRect& rest);
    void paintMarks();
    void paintSearchText(QPainter& painter);
    void paintEmptyText(QPainter& painter);

    /// What the left button does between its press and its release.
    struct Drag {
        QPoint from;
        int pressedRow = -1;      ///< -1: the button is not down on a row.
        bool chooseLater = false; ///< The pressed row was selected already; without a drag it is chosen at the release.
        int before = -1;          ///< Where the rows would be dropped; -1 until the pointer has moved.
    };
    void dragTo(const QPoint& at);
    void endDrag();

    GridHeader* header_; ///< Child of the view.
    bool programActs_ = false;
    bool mayScroll_ = true;
    Drag drag_;
    QBasicTimer dragScroll_; ///< Scrolls while rows are dragged beyond an edge.
    ColumnFit fit_;
    bool framed_ = true; ///< The view paints the line around it itself.
    QString searchText_;
    QString emptyText_;
};

} // namespace orvan::qt
