// What the user does to the list: add, edit, delete and move.
//
// Grid rows and product positions coincide: row r shows the product at position r.

#include "orvan/base/Integer.h"
#include "orvan/core/modInit.h"
#include "orvan/editor/ProductDlg.h"
#include "orvan/ui/Button.h"
#include "orvan/ui/ContainerSite.h"
#include "orvan/ui/Grid.h"
#include "orvan/ui/Platform.h"
#include "orvan/view/ProductView.h"

namespace orvan {

std::int32_t ProductView::messageOwner() const
{
    try {
        return site_.parentWindow();
    } catch (...) {
        return 0; // a question without an owner is better than none
    }
}

std::function<std::int32_t()> ProductView::hostWindow() const
{
    return [alive = std::weak_ptr(alive_), &site = site_] { return alive.expired() ? 0 : site.parentWindow(); };
}

void ProductView::openEditor(const EditorOpening& open)
{
    const std::weak_ptr<const bool> alive = alive_;
    bool bChanged = false;
    {
        ProductDlg dialog(platform_);
        open(dialog, std::shared_ptr(productMgr_)); // a share of the dialog's own, which may outlive the view's
        bChanged = dialog.Dirty();
    }
    if (alive.expired()) {
        return; // the host has destroyed the view while the user was in the dialog
    }
    if (bChanged) {
        PrvSetDirty(true);
    }
    PrvRefreshView(true); // also after a cancelled dialog
}

void ProductView::cmdNew_Click()
{
    traceShowToUser(
        "KTVOrvanProduct.ProductView::cmdNew_Click",
        [&] { openEditor([](ProductDlg& dialog, const auto& manager) { dialog.ShowAddNew(manager); }); }, hostWindow());
}

void ProductView::flexGrid_DblClick()
{
    // Reports the add button's label: both open the editor, and readers of traces look for one name.
    traceShowToUser(
        "KTVOrvanProduct.ProductView::cmdNew_Click",
        [&] {
            const std::int32_t lRow = flexGrid_.mouseRow();
            if (lRow < 1) {
                return;
            }
            std::int32_t lIndex = textToInteger32(flexGrid_.displayText(lRow, columnIndices_[Number]));
            bool bFound = false;
            productMgr().SeekIndex(lIndex, 0, bFound);
            if (!bFound) {
                PrvRefreshView(true);
                if (productMgr().GetProductCount() < 1) {
                    return;
                }
                lIndex = 1;
            }
            openEditor([&](ProductDlg& dialog, const auto& manager) { dialog.Show(manager, lIndex); });
        },
        hostWindow());
}

void ProductView::cmdDelete_Click()
{
    traceShowToUser(
        "KTVOrvanProduct.ProductView::cmdDelete_Click", [&] { PrvDeleteProduct(); }, hostWindow());
}

void ProductView::PrvDeleteProduct()
{
    tracePropagate("KTVOrvanProduct.ProductView::PrvDeleteProduct", [&] {
        const std::int32_t lRow = flexGrid_.currentRow();
        if (lRow < 1) {
            platform_.messageBox().show({.text = "Please select a product first",
                                         .buttons = ui::MessageButtons::ok,
                                         .icon = ui::MessageIcon::information,
                                         .ownerWindow = messageOwner()});
            return;
        }
        const std::weak_ptr<const bool> alive = alive_;
        const auto answer =
            platform_.messageBox().show({.text = "Are you sure you want to delete the selected product?",
                                         .buttons = ui::MessageButtons::yesNo,
                                         .icon = ui::MessageIcon::question,
                                         .ownerWindow = messageOwner()});
        if (answer == ui::MessageResult::yes && !alive.expired()) {
            productMgr().DeleteProduct(lRow);
            PrvSetDirty(true);
            PrvRefreshView(true);
        }
    });
}

void ProductView::cmdMoveUp_Click()
{
    traceShowToUser(
        "KTVOrvanProduct.ProductView::cmdMoveUp_Click", [&] { moveCurrentRow(-1); }, hostWindow());
}

void ProductView::cmdMoveDown_Click()
{
    traceShowToUser(
        "KTVOrvanProduct.ProductView::cmdMoveDown_Click", [&] { moveCurrentRow(+1); }, hostWindow());
}

void ProductView::moveCurrentRow(std::int32_t lOffset)
{
    const std::int32_t lRow = flexGrid_.currentRow();
    if (lRow <= 0) {
        return;
    }
    const std::int32_t lNew = PrvMoveProduct(lRow, lOffset);
    if (lNew > 0) {
        PrvSetDirty(true);
        flexGrid_.setCurrentRow(lNew); // the user sees it stay with the product, scrolled into view
    }
}

std::int32_t ProductView::PrvMoveProduct(std::int32_t lIndex, std::int32_t lOffset)
{
    return tracePropagate("KTVOrvanProduct.ProductView::PrvMoveProduct", [&]() -> std::int32_t {
        std::int32_t lNew = lIndex;
        bool bFound = false;
        productMgr().SeekIndex(lNew, lOffset, bFound);
        if (!bFound) {
            return -1; // nothing moves at the ends of the list
        }
        productMgr().MoveProduct(lIndex, lNew);
        PrvRefreshView(false); // a move cannot change the total
        return lNew;
    });
}

} // namespace orvan
