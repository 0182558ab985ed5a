#include "orvan/editor/ProductDlg.h"

#include "orvan/core/modInit.h"
#include "orvan/editor/frmProduct.h"

namespace orvan {

ProductDlg::ProductDlg(ui::Platform& platform) : platform_((enterLibrary(platform), platform)) {}

void ProductDlg::Show(const std::shared_ptr<ProductMgr>& objProductMgr, std::int32_t lProdIdx)
{
    tracePropagate("KTVOrvanProduct.ProductDlg::Show", [&] { runSession(objProductMgr, lProdIdx, false); });
}

void ProductDlg::ShowAddNew(const std::shared_ptr<ProductMgr>& objProductMgr)
{
    tracePropagate("KTVOrvanProduct.ProductDlg::ShowAddNew", [&] { runSession(objProductMgr, 0, true); });
}

void ProductDlg::runSession(const std::shared_ptr<ProductMgr>& objProductMgr, std::int32_t lProdIdx, bool bAddNew)
{
    frmProduct form(platform_);
    form.Init(objProductMgr, lProdIdx, bAddNew);
    form.showModal();
    dirty_ = form.Dirty();
}

} // namespace orvan
