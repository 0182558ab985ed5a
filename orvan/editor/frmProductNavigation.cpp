// Moving through the list, adding and deleting: the six record buttons and the tool bar.

#include "orvan/core/Deviations.h"
#include "orvan/editor/frmProduct.h"
#include "orvan/ui/Button.h"
#include "orvan/ui/Form.h"
#include "orvan/ui/Frame.h"
#include "orvan/ui/TextEntry.h"
#include "orvan/ui/ToolSet.h"

#include <utility>

namespace orvan {

void frmProduct::PrvSeekProduct(std::int32_t lOffset)
{
    tracePropagate("KTVOrvanProduct.frmProduct::PrvSeekProduct", [&] {
        const ScopedFlag reloading(initializing); // showing another product must not mark the session dirty
        bool bOk = false;
        PrvSaveCurrentProduct(bOk);
        if (!bOk) {
            return;
        }
        std::int32_t probe = currentIndex_;
        bool found = false;
        productMgr()->SeekIndex(probe, lOffset, found);
        if (found) {
            goOnToProduct([&] {
                currentIndex_ = probe;
                heldProduct.reset();
                heldProduct = productAt(currentIndex_);
                PrvLoadProductInfo();
            });
            PrvSetFormCaption();
        }
        showNavigationState();
    });
}

void frmProduct::goOnToProduct(const std::function<void()>& load)
{
    halfShown = true;
    try {
        load();
    } catch (...) {
        if (differs(platform_, Deviation::halfShownProductIsNotSaved)) {
            setProductShown(false); // the form may stay open, and what is typed now would not be saved
        }
        throw;
    }
    halfShown = false;
}

void frmProduct::showNavigationState()
{
    const auto enable = [&](ui::Button& button, std::string_view toolId, bool enabled) {
        button.setEnabled(enabled);
        atbMain_.setToolEnabled(toolId, button.enabled());
    };
    const auto neighbour = [&](std::int32_t lOffset) {
        std::int32_t probe = currentIndex_; // a copy, because SeekIndex changes its argument
        bool found = false;
        productMgr()->SeekIndex(probe, lOffset, found);
        return found;
    };
    enable(cmdGotoFirst_, "ID_GotoFirst", currentIndex_ > 1);
    enable(cmdGotoLast_, "ID_GotoLast", currentIndex_ < productMgr()->GetProductCount());
    enable(cmdPrevious_, "ID_GotoPrevious", neighbour(-1));
    enable(cmdNext_, "ID_GotoNext", neighbour(+1));
}

void frmProduct::PrvSeekProductIndex(std::int32_t lIndex)
{
    // The label is PrvSeekProduct's, on purpose: every move looks the same in the trace.
    tracePropagate("KTVOrvanProduct.frmProduct::PrvSeekProduct", [&] {
        bool bOk = false;
        PrvSaveCurrentProduct(bOk);
        if (bOk) {
            currentIndex_ = lIndex;
            PrvSeekProduct(0);
        }
    });
}

void frmProduct::PrvAddNewProduct()
{
    tracePropagate("KTVOrvanProduct.frmProduct::PrvAddNewProduct", [&] {
        bool bOk = false;
        PrvSaveCurrentProduct(bOk);
        if (!bOk) {
            return;
        }
        listTouched_ = true;
        dirty_ = true; // PrvSetDirty would do nothing while initializing, but a new product always counts as a change
        goOnToProduct([&] { beginNewProduct(); });
        PrvSetFormCaption();
    });
}

void frmProduct::beginNewProduct()
{
    heldProduct.reset();
    heldProduct = productMgr()->AddNewProduct();
    productAdded_ = heldProduct != nullptr;
    currentProduct()->SetKey("");
    currentProduct()->SetQty(Currency::fromInteger(1));
    currentProduct()->SetDiscPrcnt(Currency());
    currentIndex_ = productMgr()->GetProductCount();
    PrvLoadProductInfo();
}

void frmProduct::PrvDeleteProduct()
{
    tracePropagate("KTVOrvanProduct.frmProduct::PrvDeleteProduct", [&] { askAndDelete(); });
}

void frmProduct::askAndDelete()
{
    if (!leaveBoxFor(*cmdDelete_)) { // the focus moves to the button even when the command came from the menu
        return;
    }
    const auto answer = show({.text = userText("Are you sure you want to delete the current product?"),
                              .buttons = ui::MessageButtons::yesNoCancel,
                              .icon = ui::MessageIcon::question});
    if (answer != ui::MessageResult::yes || !form_->loaded()) { // the form may be closed while the question is shown
        return;
    }
    PrvDeleteCurrentProduct();
    if (objProductMgr && productMgr()->GetProductCount() > 0) {
        PrvSeekProduct(0);
    }
}

void frmProduct::PrvDeleteCurrentProduct()
{
    tracePropagate("KTVOrvanProduct.frmProduct::PrvDeleteCurrentProduct", [&] {
        heldProduct.reset();
        listTouched_ = true;
        productMgr()->DeleteProduct(currentIndex_);
        if (differs(platform_, Deviation::deletingMarksDirty)) {
            dirty_ = true; // before the form is unloaded, so that closing asks
        }
        const std::int32_t count = productMgr()->GetProductCount();
        if (count != 0) {
            bool found = false;
            productMgr()->SeekIndex(currentIndex_, 0, found); // the manager may move the index to a product
            if (!found) {
                currentIndex_ = count;
            }
            PrvLoadProductInfo();
            PrvSetFormCaption();
        } else {
            currentIndex_ = 0;
            form_->unload();
            setProductShown(false); // if the user cancels the unload, the form stays open without a product
        }
    });
}

void frmProduct::setProductShown(bool shown)
{
    fraWizProducts_.setEnabled(shown);
    if (!readOnly) {
        cmdDelete_->setEnabled(shown);
        atbMain_.setToolEnabled("ID_DeleteProduct", shown);
        atbMain_.setToolEnabled("ID_DuplicateProduct", shown);
    }
    if (!shown) {
        form_->setCaption(" (0/0)");
    }
}

void frmProduct::atbMain_ToolClick(std::string_view toolId)
{
    if (toolId == "ID_SaveClose") {
        cmdSaveClose_Click(); // the button's own procedure, under the button's own label
        return;
    }
    handleEvent("KTVOrvanProduct.frmProduct::atbMain_ToolClick", [&] {
        if (toolId == "ID_NewProduct") {
            PrvAddNewProduct();
            PrvSeekProduct(0);
        } else if (toolId == "ID_DuplicateProduct") {
            PrvDuplicateProduct();
        } else if (toolId == "ID_DeleteProduct") {
            PrvDeleteProduct();
        } else if (toolId == "ID_GotoFirst") {
            PrvSeekProductIndex(1);
        } else if (toolId == "ID_GotoLast") {
            PrvSeekProductIndex(productMgr()->GetProductCount());
        } else if (toolId == "ID_GotoNext") {
            PrvSeekProduct(1);
        } else if (toolId == "ID_GotoPrevious") {
            PrvSeekProduct(-1);
        } // nothing to do for "ID_Product" and "ID_Goto", which only open menus
    });
}

void frmProduct::cmdNew_Click()
{
    handleClick("KTVOrvanProduct.frmProduct::cmdNew_Click", *cmdNew_, [&] {
        PrvAddNewProduct();
        PrvSeekProduct(0);
        cboProductName_.setFocus();
    });
}

void frmProduct::cmdDelete_Click()
{
    handleEvent("KTVOrvanProduct.frmProduct::cmdDelete_Click", [&] { askAndDelete(); });
}

void frmProduct::cmdGotoFirst_Click()
{
    handleClick("KTVOrvanProduct.frmProduct::cmdGotoFirst_Click", cmdGotoFirst_, [&] { PrvSeekProductIndex(1); });
}

void frmProduct::cmdGotoLast_Click()
{
    handleClick("KTVOrvanProduct.frmProduct::cmdGotoLast_Click", cmdGotoLast_,
                [&] { PrvSeekProductIndex(productMgr()->GetProductCount()); });
}

void frmProduct::cmdNext_Click()
{
    handleClick("KTVOrvanProduct.frmProduct::cmdNext_Click", cmdNext_, [&] { PrvSeekProduct(1); });
}

void frmProduct::cmdPrevious_Click()
{
    // The label is cmdNext_Click's, on purpose: traces have always shown it so.
    handleClick("KTVOrvanProduct.frmProduct::cmdNext_Click", cmdPrevious_, [&] { PrvSeekProduct(-1); });
}

} // namespace orvan
