// GridView: QTableView as a list of whole rows, of which one may be current.
//
// A row that the user chooses is reported, and a row that the program sets is not. Tab and Shift+Tab
// leave the list, and Enter goes to the window. A handler may destroy the grid. Ownership: its parent
// widget. Thread: the user-interface thread.
#pragma once

#include <QTableView>

#include <functional>

namespace orvan::qt {

class GridHeader;

class GridView final : public QTableView {
public:
    explicit GridView(QWidget* parent);

    GridHeader& header() const { return *header_; }

    /// The user chose a row, by mouse or keyboard.
    std::function<void(int row)> onUserRow;
    /// The user double clicked with the left button; -1 where there is no row. The row has been chosen.
    std::function<void(int row)> onUserDoubleClick;
    /// The user clicked with the right button; -1 where there is no row or column. Chooses nothing.
    std::function<void(int row, int column)> onUserRightClick;

    /// Runs a change of the model's size or of its columns without reporting anything to the grid. The view is laid out
    /// at once, so that Qt does not lay it out and paint it again later. The scroll position stays.
    void applyLayout(const std::function<void()>& change);
    /// Makes a row the current one (-1: none) without calling onUserRow. Scrolls to it only if `reveal` is set.
    void setCurrentRow(int row, bool reveal);

    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    /// Does nothing: the search of Qt for letters that are typed in the list would format every row.
    void keyboardSearch(const QString& /*text*/) override {}

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void updateRowHeight();
    int firstShownColumn() const;

    GridHeader* header_; ///< Child of the view.
    bool programActs_ = false;
    bool mayScroll_ = true;
};

} // namespace orvan::qt
