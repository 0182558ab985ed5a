// EditorSession: what the product editor shares with its fields and its look-up boxes.
//
// To its callers the editor is one object; it is built from several. The form derives from this class, which
// holds the shared state and declares the callbacks; the fields and the look-up boxes are given a reference.
// Ownership: the form owns them, so the session outlives them. Thread: the user-interface thread. Errors:
// 91 where an object is asked for that is not held; the callbacks raise what their procedures raise.
#pragma once

#include "orvan/core/ProductMgr.h"
#include "orvan/core/modInit.h"
#include "orvan/core/modLocale.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace orvan {

/// Sets a flag, and clears it at the end of the scope: whatever it was before, and however the scope ends.
/// After an error a user may keep the form open, and must then find it working.
class [[nodiscard]] ScopedFlag {
public:
    explicit ScopedFlag(bool& flag) : flag_(flag) { flag_ = true; }
    ScopedFlag(const ScopedFlag&) = delete;
    ScopedFlag& operator=(const ScopedFlag&) = delete;
    ~ScopedFlag() { flag_ = false; }

private:
    bool& flag_;
};

class EditorSession {
public:
    EditorSession() = default;
    EditorSession(const EditorSession&) = delete;
    EditorSession& operator=(const EditorSession&) = delete;
    virtual ~EditorSession() = default;

    [[nodiscard]] virtual ui::Platform& platform() = 0;
    /// Owner of the session's message boxes.
    [[nodiscard]] virtual std::int32_t window() = 0;

    /// Marks the session dirty, unless it is initializing; false clears the mark.
    virtual void PrvSetDirty(bool bDirty) = 0;
    /// Shows the current product in all controls.
    virtual void PrvLoadProductInfo() = 0;
    /// A catalogue entry has changed the current product's unit price: the extended price follows.
    virtual void priceAnew() {}
    /// Tells the user that the dialog closes because of an error, and closes it.
    virtual void PrvCloseOnError() = 0;

    /// The manager and the record that are held. Raise 91 when there is none. The manager is shared for the time of
    /// the call that is made to it: the call may end the session, which lets go of it.
    [[nodiscard]] std::shared_ptr<ProductMgr> productMgr() const { return required(objProductMgr), objProductMgr; }
    [[nodiscard]] ProductRecord& currentProduct() const { return required(heldProduct); }

    /// Runs an event handler of the editor: an error is recorded, and closes the dialog.
    template <class Body>
    void handleEvent(std::string_view label, Body&& body)
    {
        traceCloseDialog(label, std::forward<Body>(body), [this] { PrvCloseOnError(); });
    }

    std::shared_ptr<ProductMgr> objProductMgr; ///< From the end of the set-up until the form unloads.
    /// The current product: the record in the controls; may be none. A record's own code may ask the user, and
    /// the dialog may close meanwhile and let go of the record: a procedure that goes on using it keeps a copy.
    std::shared_ptr<ProductRecord> heldProduct;
    LocaleStrings locale; ///< Read once a session.
    /// While true, requests to mark the session dirty are dropped and changes of amount boxes ignored.
    bool initializing = false;
    bool showingProduct = false; ///< The program writes a product into the boxes.

private:
    template <class T>
    static T& required(const std::shared_ptr<T>& object)
    {
        if (!object) {
            throw RuntimeError(ErrorNumber::objectNotSet);
        }
        return *object;
    }
};

} // namespace orvan
