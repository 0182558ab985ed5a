// What the user does to several rows of the list: duplicate, move as a block, drag to another place.
//
// A manager promises only that a product can be moved past its neighbour, so every longer way is made of such moves.

#include "orvan/core/modInit.h"
#include "orvan/ui/Grid.h"
#include "orvan/ui/Platform.h"
#include "orvan/view/ProductView.h"

#include <algorithm>
#include <numeric>

namespace orvan {

namespace {

std::shared_ptr<ProductRecord> required(std::shared_ptr<ProductRecord> record)
{
    if (!record) {
        throw RuntimeError(ErrorNumber::objectNotSet);
    }
    return record;
}

void append(ProductMgr& manager, const std::vector<ProductValues>& products)
{
    for (const ProductValues& values : products) {
        setValues(*required(manager.AddNewProduct()), values);
    }
}

/// After an error while products were added at the end of a list of `count`: takes them out again. Its own failure is
/// ignored, because the first error is the one that counts.
void takeBack(ProductMgr& manager, std::int32_t count)
{
    const ResumeNext<false> step;
    step([&] {
        for (std::int32_t last = manager.GetProductCount(); last > count; --last) {
            manager.DeleteProduct(last);
        }
    });
}

/// Puts the products from position `first` on into another order: `order` has their present positions.
void arrange(ProductMgr& manager, std::int32_t first, const std::vector<std::int32_t>& order)
{
    std::vector<std::int32_t> present(order.size());
    std::iota(present.begin(), present.end(), first);
    for (std::size_t i = 0; i < order.size(); ++i) {
        const auto place = present.begin() + static_cast<std::ptrdiff_t>(i);
        const auto found = std::find(place, present.end(), order[i]);
        for (auto at = static_cast<std::int32_t>(found - present.begin()); at > static_cast<std::int32_t>(i); --at) {
            manager.MoveProduct(first + at, first + at - 1);
        }
        std::rotate(place, found, found + 1);
    }
}

} // namespace

/// The command has no button, and so no procedure of its own beside the one that does its work.
void ProductView::duplicateRows()
{
    handleEvent("KTVOrvanProduct.ProductView::PrvDuplicateProduct", [&] { PrvDuplicateProduct(); });
}

void ProductView::PrvDuplicateProduct()
{
    const std::vector<std::int32_t> rows = rowsToActOn();
    if (rows.empty() || refreshFormerRows()) {
        return;
    }
    const CurrentList list(*this);
    const std::vector<ProductValues> products = valuesInRows(rows);
    if (list.stillShown()) {
        addBelow(list, rows.back(), products);
    }
}

std::vector<ProductValues> ProductView::valuesInRows(const std::vector<std::int32_t>& rows) const
{
    const CurrentList list(*this);
    std::vector<ProductValues> products;
    products.reserve(rows.size());
    for (const std::int32_t row : rows) {
        products.push_back(valuesOf(*required(list->GetProduct(row))));
    }
    return products;
}

void ProductView::addBelow(const CurrentList& list, std::int32_t row, const std::vector<ProductValues>& products)
{
    if (!fitsMaxDataSize(list, products) || !list.stillShown()) {
        return;
    }
    const std::int32_t count = list->GetProductCount();
    const auto added = static_cast<std::int32_t>(products.size());
    const std::int32_t first = row + 1;
    try {
        append(*list.manager(), products);
    } catch (...) {
        takeBack(*list.manager(), count);
        throw;
    }
    PrvSetDirty(true); // at once: an error while they are moved leaves them at the end of the list
    std::vector<std::int32_t> order(products.size());
    std::iota(order.begin(), order.end(), count + 1);
    for (std::int32_t position = first; position <= count; ++position) {
        order.push_back(position);
    }
    arrange(*list.manager(), first, order);
    if (list.stillShown()) {
        PrvRefreshView(true);
    }
    if (list.stillShown()) {
        ui::RowSelection selected;
        selected.replace({first, first + added - 1});
        flexGrid_.selectRows(selected, first);
        tellRowChosen();
    }
}

bool ProductView::fitsMaxDataSize(const CurrentList& list, const std::vector<ProductValues>& products)
{
    // The same manager class says how large the new products are: its string is its own.
    const auto added = ui::createComponent<ProductMgr>(platform_.components(), kProductMgrClassName);
    append(*added, products);
    const auto sizeOf = [](ProductMgr& manager) {
        return manager.GetProductsString(kRecordSeparator, kFieldSeparator).size();
    };
    const std::size_t size = sizeOf(*list.manager()) + kRecordSeparator.size() + sizeOf(*added);
    const auto most = static_cast<std::size_t>(std::max(list->GetMaxDataSize(), 0));
    if (size > most && list.stillShown()) {
        platform_.messageBox().show(
            {.text =
                 userText("Nothing was added, because the list would be too large to be saved: %1 bytes, and at most "
                          "%2 are possible.",
                          size, most),
             .icon = ui::MessageIcon::exclamation,
             .ownerWindow = messageOwner()});
    }
    return size <= most;
}

void ProductView::moveSelectedRows(std::int32_t offset)
{
    // The whole list in its new order: each selected row has changed places with the row before or after it.
    const ui::RowSelection& selection = flexGrid_.selection();
    const std::vector<std::int32_t> rows = selection.rows();
    const std::int32_t first = std::max(rows.front() - 1, 1);
    const std::int32_t last = std::min(rows.back() + 1, flexGrid_.rowCount() - 1);
    if (offset < 0 ? rows.front() == 1 : rows.back() == last) {
        return; // nothing moves at the ends of the list
    }
    std::vector<std::int32_t> order(static_cast<std::size_t>(last - first + 1));
    std::iota(order.begin(), order.end(), first);
    const auto at = [&](std::int32_t row) { return order.begin() + (row - first); };
    if (offset < 0) {
        std::for_each(rows.begin(), rows.end(), [&](auto row) { std::iter_swap(at(row), at(row - 1)); });
    } else {
        std::for_each(rows.rbegin(), rows.rend(), [&](auto row) { std::iter_swap(at(row), at(row + 1)); });
    }
    moveProducts(first, order);
}

void ProductView::flexGrid_DragRows(std::int32_t before)
{
    handleEvent("KTVOrvanProduct.ProductView::flexGrid_DragRows", [&] {
        const std::vector<std::int32_t> rows = flexGrid_.selection().rows();
        if (rows.empty() || refreshFormerRows()) {
            return;
        }
        const std::int32_t first = std::min(rows.front(), before);
        const std::int32_t last = std::max(rows.back(), before - 1);
        std::vector<std::int32_t> order;
        const auto addOthers = [&](std::int32_t from, std::int32_t end) {
            for (std::int32_t row = from; row < end; ++row) {
                if (!flexGrid_.selection().contains(row)) {
                    order.push_back(row);
                }
            }
        };
        addOthers(first, before);
        order.insert(order.end(), rows.begin(), rows.end());
        addOthers(before, last + 1);
        if (!std::is_sorted(order.begin(), order.end())) { // dropped where they are: nothing moves
            moveProducts(first, order);
        }
    });
}

void ProductView::moveProducts(std::int32_t first, const std::vector<std::int32_t>& order)
{
    const CurrentList list(*this);
    const ui::RowSelection& selection = flexGrid_.selection();
    std::vector<std::int32_t> selected;
    std::int32_t current = flexGrid_.currentRow();
    for (std::size_t i = 0; i < order.size(); ++i) {
        const std::int32_t row = first + static_cast<std::int32_t>(i);
        if (selection.contains(order[i])) {
            selected.push_back(row);
        }
        current = order[i] == flexGrid_.currentRow() ? row : current;
    }
    tracePropagate("KTVOrvanProduct.ProductView::moveProducts", [&] {
        arrange(*list.manager(), first, order);
        if (list.stillShown()) {
            PrvSetDirty(true);
            PrvRefreshView(false); // a move cannot change the total
        }
        if (list.stillShown()) {
            flexGrid_.selectRows(ui::RowSelection(selected), current);
            tellRowChosen();
        }
    });
}

} // namespace orvan
