// An editing session: a product into the controls and back, saving, giving up, closing.

#include "orvan/base/Text.h"
#include "orvan/core/modConversion.h"
#include "orvan/editor/frmProduct.h"
#include "orvan/ui/Button.h"
#include "orvan/ui/ComboBox.h"
#include "orvan/ui/Form.h"
#include "orvan/ui/Platform.h"
#include "orvan/ui/TextBox.h"

namespace orvan {

namespace {

constexpr std::int32_t kMostNoteCharacters = 4095;
constexpr std::size_t kMostNameCharacters = 255;
constexpr const char* kSupportAddress = "support@orvan.example";

std::string cut(const std::string& sText, std::size_t characters)
{
    return std::string(firstCharacters(sText, characters));
}

} // namespace

void frmProduct::PrvLoadProductInfo()
{
    tracePropagate("KTVOrvanProduct.frmProduct::PrvLoadProductInfo", [&] {
        objCurrentProduct = productMgr().GetProduct(lCurrentIndex_);
        // Setting a box's text raises its change event, and a handler may let the record go.
        const std::shared_ptr<ProductRecord> record = objCurrentProduct;
        static_cast<void>(currentProduct()); // error 91 where the manager hands out none
        setProductShown(true);
        txtNote_.setMaxLength(kMostNoteCharacters);
        cboProductName_.setText(cut(record->Name(), kMostNameCharacters));
        cboPartNum_.setText(cut(record->PartNum(), kMostNameCharacters));
        txtUnitPrice_.setText(money(record->UnitPrice()));
        txtDiscount_.setText(FormatPercentValue(platform_.locale(), record->DiscPrcnt(), 4, true));
        txtQty_.setText(FormatNumberValue(platform_.locale(), record->Qty(), 4));
        txtExtPrice_.setText(money(record->ExtPrice()));
        txtNote_.setText(cut(record->Note(), static_cast<std::size_t>(txtNote_.maxLength())));
        txtTotal_.setText(money(productMgr().GetTotalValue()));
    });
}

void frmProduct::PrvSaveCurrentProduct(bool& bOk)
{
    bool bCheckingSize = false;
    traceRecover(
        "KTVOrvanProduct.frmProduct::PrvSaveCurrentProduct",
        [&] {
            lookUp_.finishPendingLookUps();
            // Kept here: a record may ask the user, and meanwhile the dialog may close and let go of it.
            if (const std::shared_ptr<ProductRecord> objKept = objCurrentProduct) {
                fields_.PrvSaveNameFld();
                fields_.PrvSavePartNumFld();
                fields_.PrvSaveUnitPriceFld();
                fields_.PrvSaveDiscountPrcntFld();
                fields_.PrvSaveQtyFld();
                fields_.PrvSaveNoteFld();
            }
            bCheckingSize = true;
            productMgr().GetProductsString(kRecordSeparator, kFieldSeparator); // raises beyond the limit
            bCheckingSize = false;
            bOk = true;
        },
        [&] {
            if (!bCheckingSize) {
                raiseLastError();
            }
            bOk = false;
            const std::int32_t lLimit = productMgr().GetMaxDataSize();
            std::string sText = "The total size of the product data for an IBO has exceeded the maximum limit of ";
            sText.append(std::to_string(lLimit)).append(" bytes. ");
            sText.append("Please try limiting the amount of data you put in the product note field "
                         "(this or other products in this IBO) and try saving the product info again.");
            show({.text = std::move(sText), .buttons = ui::MessageButtons::ok, .icon = ui::MessageIcon::exclamation});
        });
}

ui::MessageResult frmProduct::PrvCancelEdit(bool& bSaveFailed)
{
    return tracePropagate("KTVOrvanProduct.frmProduct::PrvCancelEdit", [&] {
        if (bSaveConfirmed_) {
            return ui::MessageResult::yes; // and neither saved again nor asked
        }
        bSaveFailed = false;
        const auto answer =
            show({.text = "The product information has been modified, would you like to save the changes?",
                  .buttons = ui::MessageButtons::yesNoCancel,
                  .icon = ui::MessageIcon::question});
        if (answer == ui::MessageResult::yes) {
            bool bOk = false;
            PrvSaveCurrentProduct(bOk);
            bSaveFailed = !bOk;
            bSaveConfirmed_ = true;
        } else if (answer == ui::MessageResult::no) {
            productMgr().SetProductsString(sProducts_, kRecordSeparator, kFieldSeparator, true);
            PrvSetDirty(false);
        }
        return answer;
    });
}

void frmProduct::PrvSetDirty(bool bDirty)
{
    if (!bDirty) {
        bDirty_ = false;
    } else if (!bInitializing) {
        bDirty_ = true;
    }
}

void frmProduct::PrvCloseOnError()
{
    if (!form_->loaded()) {
        return; // the rest of a chain that has closed the form already: there is nothing left to tell
    }
    bDialogError_ = true;
    if (bClosingOnError_) {
        // An error in the saving that this very closing offers: what can be saved is, and the closing
        // goes on, rather than beginning anew for as long as the user answers Yes.
        return;
    }
    const ScopedFlag closing(bClosingOnError_);
    show({.text = std::string("We apologize for the inconvenience but due to an internal application error the current "
                              "dialog will be closed. If the issue persists please contact our support department at ")
                      .append(kSupportAddress),
          .buttons = ui::MessageButtons::ok,
          .icon = ui::MessageIcon::exclamation});
    form_->unload();
}

void frmProduct::cmdSaveClose_Click()
{
    traceRecover(
        "KTVOrvanProduct.frmProduct::cmdSaveClose_Click",
        [&] {
            // To Cancel and not to the button that was pressed: where the save fails, a key pressed in
            // haste then meets a question and no second save.
            if (!leaveBoxFor(cmdCancel_)) {
                return;
            }
            bool bOk = false;
            PrvSaveCurrentProduct(bOk);
            if (bOk) {
                form_->unload(); // still dirty, for the caller to see: so this asks once more
            }
        },
        [&] {
            if (form_->loaded()) {
                show({.text = "Could not save the current product due to an error.",
                      .buttons = ui::MessageButtons::ok,
                      .icon = ui::MessageIcon::critical});
            }
        });
}

void frmProduct::cmdCancel_Click()
{
    handleEvent("KTVOrvanProduct.frmProduct::cmdCancel_Click", [&] {
        if (!leaveBoxFor(cmdCancel_)) {
            return;
        }
        const bool bWasDirty = bDirty_;
        auto answer = ui::MessageResult::no;
        bool bSaveFailed = false;
        if (bWasDirty) {
            answer = PrvCancelEdit(bSaveFailed);
        }
        if (!bWasDirty || (answer != ui::MessageResult::cancel && !bSaveFailed)) {
            form_->unload();
        }
    });
}

bool frmProduct::Form_QueryUnload(ui::UnloadMode mode)
{
    bool bCancel = false;
    // The label is the Cancel button's: traces of both ways to give up read alike, and readers of
    // traces rely on it.
    traceResume("KTVOrvanProduct.frmProduct::cmdCancel_Click", [&](auto step) {
        auto answer = ui::MessageResult::no;
        bool bSaveFailed = false;
        step([&] {
            if (bDirty_ && (mode == ui::UnloadMode::closeBox || mode == ui::UnloadMode::code)) {
                answer = PrvCancelEdit(bSaveFailed);
            }
        });
        step([&] { bCancel = answer == ui::MessageResult::cancel || bSaveFailed; });
    });
    return bCancel;
}

void frmProduct::Form_Unload()
{
    const ResumeNext<false> step; // whatever a component does when it is let go
    step([&] { objCurrentProduct.reset(); });
    step([&] { objProductMgr.reset(); });
    step([&] { lookUp_.objLkpMgr.reset(); });
}

} // namespace orvan
