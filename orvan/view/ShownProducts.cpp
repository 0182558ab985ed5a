// This runs for each product of the list at each refresh, and is compiled for speed (cmake/OrvanSizes.cmake).

#include "orvan/view/ShownProducts.h"

#include "orvan/base/Text.h"
#include "orvan/ui/Grid.h"
#include "orvan/view/ProductColumnTable.h"

#include <utility>

namespace orvan {

namespace {

using Product = ShownProducts::Product;

constexpr std::size_t kMostCellCharacters = 255;

ui::GridValueView shownValue(const ColumnRow& column, const Product& product)
{
    if (column.text) {
        return firstCharacters(product.fields.*column.text, kMostCellCharacters);
    }
    return column.amount ? ui::GridValueView(product.fields.*column.amount) : ui::GridValueView(product.index);
}

void readInPlace(Product& product)
{
    if (product.inPlace) {
        product.fields = product.inPlace->fields();
    }
}

} // namespace

void ShownProducts::Product::read()
{
    const ProductRecord& read = *record;
    // The records of a list are mostly of one class. Asking each one anew whether it can be read in place took a fifth
    // of a refresh.
    if (const std::type_info& type = typeid(read); &type != lastClass) {
        lastClass = &type;
        lastInPlace = dynamic_cast<const InPlaceRecord*>(&read) != nullptr;
    }
    inPlace = lastInPlace ? static_cast<const InPlaceRecord*>(&read) : nullptr;
    if (inPlace) {
        return;
    }
    auto text = texts.begin();
    const auto keep = [&text](std::string value) -> std::string_view {
        *text = std::move(value);
        return *text++;
    };
    // In the order of the columns, because hosts know that order.
    fields.name = keep(read.Name());
    fields.key = keep(read.Key());
    fields.partNum = keep(read.PartNum());
    fields.extPrice = read.ExtPrice();
    fields.discPrcnt = read.DiscPrcnt();
    fields.unitPrice = read.UnitPrice();
    fields.qty = read.Qty();
    fields.note = keep(read.Note());
}

std::uint64_t ShownProducts::stampOf(std::int32_t row) const noexcept
{
    return static_cast<std::size_t>(row) < stamps_.size() ? stamps_[static_cast<std::size_t>(row)] : 0;
}

void ShownProducts::setStamp(std::int32_t row, std::uint64_t stamp) noexcept
{
    if (static_cast<std::size_t>(row) < stamps_.size()) {
        stamps_[static_cast<std::size_t>(row)] = stamp;
    }
}

bool ShownProducts::shows(std::int32_t row, const Product& product) const noexcept
{
    return product.inPlace && product.inPlace->stamp() == stampOf(row);
}

void ShownProducts::setRowCount(std::int32_t count, std::int32_t deletedRow)
{
    if (deletedRow > 0) {
        flexGrid_.removeRow(deletedRow);
        if (static_cast<std::size_t>(deletedRow) < stamps_.size()) {
            stamps_.erase(stamps_.begin() + deletedRow);
        }
    }
    flexGrid_.setRowCount(count);
    stamps_.resize(static_cast<std::size_t>(count));
}

void ShownProducts::show(std::int32_t row, Product& product)
{
    if (shows(row, product)) {
        flexGrid_.setValue(row, columns_.indices()[kNumberColumn], product.index);
        return;
    }
    readInPlace(product);
    setStamp(row, 0); // until the whole row is set
    for (std::size_t i = 0; i < ProductColumns::kColumnCount; ++i) {
        flexGrid_.setValue(row, columns_.indices()[i], shownValue(kColumns[i], product));
    }
    setStamp(row, product.stamp());
}

void ShownProducts::addRow(Changes& changes, std::int32_t shownRow, Product& product) const
{
    const auto row = static_cast<std::int32_t>(changes.stamps.size());
    const auto add = [&](std::size_t column, const ui::GridValueView& value) {
        changes.cells.push_back({.row = row, .column = static_cast<std::int32_t>(column), .cell = {}});
        changes.cells.back().cell.set(value);
    };
    const auto isShown = [&](std::size_t column, const ui::GridValueView& value) {
        return shownRow < flexGrid_.rowCount() && flexGrid_.cell(shownRow, columns_.indices()[column]).holds(value);
    };
    changes.stamps.push_back(product.stamp());
    if (shows(shownRow, product)) {
        if (!isShown(kNumberColumn, product.index)) {
            add(kNumberColumn, product.index);
        }
        return;
    }
    readInPlace(product);
    for (std::size_t i = 0; i < ProductColumns::kColumnCount; ++i) {
        if (const ui::GridValueView value = shownValue(kColumns[i], product); !isShown(i, value)) {
            add(i, value);
        }
    }
}

void ShownProducts::show(Changes& changes)
{
    stamps_.clear(); // should this fail, all rows are set at the next refresh
    for (Changes::Cell& change : changes.cells) {
        flexGrid_.setCell(change.row, columns_.indices()[static_cast<std::size_t>(change.column)],
                          std::move(change.cell));
    }
    stamps_.swap(changes.stamps);
}

} // namespace orvan
