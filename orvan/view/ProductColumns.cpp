#include "orvan/view/ProductColumns.h"

#include "orvan/base/Integer.h"
#include "orvan/base/ScopedHandlers.h"
#include "orvan/base/Text.h"
#include "orvan/core/Deviations.h"
#include "orvan/core/modInit.h"
#include "orvan/ui/Surface.h"
#include "orvan/ui/ToolSet.h"
#include "orvan/view/ProductColumnTable.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace orvan {

namespace {

constexpr int kMoneyDigits = 2;
constexpr std::int32_t kWidthStep = 300; // twips

/// The row of a field that can be chosen; null for a value outside the enumeration.
const ColumnRow* rowOf(ViewFieldEnum field)
{
    const auto value = static_cast<std::size_t>(field);
    return value < kFieldColumns.size() ? &kFieldColumns[value] : nullptr;
}

} // namespace

ProductColumns::ProductColumns(ui::Platform& platform, const ui::Surface& surface)
    : platform_(platform),
      flexGrid_(surface.control<ui::Grid>("flexGrid")), chosen_{{{surface.control<ui::PopupMenu>("mnuViewCboOne")},
                                                                 {surface.control<ui::PopupMenu>("mnuViewCboTwo")}}}
{
}

void ProductColumns::setUp()
{
    PrvInitColumnIndices();
    PrvSetDefaultProps();
    PrvInitGrid();
    PrvApplyColumnLayout();
}

void ProductColumns::takeEvents(ScopedHandlers& handlers)
{
    handlers.set(flexGrid_.onAfterUserResize, [this] { PrvSaveViewPrefs(); });
    for (const ChosenColumn& chosen : chosen_) {
        handlers.set(chosen.menu.onToolClick, [this](std::string_view item) { mnuViewCbo_Click(item); });
    }
}

std::string_view ProductColumns::PrvGetColKeyByEnum(ViewFieldEnum field)
{
    constexpr std::string_view kLabel = "KTVOrvanProduct.ProductView::PrvGetColKeyByEnum";
    return tracePropagate(kLabel, [&] {
        const ColumnRow* column = rowOf(field);
        if (!column) {
            raiseApplicationError(kLabel, "Invalid field enum");
        }
        return column->key;
    });
}

std::int32_t ProductColumns::PrvGetColIndexByEnum(ViewFieldEnum field) const
{
    return flexGrid_.columnIndex(PrvGetColKeyByEnum(field));
}

void ProductColumns::PrvInitColumnIndices()
{
    std::iota(columnIndices_.begin(), columnIndices_.end(), 0);
    PrvSetColumnKeys();
}

void ProductColumns::PrvSetColumnKeys()
{
    for (std::size_t i = 0; i < kColumnCount; ++i) {
        flexGrid_.setColumnKey(columnIndices_[i], kColumns[i].key);
    }
}

void ProductColumns::PrvInitGrid()
{
    flexGrid_.setRedraw(false);
    flexGrid_.setRowCount(1);
    flexGrid_.setColumnCount(kColumnCount);
    flexGrid_.setFixedRows(1);
    flexGrid_.setUserResizing(true);
    flexGrid_.setColumnWidth(0, kNumberColumnWidth);
    flexGrid_.setColumnTakesRest(columnIndices_[kNameColumn], true);
    showEmptyText(false);
    PrvSetColumnHeaders();
    flexGrid_.setRedraw(true);
}

void ProductColumns::showEmptyText(bool readOnly)
{
    flexGrid_.setEmptyText(readOnly ? userText("No products.")
                                    : userText("No products yet. Press Insert or the + button to add one."));
}

void ProductColumns::PrvSetColumnHeaders()
{
    for (std::size_t i = 0; i < kColumnCount; ++i) {
        flexGrid_.setValue(0, columnIndices_[i], std::string(kColumns[i].caption));
        if (kColumns[i].type != ui::GridType::none) {
            flexGrid_.setColumnType(columnIndices_[i], kColumns[i].type);
        }
    }
}

void ProductColumns::PrvSetColumnFormat(std::int32_t column, ViewFieldEnum field)
{
    if (column < 0) {
        return; // a column that lost its key: PrvRefreshColumnIndices reports it
    }
    const ColumnRow* row = rowOf(field);
    flexGrid_.setColumnType(column, row ? row->shownType : ui::GridType::none);
    ui::Grid::AmountText text;
    if (row && row->shownFormat == kMoneyFormat && differs(platform_, Deviation::gridShowsTheUsersMoney)) {
        // Captures the locale alone: the grid outlives this object. The total has no decimals where it is whole, but in
        // a column the decimals stand below each other.
        text = [&locale = platform_.locale()](Currency amount) { return locale.formatCurrency(amount, kMoneyDigits); };
    }
    flexGrid_.setColumnFormat(column, row ? row->shownFormat : "", std::move(text));
}

void ProductColumns::PrvApplyColumnLayout()
{
    flexGrid_.setRedraw(false);
    flexGrid_.setColumnHidden(columnIndices_[kNumberColumn], false);
    flexGrid_.setColumnHidden(columnIndices_[kNameColumn], false);
    PrvShowChosenColumns();
    flexGrid_.setRedraw(true);
}

