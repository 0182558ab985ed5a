#include "orvan/ui/Grid.h"

#include "orvan/base/RuntimeError.h"

#include <algorithm>
#include <utility>

namespace orvan::ui {

namespace {

std::size_t requireCount(std::int32_t count, const char* what)
{
    if (count < 0) {
        throw RuntimeError(ErrorNumber::invalidPropertyValue, {}, std::string(what) + " cannot be negative");
    }
    return static_cast<std::size_t>(count);
}

} // namespace

Grid::Grid(const ControlDesign& design, NumberSeparators separators)
    : Control(design), separators_(std::move(separators))
{
    appendColumns(design.gridColumns);
}

void Grid::appendColumns(std::int32_t count)
{
    while (columnCount() < count) {
        auto column = std::make_unique<Column>();
        column->width = kDefaultColumnWidth;
        column->cells.resize(static_cast<std::size_t>(rowCount_));
        columns_.push_back(std::move(column));
    }
}

void Grid::raiseOutside(const char* what, std::int32_t index, std::int32_t count) const
{
    throw RuntimeError(ErrorNumber::subscriptOutOfRange, {},
                       std::string(name()).append(": no ").append(what) + ' ' + std::to_string(index) + " of " +
                           std::to_string(count));
}

void Grid::changed(bool GridChanges::*what)
{
    pending_.*what = true;
    if (redraw_) {
        doUpdate(std::exchange(pending_, {}));
    }
}

void Grid::setRedraw(bool redraw)
{
    if (redraw == redraw_) {
        return;
    }
    redraw_ = redraw;
    if (redraw) {
        doUpdate(std::exchange(pending_, {}));
    } else {
        doSuspend();
    }
}

void Grid::setRowCount(std::int32_t count)
{
    const std::size_t rows = requireCount(count, "a row count");
    if (count > kMostRows) {
        throw RuntimeError(ErrorNumber::outOfMemory, {},
                           std::string(name()).append(": cannot hold ").append(std::to_string(count)).append(" rows"));
    }
    if (count == rowCount_) {
        return;
    }
    for (const auto& column : columns_) {
        column->cells.resize(rows);
    }
    takeRowCount(count);
}

void Grid::removeRow(std::int32_t row)
{
    requireRow(row);
    for (const auto& column : columns_) {
        column->cells.erase(column->cells.begin() + row);
    }
    takeRowCount(rowCount_ - 1);
}

void Grid::takeRowCount(std::int32_t count)
{
    rowCount_ = count;
    currentRow_ = std::clamp(currentRow_, 0, std::max(count - 1, 0));
    selectCurrentRow();
    changed(&GridChanges::layout);
}

void Grid::setColumnCount(std::int32_t count)
{
    const std::size_t kept = std::min(requireCount(count, "a column count"), columns_.size());
    columns_.resize(kept);
    appendColumns(count);
    changed(&GridChanges::layout);
}

void Grid::setFixedRows(std::int32_t count)
{
    requireCount(count, "a header row count");
    fixedRows_ = count;
    changed(&GridChanges::layout);
}

void Grid::setUserResizing(bool allowed)
{
    userResizing_ = allowed;
    changed(&GridChanges::layout);
}

void Grid::setColumnKey(std::int32_t column, std::string_view key)
{
    at(column).key = key; // keys are not painted: nothing to update
}

std::int32_t Grid::columnIndex(std::string_view key) const
{
    for (std::int32_t column = 0; column < columnCount() && !key.empty(); ++column) {
        if (at(column).key == key) {
            return column;
        }
    }
    return -1;
}

void Grid::moveColumn(std::int32_t column, std::int32_t to)
{
    at(column);
    at(to);
    const auto from = columns_.begin() + column;
    const auto target = columns_.begin() + to;
    if (from < target) {
        std::rotate(from, from + 1, target + 1);
    } else {
        std::rotate(target, from, from + 1);
    }
    changed(&GridChanges::layout);
}

void Grid::setColumnType(std::int32_t column, GridType type)
{
    at(column).type = type;
    changed(&GridChanges::cells);
}

void Grid::setColumnFormat(std::int32_t column, std::string_view picture, AmountText text)
{
    at(column).format = picture.empty() ? GridFormat() : GridFormat(picture);
    at(column).amountText = std::move(text);
    changed(&GridChanges::cells);
}

void Grid::setColumnHidden(std::int32_t column, bool hidden)
{
    at(column).hidden = hidden;
    changed(&GridChanges::layout);
}

void Grid::setColumnWidth(std::int32_t column, std::int32_t twips)
{
    Column& changedColumn = at(column);
    requireCount(twips, "a column width");
    changedColumn.width = twips;
    pending_.restWidth = pending_.restWidth || changedColumn.takesRest;
    changed(&GridChanges::layout);
}

void Grid::setColumnTakesRest(std::int32_t column, bool takes)
{
    at(column).takesRest = takes;
    changed(&GridChanges::layout);
}

void Grid::setHeaderTip(std::int32_t column, UserText tip)
{
    if (tip.english() != at(column).headerTip.english()) {
        at(column).headerTip = std::move(tip);
        changed(&GridChanges::layout);
    }
}

void Grid::setEmptyText(UserText text)
{
    emptyText_ = std::move(text);
    changed(&GridChanges::layout);
}

void Grid::setCell(std::int32_t row, std::int32_t column, GridCell cell)
{
    requireRow(row);
    at(column).cells[static_cast<std::size_t>(row)] = std::move(cell);
    changed(&GridChanges::cells);
}

std::string Grid::displayText(std::int32_t row, std::int32_t column) const
{
    const Column& shown = at(column);
    const GridCell& shownCell = cell(row, column);
    if (const auto amount = shownCell.amount(); amount && shown.amountText) {
        try {
            return shown.amountText(*amount);
        } catch (...) { // a toolkit that paints takes no error
        }
    }
    return shown.format.display(shownCell.value(), separators_);
}

void Grid::setCurrentRow(std::int32_t row)
{
    requireRow(row);
    currentRow_ = row;
    selectCurrentRow();
    changed(&GridChanges::currentRow);
}

void Grid::selectCurrentRow()
{
    anchorRow_ = currentRow_;
    selection_.clear();
    if (currentRow_ >= fixedRows_ && currentRow_ < rowCount_) {
        selection_.replace({currentRow_, currentRow_});
    }
}

void Grid::selectRows(RowSelection rows, std::int32_t current)
{
    requireRow(current);
    for (const RowRange& range : rows.ranges()) {
        requireRow(range.first);
        requireRow(range.last);
        if (range.first < fixedRows_) {
            throw RuntimeError(ErrorNumber::invalidProcedureCall, {}, name() + ": a header cannot be selected");
        }
    }
    selection_ = std::move(rows);
    currentRow_ = current;
    anchorRow_ = current;
    changed(&GridChanges::currentRow);
}

void Grid::setSearchText(UserText text)
{
    const bool same = text == searchText_.english();
    searchText_ = std::move(text);
    if (!same) {
        doShowSearchText();
    }
}

void Grid::userResizedColumn(std::int32_t column, std::int32_t twips)
{
    const Tapped tapped(surface(), [&] { return told(EventKind::gridWidth, column, twips); });
    at(column).width = std::max(measuredBy(surface(), "dragged", twips), 0);
    raise(onAfterUserResize);
}

void Grid::userDoubleClicked(std::int32_t row)
{
    const Tapped tapped(surface(), [&] { return told(EventKind::doubleClick, row); });
    mouseRow_ = row;
    raise(onDblClick);
}

void Grid::userRightClicked(std::int32_t row, std::int32_t column)
{
    const Tapped tapped(surface(), [&] { return told(EventKind::rightClick, row, column); });
    mouseRow_ = row;
    mouseColumn_ = column;
    raise(onRightClick);
}

void Grid::userChoseRow(std::int32_t row, RowChoice choice)
{
    requireRow(row);
    const Tapped tapped(surface(), [&] { return told(EventKind::gridRow, row, static_cast<std::int32_t>(choice)); });
    currentRow_ = row;
    if (!multiSelect_ || choice == RowChoice::only || row < fixedRows_) {
        selectCurrentRow();
    } else if (choice == RowChoice::upTo) {
        const std::int32_t anchor = std::clamp(anchorRow_, fixedRows_, rowCount_ - 1);
        selection_.replace({std::min(anchor, row), std::max(anchor, row)});
    } else {
        selection_.toggle(row);
        anchorRow_ = row;
    }
    doSelect();
    raise(onSelect);
}

void Grid::userDraggedRows(std::int32_t before)
{
    if (rowDragging_) { // it may have been switched off while the user dragged
        const Tapped tapped(surface(), [&] { return told(EventKind::gridDrag, before); });
        raise(onDragRows, before);
    }
}

bool Grid::userPressedKey(KeyStroke key)
{
    const Tapped tapped(surface(), [&] { return told(EventKind::gridKey, 0, 0, keyText(key)); });
    raise(onKeyDown, key);
    return key.key == Key::none || moveByKey(key); // a handler that has destroyed the grid has taken the key
}

bool Grid::moveByKey(const KeyStroke& key)
{
    if (rowCount_ <= fixedRows_ || key.alt) {
        return false;
    }
    if (key.control && key.key == Key::character && key.character == U' ' && currentRow_ >= fixedRows_) {
        userChoseRow(currentRow_, RowChoice::toggle);
        return true;
    }
    const bool none = currentRow_ < fixedRows_; // each key but End goes to the first row then
    std::int32_t to = fixedRows_;
    const auto page = [this] { return measuredBy(surface(), "page", rowsPerPage()); };
    switch (key.key) {
    case Key::home: break;
    case Key::end: to = rowCount_ - 1; break;
    case Key::up: to = none ? to : currentRow_ - 1; break;
    case Key::down: to = none ? to : currentRow_ + 1; break;
    case Key::pageUp: to = none ? to : currentRow_ - page(); break;
    case Key::pageDown: to = none ? to : currentRow_ + page(); break;
    default: return false;
    }
    to = std::clamp(to, fixedRows_, rowCount_ - 1);
    userChoseRow(to, key.shift ? RowChoice::upTo : RowChoice::only);
    return true;
}

void Grid::play(const Event& event)
{
    switch (event.kind) {
    case EventKind::gridKey: static_cast<void>(userPressedKey(keyOfText(event.text))); break;
    case EventKind::gridRow: userChoseRow(event.first, static_cast<RowChoice>(event.second)); break;
    case EventKind::gridDrag: userDraggedRows(event.first); break;
    case EventKind::gridWidth:
        userResizedColumn(event.first, event.second);
        changed(&GridChanges::layout);
        break;
    case EventKind::doubleClick: userDoubleClicked(event.first); break;
    case EventKind::rightClick: userRightClicked(event.first, event.second); break;
    default: raiseUnplayable(name(), event);
    }
}

} // namespace orvan::ui
