// Copy and paste of rows, as text (orvan/view/RowExchange.h).

#include "orvan/base/Text.h"
#include "orvan/core/modInit.h"
#include "orvan/ui/Grid.h"
#include "orvan/ui/Platform.h"
#include "orvan/view/ProductView.h"
#include "orvan/view/RowExchange.h"

namespace orvan {

namespace {

constexpr std::size_t kMostNamed = 5;       // products in the question
constexpr std::size_t kMostCharacters = 50; // of a name there

/// What pasting adds, for the user to agree to.
std::string question(const std::vector<ProductValues>& products)
{
    std::string text = products.size() == 1
                           ? "Add this product to the list?\n"
                           : "Add these " + std::to_string(products.size()) + " products to the list?\n";
    for (std::size_t i = 0; i < products.size() && i < kMostNamed; ++i) {
        const std::string& name = products[i].name.empty() ? products[i].partNum : products[i].name;
        text.append("\n").append(products[i].qty.toText()).append(" × ").append(firstCharacters(name, kMostCharacters));
    }
    return products.size() > kMostNamed ? text + "\n…" : text;
}

/// Raises 321 for an amount that a product of this list cannot have; `record` is one of the list's manager.
void requireValid(const ProductRecord& record, const std::vector<ProductValues>& products)
{
    for (std::size_t i = 0; i < products.size(); ++i) {
        const ProductValues& values = products[i];
        const char* const wrong = !record.IsValidQty(values.qty)               ? "quantity"
                                  : !record.IsValidUnitPrice(values.unitPrice) ? "unit price"
                                  : !record.IsValidDiscPrcnt(values.discPrcnt) ? "discount"
                                                                               : nullptr;
        if (wrong) {
            throw RuntimeError(ErrorNumber::invalidFileFormat, {},
                               "Product " + std::to_string(i + 1) + ": this " + wrong + " is not possible");
        }
    }
}

} // namespace

void ProductView::copyProducts()
{
    handleEvent("KTVOrvanProduct.ProductView::copyProducts", [&] {
        const std::vector<std::int32_t> rows = rowsToActOn();
        if (!rows.empty() && !refreshFormerRows()) {
            platform_.clipboard().setText(rowsToText(valuesInRows(rows), platform_.locale()));
        }
    });
}

void ProductView::pasteFromClipboard()
{
    handleEvent("KTVOrvanProduct.ProductView::pasteProducts", [&] {
        if (!refreshFormerRows()) {
            pasteProducts();
        }
    });
}

void ProductView::pasteProducts()
{
    const CurrentList list(*this);
    std::vector<ProductValues> products;
    std::string problem;
    try {
        products = textToRows(platform_.clipboard().text(), platform_.locale());
        const auto scratch = ui::createComponent<ProductMgr>(platform_.components(), kProductMgrClassName);
        if (const auto record = scratch->AddNewProduct()) {
            requireValid(*record, products);
        }
    } catch (const RuntimeError& error) {
        if (error.number() != ErrorNumber::invalidFileFormat) {
            throw;
        }
        problem = error.text();
    }
    if (!list.stillShown()) {
        return;
    }
    if (!problem.empty() || products.empty()) {
        platform_.messageBox().show(
            {.text = problem.empty() ? "There are no products to paste." : "Nothing was pasted.\n\n" + problem,
             .icon = ui::MessageIcon::exclamation,
             .ownerWindow = messageOwner()});
        return;
    }
    const auto answer = platform_.messageBox().show({.text = question(products),
                                                     .buttons = ui::MessageButtons::yesNo,
                                                     .icon = ui::MessageIcon::question,
                                                     .ownerWindow = messageOwner()});
    if (answer == ui::MessageResult::yes && list.stillShown()) {
        const std::vector<std::int32_t> rows = rowsToActOn();
        addBelow(list, rows.empty() ? flexGrid_.rowCount() - 1 : rows.back(), products);
    }
}

} // namespace orvan
