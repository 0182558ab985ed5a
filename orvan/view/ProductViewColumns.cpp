// The grid's columns, the menus that choose the optional two, and filling the grid from the product manager.
//
// Columns are found by key, because showing the chosen two moves them: an index is good only until
// the next move.

#include "orvan/base/RuntimeError.h"
#include "orvan/base/Text.h"
#include "orvan/core/modConversion.h"
#include "orvan/core/modInit.h"
#include "orvan/ui/Grid.h"
#include "orvan/ui/Platform.h"
#include "orvan/ui/PopupMenu.h"
#include "orvan/ui/TextBox.h"
#include "orvan/view/ProductView.h"

#include <iterator>
#include <optional>

namespace orvan {

namespace {

using ui::GridType;

struct ColumnRow {
    std::string_view key;
    std::string_view header;
    std::optional<GridType> type;
};

/// In initial order. Disc% is left with the grid's own default until it is shown.
constexpr ColumnRow kColumns[] = {
    {"Number", "#", GridType::int32},
    {"Name", "Product", GridType::string},
    {"Key", "Key", GridType::string},
    {"PartNum", "Part#", GridType::string},
    {"ExtPrice", "Ext Price", GridType::currency},
    {"DiscPrcnt", "Disc%", std::nullopt},
    {"UnitPrice", "Unit Price", GridType::currency},
    {"Qty", "Qty", GridType::decimal},
    {"Note", "Note", GridType::string},
};

struct FieldRow {
    std::string_view key;
    GridType type;
    std::string_view format;
};

/// By ViewFieldEnum value.
constexpr FieldRow kFields[] = {
    {"PartNum", GridType::string, ""},    {"ExtPrice", GridType::currency, "$###,##0.00"},
    {"DiscPrcnt", GridType::float64, ""}, {"UnitPrice", GridType::currency, "$###,##0.00"},
    {"Qty", GridType::float64, ""},       {"Note", GridType::string, ""},
};

/// Null for a value outside the enumeration.
const FieldRow* fieldRow(ViewFieldEnum eField)
{
    const auto value = static_cast<std::int32_t>(eField);
    return value < 0 || value >= std::ssize(kFields) ? nullptr : &kFields[value];
}

/// The menu's item that chooses the field.
std::string itemId(const ui::PopupMenu& menu, const FieldRow& field)
{
    return std::string(menu.name()).append(field.key);
}

/// Characters of a text that a cell shows.
constexpr std::size_t kMostCellCharacters = 255;

std::string cellText(std::string text)
{
    text.resize(firstCharacters(text, kMostCellCharacters).size());
    return text;
}

constexpr std::int32_t kFirstOptionalPosition = 2;
constexpr std::int32_t kNumberColumnWidth = 250; // twips

} // namespace

std::string_view ProductView::PrvGetColKeyByEnum(ViewFieldEnum eField)
{
    constexpr std::string_view kLabel = "KTVOrvanProduct.ProductView::PrvGetColKeyByEnum";
    return tracePropagate(kLabel, [&] {
        const FieldRow* field = fieldRow(eField);
        if (!field) {
            raiseApplicationError(kLabel, "Invalid field enum");
        }
        return field->key;
    });
}

std::int32_t ProductView::PrvGetColIndexByEnum(ViewFieldEnum eField) const
{
    return flexGrid_.columnIndex(PrvGetColKeyByEnum(eField));
}

void ProductView::PrvInitColumnIndices()
{
    for (std::int32_t i = 0; i < columnKeyCount; ++i) {
        columnIndices_[static_cast<std::size_t>(i)] = i;
    }
    lastColumn_ = columnKeyCount - 1;
    PrvSetColumnKeys();
}

void ProductView::PrvSetColumnKeys()
{
    for (std::size_t i = 0; i < columnKeyCount; ++i) {
        flexGrid_.setColumnKey(columnIndices_[i], kColumns[i].key);
    }
}

void ProductView::PrvInitGrid()
{
    flexGrid_.setRedraw(false);
    flexGrid_.setRowCount(1);
    flexGrid_.setColumnCount(columnKeyCount);
    flexGrid_.setFixedRows(1);
    flexGrid_.setUserResizing(true); // each resize is saved
    flexGrid_.setColumnWidth(0, kNumberColumnWidth);
    PrvSetColumnHeaders();
    flexGrid_.setRedraw(true);
}

void ProductView::PrvSetColumnHeaders()
{
    for (std::size_t i = 0; i < columnKeyCount; ++i) {
        flexGrid_.setValue(0, columnIndices_[i], std::string(kColumns[i].header));
        if (kColumns[i].type) {
            flexGrid_.setColumnType(columnIndices_[i], *kColumns[i].type);
        }
    }
}

void ProductView::PrvSetColumnFormat(std::int32_t lCol, ViewFieldEnum eField)
{
    if (lCol < 0) {
        return; // a lost column has no format; who looks for its index reports it
    }
    const FieldRow* field = fieldRow(eField);
    flexGrid_.setColumnType(lCol, field ? field->type : GridType::none);
    flexGrid_.setColumnFormat(lCol, field ? field->format : "");
}

void ProductView::PrvRefreshColumnIndices()
{
    constexpr std::string_view kLabel = "KTVOrvanProduct.ProductView::PrvRefreshColumnIndices";
    tracePropagate(kLabel, [&] {
        for (std::size_t i = 0; i < columnKeyCount; ++i) {
            columnIndices_[i] = flexGrid_.columnIndex(kColumns[i].key);
        }
        columnOne_ = PrvGetColIndexByEnum(fieldOne_);
        PrvSetColumnFormat(columnOne_, fieldOne_);
        columnTwo_ = PrvGetColIndexByEnum(fieldTwo_);
        PrvSetColumnFormat(columnTwo_, fieldTwo_);
        for (const std::int32_t index : columnIndices_) {
            if (index < 0) {
                raiseApplicationError(kLabel, "Invalid column index");
            }
        }
    });
}

void ProductView::PrvShowChosenColumns(std::int32_t lColOne, std::int32_t lColTwo)
{
    for (std::int32_t i = kFirstOptionalPosition; i <= lastColumn_; ++i) {
        flexGrid_.setColumnHidden(i, i != lColOne && i != lColTwo);
    }
    const std::string sKeyTwo = flexGrid_.columnKey(lColTwo);
    flexGrid_.moveColumn(lColOne, kFirstOptionalPosition);
    // By its key again: moving the first may have shifted the second.
    flexGrid_.moveColumn(flexGrid_.columnIndex(sKeyTwo), kFirstOptionalPosition + 1);
    PrvRefreshColumnIndices();
}

void ProductView::PrvApplyColumnLayout()
{
    flexGrid_.setRedraw(false);
    flexGrid_.setColumnHidden(columnIndices_[Number], false);
    flexGrid_.setColumnHidden(columnIndices_[Name], false);
    PrvShowChosenColumns(columnOne_, columnTwo_);
    flexGrid_.setRedraw(true);
}

std::array<ProductView::OptionalColumn, 2> ProductView::optionalColumns()
{
    return {{{mnuViewCboOne_, fieldOne_, columnOne_, fieldTwo_}, {mnuViewCboTwo_, fieldTwo_, columnTwo_, fieldOne_}}};
}

void ProductView::flexGrid_RightClick()
{
    if (flexGrid_.mouseRow() != 0) {
        return;
    }
    for (const OptionalColumn& own : optionalColumns()) {
        if (flexGrid_.mouseColumn() == own.column) {
            PrvSetViewMenu(own, own.otherField);
            own.menu.popUp();
            return;
        }
    }
}

void ProductView::PrvSetViewMenu(const OptionalColumn& own, ViewFieldEnum eField)
{
    for (const FieldRow& field : kFields) {
        own.menu.setToolEnabled(itemId(own.menu, field), true);
    }
    if (const FieldRow* field = fieldRow(eField)) {
        own.menu.setToolEnabled(itemId(own.menu, *field), false);
    }
}

void ProductView::mnuViewCbo_Click(const OptionalColumn& own, std::string_view sItem)
{
    for (const FieldRow& field : kFields) {
        if (itemId(own.menu, field) == sItem) {
            const auto value = static_cast<std::int32_t>(&field - kFields);
            PrvChooseColumn(own, flexGrid_.columnIndex(field.key), ViewFieldEnum{value});
            return;
        }
    }
}

void ProductView::PrvChooseColumn(const OptionalColumn& own, std::int32_t lCol, ViewFieldEnum eField)
{
    const std::int32_t lWidth = flexGrid_.columnWidth(own.column);
    own.field = eField;
    own.column = lCol;
    flexGrid_.setRedraw(false);
    flexGrid_.setColumnWidth(own.column, lWidth); // the place keeps its width, whatever is shown there
    PrvSetColumnFormat(own.column, own.field);
    PrvShowChosenColumns(columnOne_, columnTwo_);
    flexGrid_.setRedraw(true);
    PrvSaveViewPrefs(hostTypeName_);
}

void ProductView::PrvRefreshView(bool bUpdateTotal)
{
    tracePropagate("KTVOrvanProduct.ProductView::PrvRefreshView", [&] {
        // An error on the way leaves redrawing off: half a list is not shown before the next refresh.
        flexGrid_.setRedraw(false);
        const std::int32_t lCount = productMgr().GetProductCount();
        flexGrid_.setRowCount(lCount + 1);
        // The row is counted apart from the index, which the manager may move.
        std::int32_t lRow = 1;
        for (std::int32_t i = 1; i <= lCount; ++i, ++lRow) {
            bool bFound = false;
            productMgr().SeekIndex(i, 0, bFound);
            // Fetched before bFound is looked at, so that a manager's error is seen as an error.
            const auto record = productMgr().GetProduct(i);
            if (!bFound) {
                break;
            }
            fillRow(lRow, i, *record);
        }
        if (bUpdateTotal) {
            txtTotal_.setText(
                FormatCurrencyValue(platform_.locale(), productMgr().GetTotalValue(), 2, locale_.currencySymbol, true));
        }
        flexGrid_.setRedraw(true);
    });
}

void ProductView::fillRow(std::int32_t lRow, std::int32_t lIndex, const ProductRecord& record)
{
    flexGrid_.setValue(lRow, columnIndices_[Number], lIndex);
    flexGrid_.setValue(lRow, columnIndices_[Name], cellText(record.Name()));
    flexGrid_.setValue(lRow, columnIndices_[Key], cellText(record.Key()));
    flexGrid_.setValue(lRow, columnIndices_[PartNum], cellText(record.PartNum()));
    flexGrid_.setValue(lRow, columnIndices_[ExtPrice], record.ExtPrice());
    flexGrid_.setValue(lRow, columnIndices_[DiscPrcnt], record.DiscPrcnt());
    flexGrid_.setValue(lRow, columnIndices_[UnitPrice], record.UnitPrice());
    flexGrid_.setValue(lRow, columnIndices_[Qty], record.Qty());
    flexGrid_.setValue(lRow, columnIndices_[Note], cellText(record.Note()));
}

} // namespace orvan
