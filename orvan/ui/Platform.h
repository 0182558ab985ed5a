// Platform: the services of the system that the library runs on, handed to the logic as one object.
//
// Ownership: the host owns the platform; it outlives every view made on it. Thread: the
// user-interface thread (a host with several such threads makes one platform for each).
#pragma once

#include "orvan/base/RuntimeError.h"
#include "orvan/ui/Clipboard.h"
#include "orvan/ui/ComponentFactory.h"
#include "orvan/ui/EditingWay.h"
#include "orvan/ui/LocaleService.h"
#include "orvan/ui/MessageBox.h"
#include "orvan/ui/SettingsStore.h"

#include <functional>
#include <type_traits>

namespace orvan::ui {

class Form;
class ScreenPointer;
struct FormDesign;

class Platform {
public:
    virtual ~Platform() = default;

    virtual MessageBox& messageBox() = 0;
    virtual SettingsStore& settings() = 0;
    virtual LocaleService& locale() = 0;
    virtual ComponentFactory& components() = 0;
    virtual ScreenPointer& pointer() = 0;
    /// By default one that only this platform uses.
    virtual Clipboard& clipboard() { return clipboard_; }
    /// Makes a form and all its controls without showing it (see orvan/ui/Form.h). Never null. The platform must
    /// outlive the form. Raises what making a Surface of the same design raises.
    [[nodiscard]] virtual std::unique_ptr<Form> loadForm(const FormDesign& design) = 0;

    /// The way of editing of the forms and views that are made from now on.
    EditingWay editing = EditingWay::classic;

    /// Takes an error that left an event handler. No exception may cross a toolkit's event loop: the
    /// platform calls this instead and goes on. A host may set its own; it must not throw.
    std::function<void(const RuntimeError&)> onUnhandledError;

    /// Runs the work. An error that it throws goes to onUnhandledError, and the result is then a default value.
    template <class Work>
    std::invoke_result_t<Work> dispatch(Work&& work) noexcept
    {
        try {
            return work();
        } catch (...) {
            const RuntimeError error = currentError();
            if (onUnhandledError) {
                onUnhandledError(error);
            }
        }
        return std::invoke_result_t<Work>();
    }

private:
    Clipboard clipboard_;
};

} // namespace orvan::ui
