// What the user does to the list: add, edit, delete and move.
//
// Row r of the grid shows the product at position r, so a row serves as a position.

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

template <class Body>
void ProductView::handleEvent(std::string_view label, Body&& body)
{
    // The host may destroy the view while the body waits for the user; the message then has no owner.
    const LifetimeWatch watch = lifetime_.watch();
    const auto bodyOfView = [&] {
        if (!watch.ended()) { // the trace lets the host in, too
            body();
        }
    };
    traceShowToUser(label, bodyOfView, [&watch, &site = site_] { return watch.ended() ? 0 : site.parentWindow(); });
}

/// Its destructor marks the view dirty if the session changed the list, also where an error ended the session: such an
/// error takes back no edit.
struct ProductView::EditMark {
    ProductView& view;
    const CurrentList& list;
    const ProductDlg& dialog;

    ~EditMark()
    {
        if (dialog.Dirty() && list.stillShown()) {
            view.PrvSetDirty(true);
        }
    }
};

void ProductView::openEditor(const CurrentList& list, const EditorOpening& open)
{
    {
        ProductDlg dialog(platform_);
        const EditMark mark{*this, list, dialog};
        open(dialog, list.manager());
    }
    if (list.stillShown()) {
        PrvRefreshView(true); // also after a cancelled dialog
    }
}

bool ProductView::refreshFormerRows()
{
    const bool former = showsFormerRows_;
    if (former) {
        PrvRefreshView(true);
    }
    return former;
}

void ProductView::cmdNew_Click()
{
    handleEvent("KTVOrvanProduct.ProductView::cmdNew_Click", [&] {
        const CurrentList list(*this);
        openEditor(list, [](ProductDlg& dialog, const auto& manager) { dialog.ShowAddNew(manager); });
    });
}

void ProductView::flexGrid_DblClick()
{
    // The label is deliberately the add button's: both open the editor, and readers of traces look for one name.
    handleEvent("KTVOrvanProduct.ProductView::cmdNew_Click", [&] {
        const std::int32_t row = flexGrid_.mouseRow();
        if (row < 1 || refreshFormerRows()) {
            return;
        }
        const CurrentList list(*this);
        std::int32_t index = columns_.indexInRow(row);
        bool found = false;
        list->SeekIndex(index, 0, found);
        if (!found && list.stillShown()) {
            PrvRefreshView(true);
            if (list->GetProductCount() < 1) {
                return;
            }
            index = 1;
        }
        if (list.stillShown()) {
            openEditor(list, [&](ProductDlg& dialog, const auto& manager) { dialog.Show(manager, index); });
        }
    });
}

void ProductView::cmdDelete_Click()
{
    handleEvent("KTVOrvanProduct.ProductView::cmdDelete_Click", [&] { PrvDeleteProduct(); });
}

void ProductView::PrvDeleteProduct()
{
    const CurrentList list(*this);
    tracePropagate("KTVOrvanProduct.ProductView::PrvDeleteProduct", [&] {
        if (!list.stillShown()) {
            return;
        }
        if (refreshFormerRows()) {
            return;
        }
        const std::int32_t row = flexGrid_.currentRow();
        if (row < 1) {
            platform_.messageBox().show({.text = "Please select a product first", .ownerWindow = messageOwner()});
            return;
        }
        const auto answer =
            platform_.messageBox().show({.text = "Are you sure you want to delete the selected product?",
                                         .buttons = ui::MessageButtons::yesNo,
                                         .icon = ui::MessageIcon::question,
                                         .ownerWindow = messageOwner()});
        if (answer != ui::MessageResult::yes || !list.stillShown()) {
            return;
        }
        list->DeleteProduct(row);
        if (list.stillShown()) {
            PrvSetDirty(true);
            PrvRefreshView(true);
        }
    });
}

void ProductView::cmdMoveUp_Click()
{
    handleEvent("KTVOrvanProduct.ProductView::cmdMoveUp_Click", [&] { moveCurrentRow(-1); });
}

void ProductView::cmdMoveDown_Click()
{
    handleEvent("KTVOrvanProduct.ProductView::cmdMoveDown_Click", [&] { moveCurrentRow(+1); });
}

void ProductView::moveCurrentRow(std::int32_t offset)
{
    const std::int32_t row = flexGrid_.currentRow();
    if (row <= 0 || refreshFormerRows()) {
        return;
    }
    const CurrentList list(*this);
    const std::int32_t moved = PrvMoveProduct(list, row, offset);
    if (moved > 0 && list.stillShown()) {
        flexGrid_.setCurrentRow(moved); // stays with the product and is scrolled into view
    }
}

std::int32_t ProductView::PrvMoveProduct(const CurrentList& list, std::int32_t index, std::int32_t offset)
{
    return tracePropagate("KTVOrvanProduct.ProductView::PrvMoveProduct", [&]() -> std::int32_t {
        std::int32_t moved = index;
        bool found = false;
        list->SeekIndex(moved, offset, found);
        if (!found || !list.stillShown()) {
            return -1; // nothing moves at the ends of the list
        }
        list->MoveProduct(index, moved);
        if (list.stillShown()) {
            PrvSetDirty(true);     // before the refresh, whose failure does not move the product back
            PrvRefreshView(false); // a move cannot change the total
        }
        return moved;
    });
}

} // namespace orvan
