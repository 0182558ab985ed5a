// WatchedPlatform: hands the logic the services of another platform, and watches their calls
// (orvan/outside/CallWatch.h).
//
// A view or a dialog that is made on it uses the watched services. Forms are the inner platform's, and so are the
// errors that leave event handlers. Ownership: the inner platform, the services and the watch must outlive it. Thread:
// the user-interface thread.
#pragma once

#include "orvan/catalogue_export.h"
#include "orvan/outside/CallWatch.h"
#include "orvan/outside/WatchedComponents.h"
#include "orvan/ui/Platform.h"

#include <functional>
#include <memory>
#include <string_view>

namespace orvan::outside {

class ORVAN_CATALOGUE_EXPORT WatchedPlatform : public ui::Platform {
public:
    /// What is used in place of the inner platform's own services.
    struct Own {
        ui::ComponentFactory& components;
        ui::MessageBox& messageBox;
        ui::LocaleService& locale;
        /// Components of this class are handed out as they are; "*": all of them are.
        std::string_view unwatchedClass = {};
    };

    WatchedPlatform(ui::Platform& inner, const Own& own, CallWatch& watch);
    WatchedPlatform(ui::Platform& inner, CallWatch& watch);
    ~WatchedPlatform() override;

    ui::MessageBox& messageBox() override;
    ui::SettingsStore& settings() override;
    ui::LocaleService& locale() override;
    ui::ComponentFactory& components() override;
    ui::ScreenPointer& pointer() override;
    ui::Clipboard& clipboard() override;
    std::unique_ptr<ui::Form> loadForm(const ui::FormDesign& design, std::int32_t ownerWindow) override;

    /// Called with each form that loadForm has made, before the form is shown.
    std::function<void(ui::Form& form)> onFormLoaded;

private:
    struct Services;

    ui::Platform& inner_;
    CallWatch& watch_;
    std::unique_ptr<Services> services_;
};

} // namespace orvan::outside
