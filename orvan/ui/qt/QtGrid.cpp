#include "orvan/ui/qt/QtGrid.h"

#include "orvan/base/RunHandler.h"
#include "orvan/ui/GridNumbers.h"
#include "orvan/ui/LocaleSeparators.h"
#include "orvan/ui/Platform.h"
#include "orvan/ui/qt/GridHeader.h"
#include "orvan/ui/qt/GridModel.h"
#include "orvan/ui/qt/GridPaint.h"
#include "orvan/ui/qt/GridView.h"
#include "orvan/ui/qt/QtText.h"
#include "orvan/ui/qt/Translation.h"
#include "orvan/ui/qt/Twips.h"

namespace orvan::qt {

namespace {

/// QHeaderView keeps a section's size in twenty bits.
constexpr int kWidestColumn = (1 << 20) - 1;

/// Of the names in the column that takes the rest, where there is not enough width for more.
constexpr int kLeastCharacters = 12;

int columnPixels(std::int32_t twips)
{
    return std::min(toPixels(static_cast<float>(twips)), kWidestColumn);
}

} // namespace

QtGrid::QtGrid(const ui::ControlDesign& design, QWidget* parent, ui::Platform& platform)
    : Grid(design, ui::gridSeparators(platform.locale())), QtWidgetHolder(new GridView(parent), design),
      model_(new GridModel(*this, widget()))
{
    view()->setModel(model_);
    GridHeader& header = view()->header();
    handlers_.set(model_->isCut, [this](const QString& text, int column) {
        return fitText(view()->fontMetrics(), text, view()->columnWidth(column)).cut;
    });
    handlers_.set(view()->onUserRow, [this](int row, ui::RowChoice choice) { takeUserRow(row, choice); });
    handlers_.set(view()->onUserKey, [this](const ui::KeyStroke& key) { return userPressedKey(key); });
    handlers_.set(view()->takesKey, [this](const ui::KeyStroke& key) { return runHandler(takesKey, key); });
    handlers_.set(view()->rowsCanBeDragged, [this] { return rowDragging() && onDragRows; });
    handlers_.set(view()->onUserDragRows, [this](int before) { userDraggedRows(before + fixedRows()); });
    handlers_.set(header.onUserResize, [this](int column, int pixels) { takeUserWidth(column, pixels); });
    handlers_.set(view()->onUserDoubleClick, [this](int row) { userDoubleClicked(clickedRow(row)); });
    handlers_.set(header.onUserDoubleClick, [this] { userDoubleClicked(0); });
    handlers_.set(view()->onUserRightClick, [this](int row, int column) { takeRightClick(clickedRow(row), column); });
    handlers_.set(header.onUserRightClick, [this](int column) { takeRightClick(0, column); });
    handlers_.set(view()->onNewFont, [this] {
        if (redraw()) { // otherwise it is laid out later
            doUpdate({.layout = true});
        }
    });
    doUpdate({.cells = true, .layout = true, .currentRow = false});
}

QtGrid::~QtGrid()
{
    if (view()) { // the view still exists until the present event has ended
        model_->detach();
    } else {
        handlers_.forget();
    }
}

GridView* QtGrid::view() const
{
    return static_cast<GridView*>(widget());
}

void QtGrid::doSuspend()
{
    if (view()) {
        view()->setUpdatesEnabled(false);
    }
}

void QtGrid::doUpdate(const ui::GridChanges& changes)
{
    if (!view()) {
        return;
    }
    if (changes.layout || changes.cells) {
        view()->applyLayout([&] {
            model_->publish();
            applyColumns(changes.restWidth);
        });
        applyEmptyText();
    }
    if (changes.layout || changes.currentRow) {
        applyCurrentRow(changes.currentRow);
    }
    view()->header().viewport()->update();
    view()->setUpdatesEnabled(true);
}

void QtGrid::applyColumns(bool fillsAgain)
{
    GridHeader& header = view()->header();
    // The header's signals are blocked, because the view would be laid out again later for each of them; applyLayout
    // lays it out once.
    const QSignalBlocker quiet(header);
    header.setUserResizing(userResizing());
    header.setVisible(fixedRows() > 0);
    bool fits = false;
    for (std::int32_t column = 0; column < columnCount(); ++column) {
        header.setSectionHidden(column, columnHidden(column));
        fits = fits || (columnTakesRest(column) && !columnHidden(column));
    }
    std::vector<FittedColumn> shown;
    for (std::int32_t column = 0; column < columnCount(); ++column) {
        if (!columnHidden(column)) {
            shown.push_back({.column = column,
                             .own = columnPixels(columnWidth(column)),
                             .least = fits ? leastWidth(column) : 0,
                             .takesRest = columnTakesRest(column)});
        }
    }
    view()->setColumns(std::move(shown), fillsAgain);
}

int QtGrid::leastWidth(std::int32_t column) const
{
    const QFontMetrics metrics = view()->fontMetrics();
    int least = view()->header().sectionSizeHint(column);
    if (columnTakesRest(column)) {
        return std::max(least, kLeastCharacters * metrics.averageCharWidth());
    }
    for (const std::string& number : ui::longestNumbers(*this, column)) {
        least = std::max(least, widthForNumber(metrics, toQt(number)));
    }
    return std::min(least, kWidestColumn);
}

void QtGrid::applyEmptyText()
{
    const QString text = rowCount() > fixedRows() ? QString() : translated(emptyText());
    view()->showEmptyText(text);
    view()->setAccessibleDescription(text);
}

std::int32_t QtGrid::measureShown(std::int32_t column) const
{
    const std::int32_t own = columnWidth(column);
    const int pixels = view() ? view()->columnWidth(column) : columnPixels(own);
    return pixels == columnPixels(own) ? own : pixels * kTwipsPerPixel;
}

std::int32_t QtGrid::measureFitting(std::int32_t column) const
{
    return view() ? view()->fittingWidth(column) * kTwipsPerPixel : columnWidth(column);
}

void QtGrid::dragToWidth(std::int32_t column, std::int32_t twips)
{
    if (view()) {
        takeUserWidth(column, columnPixels(twips));
    }
}

void QtGrid::applyCurrentRow(bool reveal)
{
    if (!view()) {
        return;
    }
    std::vector<ui::RowRange> selected = selection().ranges();
    for (ui::RowRange& range : selected) {
        range = {model_->modelRow(range.first), model_->modelRow(range.last)};
    }
    view()->showRows(model_->modelRow(currentRow()), selected, reveal);
}

void QtGrid::doShowSearchText()
{
    if (view()) {
        view()->showSearchText(translated(searchText()));
    }
}

std::int32_t QtGrid::rowsPerPage() const
{
    return view() ? view()->rowsPerPage() : 1;
}

QPoint QtGrid::menuPlace() const
{
    return view() ? view()->menuPlace() : QPoint();
}

void QtGrid::takeUserRow(int row, ui::RowChoice choice)
{
    const std::int32_t chosen = model_->gridRow(row);
    if (chosen < rowCount()) { // the view may still show a row that has been removed from the grid
        userChoseRow(chosen, choice);
    }
}

std::int32_t QtGrid::clickedRow(int row) const
{
    const std::int32_t clicked = row < 0 ? -1 : model_->gridRow(row);
    return clicked < rowCount() ? clicked : -1;
}

void QtGrid::takeRightClick(std::int32_t row, int column)
{
    userRightClicked(row, column < columnCount() ? column : -1);
}

void QtGrid::takeUserWidth(int column, int pixels)
{
    if (column < columnCount()) {
        userResizedColumn(column, view()->setUserWidth(column, pixels) * kTwipsPerPixel);
    }
}

} // namespace orvan::qt
