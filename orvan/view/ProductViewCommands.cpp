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

#include <algorithm>

namespace orvan {

std::int32_t ProductView::messageOwner() const
{
    try {
        return site_.parentWindow();
    } catch (...) {
        return 0; // a question without an owner is better than none
    }
}

void ProductView::handleEvent(std::string_view label, const std::function<void()>& body)
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

/// Its destructor tells that the editor has closed, and marks the view dirty if the session changed the list. It does
/// so also where an error ended the session: such an error takes back no edit.
struct ProductView::EditMark {
    ProductView& view;
    LifetimeWatch watch;
    const CurrentList& list;
    const ProductDlg& dialog;

    ~EditMark()
    {
        if (!watch.ended()) {
            runHandler(view.events.editorClosed);
        }
        if (dialog.Dirty() && list.stillShown()) {
            view.PrvSetDirty(true);
        }
    }
};

void ProductView::openEditor(const CurrentList& list, const EditorOpening& open)
{
    runHandler(events.editorOpened);
    {
        ProductDlg dialog(platform_);
        dialog.onChange = [this, watch = lifetime_.watch()] {
            if (!watch.ended()) { // the editor goes on where the host destroys the view
                runHandler(events.changed);
            }
        };
        const EditMark mark{*this, lifetime_.watch(), list, dialog};
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
    editRow(flexGrid_.mouseRow());
}

void ProductView::editRow(std::int32_t row)
{
    // The label is deliberately the add button's: both open the editor, and readers of traces look for one name.
    handleEvent("KTVOrvanProduct.ProductView::cmdNew_Click", [&] {
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
            openEditor(list, [&, toRead = readOnly_](ProductDlg& dialog, const auto& manager) {
                toRead ? dialog.showReadOnly(manager, index) : dialog.Show(manager, index);
            });
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
        // From the last to the first, so that the positions of the others stay what they are.
        std::vector<std::int32_t> rows = rowsToActOn();
        if (rows.empty()) {
            platform_.messageBox().show(
                {.text = userText("Please select a product first"), .ownerWindow = messageOwner()});
            return;
        }
        if (!userAgreesToDelete(rows.size()) || !list.stillEditable()) {
            return;
        }
        const std::uint64_t fills = fills_;
        std::reverse(rows.begin(), rows.end());
        for (const std::int32_t row : rows) {
            list->DeleteProduct(row);
            if (!list.stillShown()) {
                return;
            }
            PrvSetDirty(true); // at once: if the next one cannot be deleted, this one is still gone
        }
        PrvRefreshView(true, rows.size() == 1 && fills == fills_ ? rows.front() : 0);
        if (rows.size() > 1 && list.stillShown()) {
            flexGrid_.setCurrentRow(std::min(rows.back(), flexGrid_.rowCount() - 1)); // the first of them
        }
    });
}

std::vector<std::int32_t> ProductView::rowsToActOn() const
{
    // A user can take the current row out of the selection. If no row is selected, the current one is meant.
    std::vector<std::int32_t> rows = flexGrid_.selection().rows();
    if (rows.empty() && flexGrid_.currentRow() >= 1) {
        rows.push_back(flexGrid_.currentRow());
    }
    return rows;
}

bool ProductView::userAgreesToDelete(std::size_t count)
{
    const auto answer = platform_.messageBox().show(
        {.text = countedText(static_cast<std::int64_t>(count), "Are you sure you want to delete the selected product?",
                             "Are you sure you want to delete the %n selected products?"),
         .buttons = ui::MessageButtons::yesNo,
         .icon = ui::MessageIcon::question,
         .ownerWindow = messageOwner()});
    return answer == ui::MessageResult::yes;
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
    if (flexGrid_.selection().count() > 1) {
        moveSelectedRows(offset);
        return;
    }
    const CurrentList list(*this);
    const std::int32_t moved = PrvMoveProduct(list, row, offset);
    if (moved > 0 && list.stillShown()) {
        flexGrid_.setCurrentRow(moved); // stays with the product and is scrolled into view
        tellRowChosen();
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
