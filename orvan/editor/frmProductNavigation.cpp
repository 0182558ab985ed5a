// Moving through the list, adding and deleting: the six record buttons and the tool bar.

#include "orvan/editor/frmProduct.h"
#include "orvan/ui/Button.h"
#include "orvan/ui/ComboBox.h"
#include "orvan/ui/Form.h"
#include "orvan/ui/Frame.h"
#include "orvan/ui/ToolBar.h"

#include <utility>

namespace orvan {

void frmProduct::PrvSeekProduct(std::int32_t lOffset)
{
    tracePropagate("KTVOrvanProduct.frmProduct::PrvSeekProduct", [&] {
        const ScopedFlag reloading(bInitializing); // showing another product changes none
        bool bOk = false;
        PrvSaveCurrentProduct(bOk);
        if (!bOk) {
            return;
        }
        std::int32_t lProbe = lCurrentIndex_;
        bool bFound = false;
        productMgr().SeekIndex(lProbe, lOffset, bFound);
        if (bFound) {
            lCurrentIndex_ = lProbe;
            objCurrentProduct.reset();
            objCurrentProduct = productMgr().GetProduct(lCurrentIndex_);
            PrvLoadProductInfo();
            PrvSetFormCaption();
        }
        showNavigationState();
    });
}

void frmProduct::showNavigationState()
{
    const auto enable = [&](ui::Button& button, std::string_view sToolId, bool bEnabled) {
        button.setEnabled(bEnabled);
        atbMain_.setToolEnabled(sToolId, button.enabled());
    };
    const auto neighbour = [&](std::int32_t lOffset) {
        std::int32_t lProbe = lCurrentIndex_; // the manager may move it
        bool bFound = false;
        productMgr().SeekIndex(lProbe, lOffset, bFound);
        return bFound;
    };
    enable(cmdGotoFirst_, "ID_GotoFirst", lCurrentIndex_ > 1);
    enable(cmdGotoLast_, "ID_GotoLast", lCurrentIndex_ < productMgr().GetProductCount());
    enable(cmdPrevious_, "ID_GotoPrevious", neighbour(-1));
    enable(cmdNext_, "ID_GotoNext", neighbour(+1));
}

void frmProduct::PrvSeekProductIndex(std::int32_t lIndex)
{
    // The label is the relative seek's: a move reads as a move in the trace, whichever way it was asked for.
    tracePropagate("KTVOrvanProduct.frmProduct::PrvSeekProduct", [&] {
        bool bOk = false;
        PrvSaveCurrentProduct(bOk);
        if (bOk) {
            lCurrentIndex_ = lIndex;
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
        bDirty_ = true; // a new product is a change, also while initializing
        objCurrentProduct.reset();
        objCurrentProduct = productMgr().AddNewProduct();
        currentProduct().SetKey("");
        currentProduct().SetQty(Currency::fromInteger(1));
        currentProduct().SetDiscPrcnt(Currency());
        lCurrentIndex_ = productMgr().GetProductCount();
        PrvLoadProductInfo();
        PrvSetFormCaption();
    });
}

void frmProduct::PrvDeleteProduct()
{
    tracePropagate("KTVOrvanProduct.frmProduct::PrvDeleteProduct", [&] { askAndDelete(); });
}

void frmProduct::askAndDelete()
{
    if (!leaveBoxFor(cmdDelete_)) { // also when the command came from the menu
        return;
    }
    const auto answer = show({.text = "Are you sure you want to delete the current product?",
                              .buttons = ui::MessageButtons::yesNoCancel,
                              .icon = ui::MessageIcon::question});
    if (answer != ui::MessageResult::yes || !form_->loaded()) { // closed while the question waited
        return;
    }
    PrvDeleteCurrentProduct();
    if (objProductMgr && productMgr().GetProductCount() > 0) {
        PrvSeekProduct(0);
    }
}

void frmProduct::PrvDeleteCurrentProduct()
{
    tracePropagate("KTVOrvanProduct.frmProduct::PrvDeleteCurrentProduct", [&] {
        objCurrentProduct.reset();
        productMgr().DeleteProduct(lCurrentIndex_);
        const std::int32_t lCount = productMgr().GetProductCount();
        if (lCount != 0) {
            bool bFound = false;
            productMgr().SeekIndex(lCurrentIndex_, 0, bFound); // the manager may move it to a product
            if (!bFound) {
                lCurrentIndex_ = lCount;
            }
            PrvLoadProductInfo();
            PrvSetFormCaption();
        } else {
            lCurrentIndex_ = 0;
            form_->unload();
            setProductShown(false); // the user may have kept the form: only a new product is left to do
        }
    });
}

void frmProduct::setProductShown(bool bShown)
{
    fraWizProducts_.setEnabled(bShown);
    cmdDelete_.setEnabled(bShown);
    atbMain_.setToolEnabled("ID_DeleteProduct", bShown);
    if (!bShown) {
        form_->setCaption(" (0/0)");
    }
}

void frmProduct::atbMain_ToolClick(std::string_view sToolId)
{
    handleEvent("KTVOrvanProduct.frmProduct::atbMain_ToolClick", [&] {
        if (sToolId == "ID_NewProduct") {
            PrvAddNewProduct();
            PrvSeekProduct(0);
        } else if (sToolId == "ID_DeleteProduct") {
            PrvDeleteProduct();
        } else if (sToolId == "ID_GotoFirst") {
            PrvSeekProductIndex(1);
        } else if (sToolId == "ID_GotoLast") {
            PrvSeekProductIndex(productMgr().GetProductCount());
        } else if (sToolId == "ID_GotoNext") {
            PrvSeekProduct(1);
        } else if (sToolId == "ID_GotoPrevious") {
            PrvSeekProduct(-1);
        } // the two that open menus do nothing themselves
    });
}

void frmProduct::cmdNew_Click()
{
    handleEvent("KTVOrvanProduct.frmProduct::cmdNew_Click", [&] {
        if (leaveBoxFor(cmdNew_)) {
            PrvAddNewProduct();
            PrvSeekProduct(0);
            cboProductName_.setFocus();
        }
    });
}

void frmProduct::cmdDelete_Click()
{
    handleEvent("KTVOrvanProduct.frmProduct::cmdDelete_Click", [&] { askAndDelete(); });
}

void frmProduct::cmdGotoFirst_Click()
{
    handleEvent("KTVOrvanProduct.frmProduct::cmdGotoFirst_Click", [&] {
        if (leaveBoxFor(cmdGotoFirst_)) {
            PrvSeekProductIndex(1);
        }
    });
}

void frmProduct::cmdGotoLast_Click()
{
    handleEvent("KTVOrvanProduct.frmProduct::cmdGotoLast_Click", [&] {
        if (leaveBoxFor(cmdGotoLast_)) {
            PrvSeekProductIndex(productMgr().GetProductCount());
        }
    });
}

void frmProduct::cmdNext_Click()
{
    handleEvent("KTVOrvanProduct.frmProduct::cmdNext_Click", [&] {
        if (leaveBoxFor(cmdNext_)) {
            PrvSeekProduct(1);
        }
    });
}

void frmProduct::cmdPrevious_Click()
{
    // Reports the label of its counterpart, as traces have always shown it.
    handleEvent("KTVOrvanProduct.frmProduct::cmdNext_Click", [&] {
        if (leaveBoxFor(cmdPrevious_)) {
            PrvSeekProduct(-1);
        }
    });
}

} // namespace orvan
