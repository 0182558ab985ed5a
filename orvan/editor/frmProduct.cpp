#include "orvan/editor/frmProduct.h"

#include "orvan/base/Text.h"
#include "orvan/core/modLocale.h"
#include "orvan/editor/frmProductDesign.h"
#include "orvan/ui/Button.h"
#include "orvan/ui/Form.h"
#include "orvan/ui/Frame.h"
#include "orvan/ui/Platform.h"
#include "orvan/ui/TextEntry.h"
#include "orvan/ui/ToolSet.h"

#include <utility>

namespace orvan {

namespace {

constexpr std::size_t kCaptionNameLength = 25; ///< Characters of the product's name.

} // namespace

frmProduct::frmProduct(ui::Platform& platform, Use use, std::int32_t ownerWindow)
    : EditorSession(use == Use::read), platform_(platform),
      form_(platform.loadForm(readOnly ? kProductReadDesign : kProductFormDesign, ownerWindow)), fields_(*this, *form_),
      fraWizProducts_(form_->control<ui::Frame>("fraWizProducts")),
      fraLeftButtons_(form_->control<ui::Frame>("fraLeftButtons")), atbMain_(form_->control<ui::ToolBar>("atbMain")),
      cmdNew_(editingButton("cmdNew")), cmdDelete_(editingButton("cmdDelete")),
      cmdSaveClose_(editingButton("cmdSaveClose")), cmdNext_(form_->control<ui::Button>("cmdNext")),
      cmdPrevious_(form_->control<ui::Button>("cmdPrevious")),
      cmdGotoFirst_(form_->control<ui::Button>("cmdGotoFirst")),
      cmdGotoLast_(form_->control<ui::Button>("cmdGotoLast")), cmdCancel_(form_->control<ui::Button>("cmdCancel")),
      cboPartNum_(form_->control<ui::TextEntry>("cboPartNum")),
      cboProductName_(form_->control<ui::TextEntry>("cboProductName"))
{
    if (!readOnly) {
        lookUp_.emplace(static_cast<EditorSession&>(*this), static_cast<ui::Surface&>(*form_));
    }
    takeEvents();
    Form_Resize(); // the platform may have made the form larger than it was designed
}

frmProduct::~frmProduct() = default;

ui::Button* frmProduct::editingButton(std::string_view name) const
{
    return readOnly ? nullptr : &form_->control<ui::Button>(name);
}

void frmProduct::takeEvents()
{
    handlers_.set(form_->onResize, [this] { Form_Resize(); });
    handlers_.set(form_->onQueryUnload, [this](ui::UnloadMode mode) { return Form_QueryUnload(mode); });
    handlers_.set(form_->onUnload, [this] { Form_Unload(); });
    handlers_.set(form_->onKeyDown, [this](ui::KeyStroke& key) { Form_KeyDown(key); });
    handlers_.set(form_->takesKey, [this](const ui::KeyStroke& key) { return toolOf(key) != nullptr; });
    handlers_.set(atbMain_.onToolClick, [this](std::string_view toolId) { atbMain_ToolClick(toolId); });
    handlers_.set(cmdNext_.onClick, [this] { cmdNext_Click(); });
    handlers_.set(cmdPrevious_.onClick, [this] { cmdPrevious_Click(); });
    handlers_.set(cmdGotoFirst_.onClick, [this] { cmdGotoFirst_Click(); });
    handlers_.set(cmdGotoLast_.onClick, [this] { cmdGotoLast_Click(); });
    handlers_.set(cmdCancel_.onClick, [this] { cmdCancel_Click(); });
    if (!readOnly) {
        handlers_.set(cmdNew_->onClick, [this] { cmdNew_Click(); });
        handlers_.set(cmdDelete_->onClick, [this] { cmdDelete_Click(); });
        handlers_.set(cmdSaveClose_->onClick, [this] { cmdSaveClose_Click(); });
    }
}

void frmProduct::Init(const std::shared_ptr<ProductMgr>& objProdMgr, std::int32_t lProductIndex, bool bAddNew)
{
    tracePropagate("KTVOrvanProduct.frmProduct::Init", [&] {
        initializing = true;
        if (lookUp_) {
            lookUp_->productLkpMgr =
                ui::createComponent<ProductLkpMgr>(platform_.components(), kProductLkpMgrClassName);
        }
        if (!objProdMgr) {
            throw RuntimeError(ErrorNumber::objectNotSet);
        }
        if (!readOnly) { // a list beyond the size limit has no such string, and can be read all the same
            productsSnapshot_ = objProdMgr->GetProductsString(kRecordSeparator, kFieldSeparator);
        }
        PrvInitForm();
        objProductMgr = objProdMgr; // not earlier, because PrvInitForm must not use it
        if (bAddNew) {
            dirty_ = true; // not by PrvSetDirty, which does nothing while initializing
            PrvAddNewProduct();
        } else {
            currentIndex_ = lProductIndex;
            PrvLoadProductInfo();
            PrvSetFormCaption();
        }
        PrvSeekProduct(0); // also clears `initializing` when it ends
        initializing = false;
    });
}

void frmProduct::takeBackNewProduct()
{
    const ResumeNext<false> step; // the caller is told of the error of Init
    if (productAdded_) {
        step([&] {
            productMgr()->DeleteProduct(productMgr()->GetProductCount());
            dirty_ = false; // the list is what it was
        });
    }
}

void frmProduct::showModal()
{
    form_->showModal();
}

void frmProduct::PrvInitForm()
{
    tracePropagate("KTVOrvanProduct.frmProduct::PrvInitForm", [&] {
        if (lookUp_) {
            lookUp_->forgetPendingRow();
        }
        locale = PrvInitLocale(platform_.locale());
        if (lookUp_) {
            lookUp_->PrvFillProductNameList();
            lookUp_->PrvFillPartNumList();
        }
    });
}

void frmProduct::PrvSetFormCaption()
{
    tracePropagate("KTVOrvanProduct.frmProduct::PrvSetFormCaption", [&] {
        const std::string name = currentProduct()->Name();
        std::string caption(firstCharacters(name, kCaptionNameLength));
        caption.append(" (").append(std::to_string(currentIndex_));
        caption.append("/").append(std::to_string(productMgr()->GetProductCount())).append(")");
        form_->setCaption(std::move(caption));
    });
}

bool frmProduct::leaveBoxFor(ui::Control& control)
{
    control.setFocus();
    return form_->loaded();
}

std::int32_t frmProduct::window()
{
    return form_->window();
}

ui::MessageResult frmProduct::show(ui::Message message)
{
    message.ownerWindow = window();
    return platform_.messageBox().show(message);
}
} // namespace orvan
