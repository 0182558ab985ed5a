// ProductDlg: opens the product editor on one product of a list, or on a new one.
//
// Modal: Show, ShowAddNew and showReadOnly return when the user has closed the dialog. The editor works directly on
// the manager it is given, so the caller sees every change at once; a user who answers No to saving
// has the list put back as it was. An object may be used again: each call is a session of its own.
//
// Positions are 1-based. Ownership: the manager is shared for the time of the session; the platform
// must outlive the object and its sessions. The object itself may be destroyed while a session waits for the user: the
// session goes on to its end. Thread: the user-interface thread. Errors: where the dialog cannot be opened, all
// three raise a RuntimeError with a number alone; the trace has the texts. An error in an open dialog closes the
// dialog with a message and is not raised.
#pragma once

#include "orvan/base/Lifetime.h"
#include "orvan/core/ProductMgr.h"
#include "orvan/core_export.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace orvan {

namespace ui {
class Platform;
}

class ORVAN_CORE_EXPORT ProductDlg {
public:
    /// The dialog opens in the middle of the owner, on its screen and no larger than that. `ownerWindow` is a handle
    /// that the platform's host gives (on Qt orvan::ownerWindow of orvan/hosting/QtHost.h). 0, or a window that no
    /// longer exists: the window that is active when the dialog opens, if there is one.
    explicit ProductDlg(ui::Platform& platform, std::int32_t ownerWindow = 0);
    ProductDlg(const ProductDlg&) = delete;
    ProductDlg& operator=(const ProductDlg&) = delete;

    /// Opens the editor on the product at lProdIdx. The position is not checked: the manager decides what happens if
    /// it is outside the list (the library's own manager raises 9).
    void Show(const std::shared_ptr<ProductMgr>& objProductMgr, std::int32_t lProdIdx);
    /// Opens the editor on a new product at the end of the list, which makes the session dirty at once.
    void ShowAddNew(const std::shared_ptr<ProductMgr>& objProductMgr);

    /// Opens the dialog on the product at lProdIdx, checked as little as in Show, for a user who only looks: the boxes
    /// take no input, but their texts can be copied; the user goes through the list and closes the dialog. The library
    /// writes nothing to the manager, asks no catalogue, and leaves Dirty false. What the dialog is for does not change
    /// while it is open.
    void showReadOnly(const std::shared_ptr<ProductMgr>& objProductMgr, std::int32_t lProdIdx);

    /// Whether the last session changed anything; saving does not clear it. False before the first session.
    /// In the classic way of editing, two kinds of change do not count. The first is deleting a product: a host that
    /// must know compares the number of products. The second is a loss that opening the dialog causes, because it saves
    /// the values as the boxes show them: unit prices lose the decimals after the second, amounts their minus sign, and
    /// long texts are cut. In the careful way (HostOptions::editing in orvan/hosting/Host.h) deleting counts as any
    /// other change, and opening the dialog changes nothing.
    [[nodiscard]] bool Dirty() const { return dirty_; }
    /// Always 0, on purpose: hosts rely on it that a session does not pass back the position at which it ended.
    [[nodiscard]] std::int32_t CurrentProductIndex() const { return 0; }

    /// Called after each event of an open editor that may have changed the list. The editor's procedures are still
    /// running, so the handler only notes it. It is copied when a session begins.
    std::function<void()> onChange;

private:
    class Session;

    ui::Platform& platform_;
    std::int32_t ownerWindow_;
    bool dirty_ = false;
    Lifetime lifetime_;
};

} // namespace orvan
