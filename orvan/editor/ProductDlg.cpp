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
    /// However the session ends: what an error interrupts may have changed the list.
    struct DirtyRead {
        const frmProduct& form;
        bool& dirty;
        ~DirtyRead() { dirty = form.Dirty(); }
    };
    frmProduct form(platform_);
    const DirtyRead read{form, dirty_};
    try {
        form.Init(objProductMgr, lProdIdx, bAddNew);
    } catch (...) {
        form.takeBackNewProduct();
        throw;
    }
    form.showModal();
}

} // namespace orvan
