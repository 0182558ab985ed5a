#include "orvan/view/ProductView.h"

#include "orvan/core/modInit.h"
#include "orvan/core/modLocale.h"
#include "orvan/ui/Button.h"
#include "orvan/ui/ContainerSite.h"
#include "orvan/ui/Frame.h"
#include "orvan/ui/Grid.h"
#include "orvan/ui/Platform.h"
#include "orvan/ui/PopupMenu.h"
#include "orvan/ui/Surface.h"
#include "orvan/ui/TextBox.h"

namespace orvan {

ProductView::ProductView(ui::Platform& platform, ui::Surface& surface, ui::ContainerSite& site)
    : platform_((enterLibrary(platform), platform)), surface_(surface), site_(site),
      flexGrid_(surface.control<ui::Grid>("flexGrid")), fraBottomLeft_(surface.control<ui::Frame>("fraBottomLeft")),
      fraBottomRight_(surface.control<ui::Frame>("fraBottomRight")),
      txtTotal_(surface.control<ui::TextBox>("txtTotal")), cmdNew_(surface.control<ui::Button>("cmdNew")),
      cmdDelete_(surface.control<ui::Button>("cmdDelete")), cmdMoveUp_(surface.control<ui::Button>("cmdMoveUp")),
      cmdMoveDown_(surface.control<ui::Button>("cmdMoveDown")),
      mnuViewCboOne_(surface.control<ui::PopupMenu>("mnuViewCboOne")),
      mnuViewCboTwo_(surface.control<ui::PopupMenu>("mnuViewCboTwo"))
{
    UserControl_Initialize();
    surface_.onResize = [this] { UserControl_Resize(); };
    flexGrid_.onAfterUserResize = [this] { flexGrid_AfterUserResize(); };
    flexGrid_.onDblClick = [this] { flexGrid_DblClick(); };
    flexGrid_.onRightClick = [this] { flexGrid_RightClick(); };
    for (const OptionalColumn& own : optionalColumns()) {
        own.menu.onToolClick = [this, own](std::string_view sItem) { mnuViewCbo_Click(own, sItem); };
    }
    cmdNew_.onClick = [this] { cmdNew_Click(); };
    cmdDelete_.onClick = [this] { cmdDelete_Click(); };
    cmdMoveUp_.onClick = [this] { cmdMoveUp_Click(); };
    cmdMoveDown_.onClick = [this] { cmdMoveDown_Click(); };
    UserControl_Resize(); // the surface may have had its size before
}

ProductView::~ProductView()
{
    surface_.onResize = nullptr;
    flexGrid_.onAfterUserResize = nullptr;
    flexGrid_.onDblClick = nullptr;
    flexGrid_.onRightClick = nullptr;
    for (const OptionalColumn& own : optionalColumns()) {
        own.menu.onToolClick = nullptr;
    }
    cmdNew_.onClick = nullptr;
    cmdDelete_.onClick = nullptr;
    cmdMoveUp_.onClick = nullptr;
    cmdMoveDown_.onClick = nullptr;
    UserControl_Terminate();
}

void ProductView::UserControl_Initialize()
{
    productMgr_ = ui::createComponent<ProductMgr>(platform_.components(), kProductMgrClassName);
    locale_ = PrvInitLocale(platform_.locale());
    PrvInitColumnIndices();
    PrvSetDefaultProps();
    PrvInitGrid();
    PrvApplyColumnLayout();
}

void ProductView::UserControl_ReadProperties()
{
    traceIgnore("KTVOrvanProduct.ProductView::UserControl_ReadProperties", [&](auto step) {
        step([&] { hostTypeName_ = site_.parentTypeName(); });
        step([&] { PrvReadPrefs(hostTypeName_); });
        step([&] { PrvApplyColumnLayout(); });
        // Nothing is kept under this name: it makes the container save the control at all.
        step([&] { site_.propertyChanged("Dummy"); });
    });
}

void ProductView::UserControl_Terminate()
{
    traceIgnore("KTVOrvanProduct.ProductView::UserControl_Terminate",
                [&](auto step) { step([&] { productMgr_.reset(); }); });
}

void ProductView::Show(std::string_view sProducts)
{
    tracePropagate("KTVOrvanProduct.ProductView::Show", [&] {
        // Replaces a manager that is held. Where none is held none is made, and the next statement
        // reports that, rather than hiding that the view never was initialised.
        if (productMgr_) {
            productMgr_ = ui::createComponent<ProductMgr>(platform_.components(), kProductMgrClassName);
        }
        productMgr().SetProductsString(sProducts, kRecordSeparator, kFieldSeparator, false);
        PrvRefreshView(true);
    });
}

std::string ProductView::Products()
{
    return tracePropagate("KTVOrvanProduct.ProductView::Products",
                          [&] { return productMgr().GetProductsString(kRecordSeparator, kFieldSeparator); });
}

Currency ProductView::TotalValue()
{
    return tracePropagate("KTVOrvanProduct.ProductView::TotalValue", [&] { return productMgr().GetTotalValue(); });
}

ProductMgr& ProductView::productMgr() const
{
    if (!productMgr_) {
        throw RuntimeError(ErrorNumber::objectNotSet);
    }
    return *productMgr_;
}

void ProductView::PrvSetDirty(bool bDirty)
{
    if (!bDirty) {
        dirty_ = false;
    } else if (!dirtyLock_) {
        dirty_ = true;
    }
}

void ProductView::PrvSetDefaultProps()
{
    tracePropagate("KTVOrvanProduct.ProductView::PrvSetDefaultProps", [&] {
        chooseDefaultFields();
        defaultWidths_ = {250, 2500, 700, 700};
    });
}

void ProductView::chooseDefaultFields()
{
    fieldOne_ = ViewFieldEnum::Qty;
    fieldTwo_ = ViewFieldEnum::ExtPrice;
    columnOne_ = PrvGetColIndexByEnum(fieldOne_);
    columnTwo_ = PrvGetColIndexByEnum(fieldTwo_);
}

} // namespace orvan
