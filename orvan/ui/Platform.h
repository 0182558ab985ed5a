// Platform: the services of the system that the library runs on, handed to the logic as one object.
//
// Ownership: the host owns the platform; it outlives every view made on it. Thread: the
// user-interface thread (a host with several such threads makes one platform for each).
#pragma once

#include "orvan/base/RuntimeError.h"
#include "orvan/core_export.h"
#include "orvan/ui/Clipboard.h"
#include "orvan/ui/ComponentFactory.h"
#include "orvan/ui/EditingWay.h"
#include "orvan/ui/LocaleService.h"
#include "orvan/ui/MessageBox.h"
#include "orvan/ui/SettingsStore.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>

namespace orvan::ui {

class EventTap;
class Form;
class ScreenPointer;
struct FormDesign;

/// Stands in for the address of a host that names none.
inline constexpr const char* kSupportAddress = "support@orvan.example";

/// Services of a host that a platform uses in place of its own; null: the platform's own. The platform shares them as
/// long as it lives, and calls them in its thread.
struct HostServices {
    std::shared_ptr<SettingsStore> settings = {};
    std::shared_ptr<MessageBox> messageBox = {};
};

class ORVAN_CORE_EXPORT Platform {
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
    /// outlive the form. `ownerWindow` is a handle such as Message::ownerWindow; 0, or a window that no longer exists:
    /// the form belongs to the window that is active when it is shown. Raises what making a Surface of the same design
    /// raises.
    [[nodiscard]] virtual std::unique_ptr<Form> loadForm(const FormDesign& design, std::int32_t ownerWindow) = 0;

    /// The way of editing of the forms and views that are made from now on.
    EditingWay editing = EditingWay::classic;

    /// Where users find help: the message about an error that closes a dialog names it. UTF-8; shown as it is.
    std::string supportAddress = kSupportAddress;

    /// Hears of all events, and gives the logic that begins from now on its services (orvan/ui/EventTap.h), while a
    /// recording is made or replayed; null otherwise.
    std::shared_ptr<EventTap> tap;

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
