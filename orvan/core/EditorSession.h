// EditorSession: what the product editor shares with its fields and its look-up boxes.
//
// Its callers see the editor as one object, but it consists of several. The form derives from this class, which
// holds the shared state and declares the callbacks; the fields and the look-up boxes get a reference to it.
// Ownership: the form owns the fields and the boxes, so the session outlives them. Thread: the user-interface
// thread. Errors: asking for an object that is not held raises 91; the callbacks raise what their procedures raise.
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

/// Sets a flag and clears it at the end of the scope, also after an error: a user may keep the form open then, and it
/// must still work. The flag is deliberately cleared even if it was set before.
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
    explicit EditorSession(bool toRead = false) : readOnly(toRead) {}
    EditorSession(const EditorSession&) = delete;
    EditorSession& operator=(const EditorSession&) = delete;
    virtual ~EditorSession() = default;

    [[nodiscard]] virtual ui::Platform& platform() = 0;
    /// The handle of the window that owns the session's message boxes.
    [[nodiscard]] virtual std::int32_t window() = 0;

    /// Marks the session dirty, unless it is initializing; false clears the mark.
    virtual void PrvSetDirty(bool bDirty) = 0;
    /// Shows the current product in all controls.
    virtual void PrvLoadProductInfo() = 0;
    /// A catalogue entry has changed the current product's unit price: the extended price follows.
    virtual void priceAnew() {}
    /// Called at the end of each event handler.
    virtual void eventHandled() {}
    /// Tells the user that the dialog closes because of an error, and closes it.
    virtual void PrvCloseOnError() = 0;

    /// The manager and the record that the session holds. Each raises 91 when there is none. Each is shared for the
    /// time of the call that is made to it: the call may run a host's code, which may end the session, and the session
    /// then releases both. So a procedure calls them by these functions, or keeps what they return, and never a
    /// reference.
    [[nodiscard]] std::shared_ptr<ProductMgr> productMgr() const { return required(objProductMgr), objProductMgr; }
    [[nodiscard]] std::shared_ptr<ProductRecord> currentProduct() const { return required(heldProduct), heldProduct; }

    /// Runs an event handler of the editor: an error is recorded, and closes the dialog.
    template <class Body>
    void handleEvent(std::string_view label, Body&& body)
    {
        traceCloseDialog(label, std::forward<Body>(body), [this] { PrvCloseOnError(); });
        eventHandled();
    }

    /// The session only shows products: no box takes input, nothing is looked up, and nothing is written to a product.
    /// It stays what it was when the session began.
    const bool readOnly;
    std::shared_ptr<ProductMgr> objProductMgr; ///< Set from the end of the form's set-up until the form unloads.
    /// The current product, whose values the controls show; may be null.
    std::shared_ptr<ProductRecord> heldProduct;
    LocaleStrings locale; ///< Read once for each session.
    /// While true, requests to mark the session dirty are dropped and changes of amount boxes ignored.
    bool initializing = false;
    bool showingProduct = false; ///< The program writes a product into the boxes.
    /// The session has gone on to another product, and not all boxes show it yet. Stays true if an error interrupts it.
    bool halfShown = false;

private:
    template <class T>
    static void required(const std::shared_ptr<T>& object)
    {
        if (!object) {
            throw RuntimeError(ErrorNumber::objectNotSet);
        }
    }
};

} // namespace orvan
