// EditorSession: what the product editor shares with its fields and its look-up boxes.
//
// One object to its callers, the editor is built from several: the form holds this state and the
// callbacks, its fields and boxes are given it. Positions are 1-based. Ownership: the form owns the
// session and everything that is given it. Thread: the user-interface thread.
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

/// Sets a flag and clears it at the end of the scope, whatever it was before and however the scope
/// ends: a user who keeps a form open after an error shall find it working.
class ScopedFlag {
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

    virtual ui::Platform& platform() = 0;
    /// Owner of the session's message boxes.
    virtual std::int32_t window() = 0;

    /// Marks the session dirty, unless it is initializing; false clears the mark.
    virtual void PrvSetDirty(bool bDirty) = 0;
    /// Shows the current product in all controls.
    virtual void PrvLoadProductInfo() = 0;
    /// Tells the user that the dialog closes because of an error, and closes it.
    virtual void PrvCloseOnError() = 0;

    /// Error 91 when none is held.
    ProductMgr& productMgr() const { return required(objProductMgr); }
    ProductRecord& currentProduct() const { return required(objCurrentProduct); }

    /// Runs an event handler of the editor: an error is recorded, and closes the dialog.
    template <class Body>
    void handleEvent(std::string_view sLabel, Body&& body)
    {
        traceCloseDialog(sLabel, std::forward<Body>(body), [this] { PrvCloseOnError(); });
    }

    std::shared_ptr<ProductMgr> objProductMgr;        ///< From the end of the set-up until the form unloads.
    std::shared_ptr<ProductRecord> objCurrentProduct; ///< The record in the controls; may be none.
    LocaleStrings locale; ///< Read once a session.
    /// While true, requests to mark the session dirty are dropped and changes of amount boxes ignored.
    bool bInitializing = false;

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