void ProductColumns::PrvShowChosenColumns()
{
    const std::int32_t columnOne = chosen_[One].column;
    const std::int32_t columnTwo = chosen_[Two].column;
    for (std::int32_t i = kPositionOne; i < kColumnCount; ++i) {
        flexGrid_.setColumnHidden(i, i != columnOne && i != columnTwo);
    }
    const std::string keyTwo = flexGrid_.columnKey(columnTwo);
    flexGrid_.moveColumn(columnOne, kPositionOne);
    // Looked up again, because moving column One may have shifted column Two.
    flexGrid_.moveColumn(flexGrid_.columnIndex(keyTwo), kPositionOne + 1);
    PrvRefreshColumnIndices();
}

void ProductColumns::PrvRefreshColumnIndices()
{
    constexpr std::string_view kLabel = "KTVOrvanProduct.ProductView::PrvRefreshColumnIndices";
    tracePropagate(kLabel, [&] {
        for (std::size_t i = 0; i < kColumnCount; ++i) {
            columnIndices_[i] = flexGrid_.columnIndex(kColumns[i].key);
        }
        for (ChosenColumn& chosen : chosen_) {
            chosen.column = PrvGetColIndexByEnum(chosen.field);
            PrvSetColumnFormat(chosen.column, chosen.field);
        }
        for (std::int32_t column = 0; column < flexGrid_.columnCount(); ++column) {
            const bool chosen = column == chosen_[One].column || column == chosen_[Two].column;
            flexGrid_.setHeaderTip(column, chosen ? userText("Click to choose what this column shows") : UserText());
        }
        if (*std::min_element(std::begin(columnIndices_), std::end(columnIndices_)) < 0) {
            raiseApplicationError(kLabel, "Invalid column index");
        }
    });
}

void ProductColumns::flexGrid_RightClick()
{
    for (const Place own : {One, Two}) {
        if (flexGrid_.mouseColumn() == chosen_[own].column) {
            setViewMenu(chosen_[own].menu, own);
            chosen_[own].menu.popUp();
            return;
        }
    }
}

void ProductColumns::prepareItems(ui::PopupMenu& menu)
{
    setViewMenu(menu, One);
    setViewMenu(menu, Two);
}

/// PrvSetViewMenuOne and PrvSetViewMenuTwo. A menu marks the field that its column shows, and does not offer the field
/// that the other column shows.
void ProductColumns::setViewMenu(ui::PopupMenu& menu, Place own)
{
    const ColumnRow* const shown = rowOf(chosen_[own].field);
    const ColumnRow* const taken = rowOf(chosen_[1 - own].field);
    for (const ColumnRow& column : kFieldColumns) {
        menu.setToolEnabled(column.menuItems[own], &column != taken);
        menu.setToolChecked(column.menuItems[own], &column == shown);
    }
}

/// The items of mnuViewCboOne and of mnuViewCboTwo.
void ProductColumns::mnuViewCbo_Click(std::string_view item)
{
    for (const Place own : {One, Two}) {
        for (const ColumnRow& column : kFieldColumns) {
            if (column.menuItems[own] == item) {
                chooseColumn(own, flexGrid_.columnIndex(column.key), *column.field);
                return;
            }
        }
    }
}

void ProductColumns::mnuRowColumns_Click(std::string_view item)
{
    const std::array<std::int32_t, 3> columns = {columnIndices_[kNameColumn], chosen_[One].column, chosen_[Two].column};
    for (const WidthItem& row : kWidthItems) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (row.items[i] == item) {
                changeWidth(columns[i], row.change);
                return;
            }
        }
    }
    if (item == kResetColumnsItem) {
        resetColumns();
    }
}

void ProductColumns::changeWidth(std::int32_t column, WidthChange change)
{
    // Stored widths may be anything.
    constexpr std::int32_t kWidest = std::numeric_limits<std::int32_t>::max() - kWidthStep;
    const std::int32_t shown = std::clamp(flexGrid_.shownWidth(column), 0, kWidest);
    switch (change) {
    case WidthChange::wider: flexGrid_.dragToWidth(column, shown + kWidthStep); break;
    case WidthChange::narrower: flexGrid_.dragToWidth(column, std::max(shown - kWidthStep, kWidthStep)); break;
    case WidthChange::fit: flexGrid_.dragToWidth(column, flexGrid_.fittingWidth(column)); break;
    }
}

/// PrvChooseColumnOne and PrvChooseColumnTwo.
void ProductColumns::chooseColumn(Place own, std::int32_t column, ViewFieldEnum field)
{
    ChosenColumn& chosen = chosen_[own];
    const std::int32_t width = flexGrid_.columnWidth(chosen.column);
    chosen.field = field;
    chosen.column = column;
    // Redrawing stays as it is: after a refresh that failed it is off, and half a list is not to be shown.
    flexGrid_.setColumnWidth(chosen.column, width); // the place keeps its width, whatever is shown there
    PrvSetColumnFormat(chosen.column, chosen.field);
    PrvShowChosenColumns();
    PrvSaveViewPrefs();
}

std::int32_t ProductColumns::indexInRow(std::int32_t row) const
{
    return textToInteger32(flexGrid_.displayText(row, columnIndices_[kNumberColumn]));
}

} // namespace orvan
