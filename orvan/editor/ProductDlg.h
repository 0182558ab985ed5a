// ProductDlg: opens the product editor on one product of a list, or on a new one.
//
// Modal: Show and ShowAddNew return when the user has closed the dialog. The editor works directly on
// the manager it is given, so the caller sees every change at once; a user who answers No to saving
// has the list put back as it was. An object may be used again: each call is a session of its own.
//
// Positions are 1-based. Ownership: the manager is shared for the time of the session; the platform
// must outlive the object. Thread: the user-interface thread. Errors: RuntimeError with a number and
// nothing else where the dialog cannot be opened; texts are in the trace. An error in an open dialog
// closes it with a message and is not raised.
#pragma once

#include "orvan/core/ProductMgr.h"

#include <cstdint>
#include <memory>

namespace orvan {

namespace ui {
class Platform;
}

class ProductDlg {
public:
    explicit ProductDlg(ui::Platform& platform);

    /// Opens on the product at lProdIdx. The position is not checked: what lies outside the list is
    /// the manager's affair (the in-process one raises 9).
    void Show(const std::shared_ptr<ProductMgr>& objProductMgr, std::int32_t lProdIdx);
    /// Opens on a new product at the end of the list, which marks the session dirty at once.
    void ShowAddNew(const std::shared_ptr<ProductMgr>& objProductMgr);

    /// Whether the last session changed anything; saving does not clear it. False before the first.
    /// Deleting a product is no change by itself, only what the boxes show afterwards is: a host that
    /// must know compares the count. Neither is what the boxes cannot show, which opening the dialog
    /// already saves as shown: unit prices beyond two decimals, minus signs, texts beyond the boxes.
    bool Dirty() const { return bDirty_; }
    /// Always 0: the position on which a session ends is not passed back, and hosts rely on reading
    /// nothing here.
    std::int32_t CurrentProductIndex() const { return 0; }

private:
    void runSession(const std::shared_ptr<ProductMgr>& objProductMgr, std::int32_t lProdIdx, bool bAddNew);

    ui::Platform& platform_;
    bool bDirty_ = false;
};

} // namespace orvan
