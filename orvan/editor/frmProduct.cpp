#include "orvan/editor/frmProduct.h"

#include "orvan/base/Text.h"
#include "orvan/core/modConversion.h"
#include "orvan/core/modLocale.h"
#include "orvan/editor/frmProductDesign.h"
#include "orvan/ui/Button.h"
#include "orvan/ui/ComboBox.h"
#include "orvan/ui/Form.h"
#include "orvan/ui/Frame.h"
#include "orvan/ui/Platform.h"
#include "orvan/ui/TextBox.h"
#include "orvan/ui/ToolBar.h"

#include <utility>

namespace orvan {

namespace {

constexpr std::size_t kCaptionNameLength = 25; // characters

} // namespace

frmProduct::frmProduct(ui::Platform& platform)
    : platform_(platform), form_(platform.loadForm(kProductFormDesign)), fields_(*this, *form_), lookUp_(*this, *form_),
      fraWizProducts_(form_->control<ui::Frame>("fraWizProducts")),
      fraLeftButtons_(form_->control<ui::Frame>("fraLeftButtons")), atbMain_(form_->control<ui::ToolBar>("atbMain")),
      cmdNew_(form_->control<ui::Button>("cmdNew")), cmdDelete_(form_->control<ui::Button>("cmdDelete")),
      cmdNext_(form_->control<ui::Button>("cmdNext")), cmdPrevious_(form_->control<ui::Button>("cmdPrevious")),
      cmdGotoFirst_(form_->control<ui::Button>("cmdGotoFirst")),
      cmdGotoLast_(form_->control<ui::Button>("cmdGotoLast")),
      cmdSaveClose_(form_->control<ui::Button>("cmdSaveClose")), cmdCancel_(form_->control<ui::Button>("cmdCancel")),
      cboProductName_(form_->control<ui::ComboBox>("cboProductName")),
      cboPartNum_(form_->control<ui::ComboBox>("cboPartNum")),
      txtUnitPrice_(form_->control<ui::TextBox>("txtUnitPrice")),
      txtDiscount_(form_->control<ui::TextBox>("txtDiscount")), txtQty_(form_->control<ui::TextBox>("txtQty")),
      txtExtPrice_(form_->control<ui::TextBox>("txtExtPrice")), txtNote_(form_->control<ui::TextBox>("txtNote")),
      txtTotal_(form_->control<ui::TextBox>("txtTotal"))
{
    form_->onResize = [this] { Form_Resize(); };
    form_->onQueryUnload = [this](ui::UnloadMode mode) { return Form_QueryUnload(mode); };
    form_->onUnload = [this] { Form_Unload(); };
    atbMain_.onToolClick = [this](std::string_view sToolId) { atbMain_ToolClick(sToolId); };
    cmdNew_.onClick = [this] { cmdNew_Click(); };
    cmdDelete_.onClick = [this] { cmdDelete_Click(); };
    cmdNext_.onClick = [this] { cmdNext_Click(); };
    cmdPrevious_.onClick = [this] { cmdPrevious_Click(); };
    cmdGotoFirst_.onClick = [this] { cmdGotoFirst_Click(); };
    cmdGotoLast_.onClick = [this] { cmdGotoLast_Click(); };
    cmdSaveClose_.onClick = [this] { cmdSaveClose_Click(); };
    cmdCancel_.onClick = [this] { cmdCancel_Click(); };
    Form_Resize(); // the platform may have made the form larger than it was designed
}

frmProduct::~frmProduct() = default;

void frmProduct::Init(const std::shared_ptr<ProductMgr>& objProdMgr, std::int32_t lProductIndex, bool bAddNew)
{
    tracePropagate("KTVOrvanProduct.frmProduct::Init", [&] {
        bInitializing = true;
        lookUp_.objLkpMgr = ui::createComponent<ProductLkpMgr>(platform_.components(), kProductLkpMgrClassName);
        if (!objProdMgr) {
            throw RuntimeError(ErrorNumber::objectNotSet);
        }
        sProducts_ = objProdMgr->GetProductsString(kRecordSeparator, kFieldSeparator);
        PrvInitForm();
        objProductMgr = objProdMgr; // only now: the set-up does without it
        if (bAddNew) {
            bDirty_ = true; // PrvSetDirty would drop it while initializing
            PrvAddNewProduct();
        } else {
            lCurrentIndex_ = lProductIndex;
            PrvLoadProductInfo();
            PrvSetFormCaption();
        }
        PrvSeekProduct(0); // ends with bInitializing off already
        bInitializing = false;
    });
}

void frmProduct::showModal()
{
    form_->showModal();
}

void frmProduct::PrvInitForm()
{
    tracePropagate("KTVOrvanProduct.frmProduct::PrvInitForm", [&] {
        lookUp_.forgetPendingRow();
        locale = PrvInitLocale(platform_.locale());
        lookUp_.PrvFillProductNameList();
        lookUp_.PrvFillPartNumList();
    });
}

void frmProduct::PrvSetFormCaption()
{
    tracePropagate("KTVOrvanProduct.frmProduct::PrvSetFormCaption", [&] {
        const std::string sName = currentProduct().Name();
        std::string sCaption(firstCharacters(sName, kCaptionNameLength));
        sCaption.append(" (").append(std::to_string(lCurrentIndex_));
        sCaption.append("/").append(std::to_string(productMgr().GetProductCount())).append(")");
        form_->setCaption(std::move(sCaption));
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

std::string frmProduct::money(Currency cyValue) const
{
    return FormatCurrencyValue(platform_.locale(), cyValue, 2, locale.currencySymbol, true);
}

} // namespace orvan
