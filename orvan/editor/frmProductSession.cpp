// An editing session: loading a product into the controls, saving it, cancelling, closing.

#include "orvan/base/RunHandler.h"
#include "orvan/core/Deviations.h"
#include "orvan/editor/frmProduct.h"
#include "orvan/ui/Button.h"
#include "orvan/ui/Form.h"
#include "orvan/ui/Platform.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace orvan {

namespace {

/// The records of a products string, sorted; the count before them is left out. An escaped separator ends none.
std::vector<std::string> sortedRecords(std::string_view sProducts)
{
    std::vector<std::string> records(1);
    for (std::size_t at = 0; at < sProducts.size(); ++at) {
        if (sProducts.substr(at).starts_with(kRecordSeparator)) {
            records.emplace_back();
            continue;
        }
        records.back() += sProducts[at];
        if (sProducts[at] == '\\' && at + 1 < sProducts.size()) {
            records.back() += sProducts[++at];
        }
    }
    records.erase(records.begin());
    std::sort(records.begin(), records.end());
    return records;
}

/// How many products one list has that the other has not. At least 1: the boxes may hold what is not yet saved.
std::size_t productsThatDiffer(std::string_view before, std::string_view now)
{
    const auto former = sortedRecords(before), present = sortedRecords(now);
    std::vector<std::string> common;
    std::set_intersection(former.begin(), former.end(), present.begin(), present.end(), std::back_inserter(common));
    return std::max<std::size_t>(std::max(former.size(), present.size()) - common.size(), 1);
}

} // namespace

std::shared_ptr<ProductRecord> frmProduct::productAt(std::int32_t index)
{
    auto product = productMgr()->GetProduct(index);
    if (!product) {
        throw RuntimeError(ErrorNumber::objectNotSet);
    }
    return product;
}

void frmProduct::PrvLoadProductInfo()
{
    tracePropagate("KTVOrvanProduct.frmProduct::PrvLoadProductInfo", [&] {
        goOnToProduct([&] {
            heldProduct = productAt(currentIndex_);
            setProductShown(true);
            if (lookUp_) {
                lookUp_->forgetFormerText();
            }
            fields_.showProduct();
        });
    });
}

void frmProduct::priceAnew()
{
    fields_.PrvCalcExtPrice();
    fields_.PrvShowExtPriceAndTotal();
}

void frmProduct::PrvSaveCurrentProduct(bool& bOk)
{
    if (readOnly) {
        bOk = true; // the procedures that move through the list save before they do
        return;
    }
    bool checkingSize = false;
    traceRecover(
        "KTVOrvanProduct.frmProduct::PrvSaveCurrentProduct",
        [&] {
            lookUp_->finishPendingLookUps();
            if (heldProduct) {
                fields_.PrvSaveNameFld();
                fields_.PrvSavePartNumFld();
                fields_.PrvSaveUnitPriceFld();
                fields_.PrvSaveDiscountPrcntFld();
                fields_.PrvSaveQtyFld();
                fields_.PrvSaveNoteFld();
            }
            checkingSize = true;
            productMgr()->CheckDataSize(kRecordSeparator, kFieldSeparator); // raises beyond the limit
            checkingSize = false;
            bOk = true;
        },
        [&] {
            if (!checkingSize) {
                raiseLastError();
            }
            bOk = false;
            const RuntimeError error = currentError();
            if (error.number() != ErrorNumber::outOfStringSpace &&
                differs(platform_, Deviation::sizeCheckTellsOtherErrors)) {
                show({.text = error.userText(),
                      .buttons = ui::MessageButtons::ok,
                      .icon = ui::MessageIcon::exclamation});
                return;
            }
            const std::int32_t limit = productMgr()->GetMaxDataSize();
            show({.text = userText("The total size of the product data for an IBO has exceeded the maximum limit of "
                                   "%1 bytes. Please try limiting the amount of data you put in the product note field "
                                   "(this or other products in this IBO) and try saving the product info again.",
                                   limit),
                  .buttons = ui::MessageButtons::ok,
                  .icon = ui::MessageIcon::exclamation});
        });
}

ui::MessageResult frmProduct::PrvCancelEdit(bool& bSaveFailed)
{
    return tracePropagate("KTVOrvanProduct.frmProduct::PrvCancelEdit", [&] {
        if (saveConfirmed_) {
            return ui::MessageResult::yes; // the user is not asked again, and nothing is saved again
        }
        bSaveFailed = false;
        UserText text = userText("The product information has been modified, would you like to save the changes?");
        if (differs(platform_, Deviation::revertQuestionSaysWhatIsLost)) {
            text = text + " " + userText("If you answer No, the whole list goes back to what it was.");
            const ResumeNext<false> step; // a list beyond the limit cannot be read, and is asked about all the same
            step([&] {
                const auto differing = productsThatDiffer(
                    productsSnapshot_, productMgr()->GetProductsString(kRecordSeparator, kFieldSeparator));
                text = text + " " + userText("Products that differ: %1.", differing);
            });
        }
        const auto answer = show(
            {.text = std::move(text), .buttons = ui::MessageButtons::yesNoCancel, .icon = ui::MessageIcon::question});
        if (answer == ui::MessageResult::yes) {
            bool bOk = false;
            PrvSaveCurrentProduct(bOk);
            bSaveFailed = !bOk;
            saveConfirmed_ = bOk || !differs(platform_, Deviation::failedSaveAsksAgain);
        } else if (answer == ui::MessageResult::no) {
            if (!revert()) {
                return ui::MessageResult::cancel;
            }
            PrvSetDirty(false);
        }
        return answer;
    });
}

