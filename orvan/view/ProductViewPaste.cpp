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
UserText question(const std::vector<ProductValues>& products)
{
    std::string text = "\n";
    for (std::size_t i = 0; i < products.size() && i < kMostNamed; ++i) {
        const std::string& name = products[i].name.empty() ? products[i].partNum : products[i].name;
        text.append("\n").append(products[i].qty.toText()).append(" × ").append(firstCharacters(name, kMostCharacters));
    }
    text.append(products.size() > kMostNamed ? "\n…" : "");
    return countedText(static_cast<std::int64_t>(products.size()), "Add this product to the list?",
                       "Add these %n products to the list?") +
           std::move(text);
}

/// Raises 321 for an amount that a product of this list cannot have; `record` is one of the list's manager.
void requireValid(const ProductRecord& record, const std::vector<ProductValues>& products)
{
    for (std::size_t i = 0; i < products.size(); ++i) {
        const ProductValues& values = products[i];
        const UserText wrong =
            !record.IsValidQty(values.qty) ? userText("Product %1: this quantity is not possible", i + 1)
            : !record.IsValidUnitPrice(values.unitPrice)
                ? userText("Product %1: this unit price is not possible", i + 1)
            : !record.IsValidDiscPrcnt(values.discPrcnt) ? userText("Product %1: this discount is not possible", i + 1)
                                                         : UserText();
        if (!wrong.empty()) {
            throw RuntimeError(ErrorNumber::invalidFileFormat, {}, wrong);
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
    UserText problem;
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
        problem = error.userText();
    }
    if (!list.stillShown()) {
        return;
    }
    if (!problem.empty() || products.empty()) {
        platform_.messageBox().show({.text = problem.empty() ? userText("There are no products to paste.")
                                                             : userText("Nothing was pasted.") + "\n\n" + problem,
                                     .icon = ui::MessageIcon::exclamation,
                                     .ownerWindow = messageOwner()});
        return;
    }
    const auto answer = platform_.messageBox().show({.text = question(products),
                                                     .buttons = ui::MessageButtons::yesNo,
                                                     .icon = ui::MessageIcon::question,
                                                     .ownerWindow = messageOwner()});
    if (answer == ui::MessageResult::yes && list.stillEditable()) {
        const std::vector<std::int32_t> rows = rowsToActOn();
        addBelow(list, rows.empty() ? flexGrid_.rowCount() - 1 : rows.back(), products);
    }
}

} // namespace orvan
