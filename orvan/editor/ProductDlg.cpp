#include "orvan/editor/ProductDlg.h"

#include "orvan/core/modInit.h"
#include "orvan/editor/frmProduct.h"

namespace orvan {

/// One call of Show or ShowAddNew. It keeps what it needs itself: while the session waits for the user, or calls the
/// manager or the trace, a host may destroy the dialog, or let go of the pointer that it passed.
class ProductDlg::Session {
public:
    Session(ProductDlg& dialog, std::shared_ptr<ProductMgr> manager)
        : dialog_(dialog), watch_(dialog.lifetime_.watch()), platform_(dialog.platform_),
          ownerWindow_(dialog.ownerWindow_), manager_(std::move(manager)), onChange_(dialog.onChange)
    {
    }

    void run(frmProduct::Use use, std::int32_t lProdIdx, bool bAddNew)
    {
        /// Its destructor reads Dirty however the session ends: a session that an error ends may have changed the list.
        struct DirtyRead {
            Session& session;
            const frmProduct& form;
            ~DirtyRead()
            {
                if (!session.watch_.ended()) {
                    session.dialog_.dirty_ = form.Dirty();
                }
            }
        };
        frmProduct form(platform_, use, ownerWindow_);
        form.onChange = onChange_;
        const DirtyRead read{*this, form};
        try {
            form.Init(manager_, lProdIdx, bAddNew);
        } catch (...) {
            form.takeBackNewProduct();
            throw;
        }
        form.showModal();
    }

private:
    ProductDlg& dialog_;
    LifetimeWatch watch_;
    ui::Platform& platform_;
    std::int32_t ownerWindow_;
    std::shared_ptr<ProductMgr> manager_;
    std::function<void()> onChange_;
};

ProductDlg::ProductDlg(ui::Platform& platform, std::int32_t ownerWindow)
try : platform_((enterLibrary(platform), platform)), ownerWindow_(ownerWindow) {
} catch (...) {
    raiseCurrentError();
}

void ProductDlg::Show(const std::shared_ptr<ProductMgr>& objProductMgr, std::int32_t lProdIdx)
{
    Session session(*this, objProductMgr);
    tracePropagate("KTVOrvanProduct.ProductDlg::Show", [&] { session.run(frmProduct::Use::edit, lProdIdx, false); });
}

void ProductDlg::ShowAddNew(const std::shared_ptr<ProductMgr>& objProductMgr)
{
    Session session(*this, objProductMgr);
    tracePropagate("KTVOrvanProduct.ProductDlg::ShowAddNew", [&] { session.run(frmProduct::Use::edit, 0, true); });
}

void ProductDlg::showReadOnly(const std::shared_ptr<ProductMgr>& objProductMgr, std::int32_t lProdIdx)
{
    Session session(*this, objProductMgr);
    tracePropagate("KTVOrvanProduct.ProductDlg::showReadOnly",
                   [&] { session.run(frmProduct::Use::read, lProdIdx, false); });
}

} // namespace orvan