bool frmProduct::revert()
{
    const auto restore = [&] {
        productMgr()->SetProductsString(productsSnapshot_, kRecordSeparator, kFieldSeparator, true);
        return true;
    };
    if (!differs(platform_, Deviation::failedRevertKeepsTheForm)) {
        return restore();
    }
    bool restored = false;
    const ResumeNext<true> step;
    step([&] { restored = restore(); });
    if (!restored) {
        show({.text = userText("Could not undo the changes due to an error. The dialog stays open."),
              .buttons = ui::MessageButtons::ok,
              .icon = ui::MessageIcon::critical});
    }
    return restored;
}

void frmProduct::eventHandled()
{
    if (listTouched_) {
        runHandler(onChange);
    }
}

void frmProduct::PrvSetDirty(bool bDirty)
{
    if (!bDirty) {
        dirty_ = false;
    } else if (!initializing) {
        listTouched_ = true;
        dirty_ = true;
    }
}

void frmProduct::PrvCloseOnError()
{
    if (!form_->loaded()) {
        return; // a procedure was still running when the form was closed, and failed: no second message is needed
    }
    dialogError_ = true;
    if (closingOnError_) {
        // This call comes from within the unload below: it offered to save, and the save failed. The running call
        // finishes the closing. To begin another one here would repeat the failure as often as the user answers Yes.
        return;
    }
    const ScopedFlag closing(closingOnError_);
    show({.text = userText("We apologize for the inconvenience but due to an internal application error the current "
                           "dialog will be closed. If the issue persists please contact our support department at %1",
                           platform_.supportAddress),
          .buttons = ui::MessageButtons::ok,
          .icon = ui::MessageIcon::exclamation});
    form_->unload();
}

void frmProduct::cmdSaveClose_Click()
{
    traceRecover(
        "KTVOrvanProduct.frmProduct::cmdSaveClose_Click",
        [&] {
            // The focus moves to Cancel and not to the button that was pressed: if the save fails, a key pressed in
            // haste then leads to a question and not to a second save.
            if (!leaveBoxFor(cmdCancel_)) {
                return;
            }
            bool bOk = false;
            PrvSaveCurrentProduct(bOk);
            if (bOk) {
                saveConfirmed_ = saveConfirmed_ || differs(platform_, Deviation::savedSessionCloses);
                // Classic asks once more: the session stays dirty, so that the caller learns of the change.
                form_->unload();
            }
        },
        [&] {
            if (form_->loaded()) {
                show({.text = userText("Could not save the current product due to an error."),
                      .buttons = ui::MessageButtons::ok,
                      .icon = ui::MessageIcon::critical});
            }
        });
}

void frmProduct::cmdCancel_Click()
{
    handleClick("KTVOrvanProduct.frmProduct::cmdCancel_Click", cmdCancel_, [&] {
        const bool wasDirty = dirty_;
        auto answer = ui::MessageResult::no;
        bool bSaveFailed = false;
        if (wasDirty) {
            answer = PrvCancelEdit(bSaveFailed);
        }
        if (!wasDirty || (answer != ui::MessageResult::cancel && !bSaveFailed)) {
            form_->unload();
        }
    });
}

bool frmProduct::Form_QueryUnload(ui::UnloadMode mode)
{
    bool cancel = false;
    // The label is the Cancel button's, on purpose: readers of traces rely on both ways to cancel looking the same.
    traceResume("KTVOrvanProduct.frmProduct::cmdCancel_Click", [&](auto step) {
        auto answer = ui::MessageResult::no;
        bool bSaveFailed = false;
        step([&] {
            if (dirty_ && (mode == ui::UnloadMode::closeBox || mode == ui::UnloadMode::code)) {
                answer = PrvCancelEdit(bSaveFailed);
            }
        });
        step([&] { cancel = answer == ui::MessageResult::cancel || bSaveFailed; });
    });
    return cancel;
}

void frmProduct::Form_Unload()
{
    const ResumeNext<false> step; // if the release of one component fails, the others are still released
    step([&] { heldProduct.reset(); });
    step([&] { objProductMgr.reset(); });
    if (lookUp_) {
        step([&] { lookUp_->productLkpMgr.reset(); });
    }
}

} // namespace orvan
