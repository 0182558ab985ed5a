// QtGrid: the grid as a QTableView that asks for the cells it paints.
//
// A long list needs memory for its values only: there are no item objects and no texts made in advance.
// Column widths are shown in the nearest pixel and stay in twips as set; only the user's resizing
// writes a new one. How wide a column is shown is decided by orvan/ui/qt/ColumnFit.h. Ownership: see
// orvan/ui/qt/QtWidgetHolder.h. Thread: the user-interface thread.
#pragma once

#include "orvan/base/ScopedHandlers.h"
#include "orvan/ui/Grid.h"
#include "orvan/ui/qt/QtWidgetHolder.h"

namespace orvan::ui {
class Platform;
}

namespace orvan::qt {

class GridModel;
class GridView;

class QtGrid final : public ui::Grid, public QtWidgetHolder {
public:
    QtGrid(const ui::ControlDesign& design, QWidget* parent, ui::Platform& platform);
    ~QtGrid() override;

    /// Where the context menu of the current row opens, on the screen.
    [[nodiscard]] QPoint menuPlace() const;

    std::int32_t measureShown(std::int32_t column) const override;
    std::int32_t measureFitting(std::int32_t column) const override;
    void dragToWidth(std::int32_t column, std::int32_t twips) override;

private:
    void doMove() override { place(*this); }
    void doUpdate(const ui::GridChanges& changes) override;
    void doSuspend() override;
    void doSelect() override { applyCurrentRow(true); }
    void doShowSearchText() override;
    std::int32_t rowsPerPage() const override;

    /// Null once the widget has been destroyed.
    GridView* view() const;
    void applyColumns(bool fillsAgain);
    void applyEmptyText();
    /// What the column's numbers and header need, in pixels.
    [[nodiscard]] int leastWidth(std::int32_t column) const;
    void applyCurrentRow(bool reveal);
    void takeUserRow(int row, ui::RowChoice choice);
    void takeRightClick(std::int32_t row, int column);
    /// The grid's row for a row of the view. -1 if there is none, which includes a row that has been removed from the
    /// grid and that the view still shows.
    std::int32_t clickedRow(int row) const;
    void takeUserWidth(int column, int pixels);

    GridModel* model_; ///< A child of the view: it has been destroyed if view() is null.
    ScopedHandlers handlers_;
};

} // namespace orvan::qt
