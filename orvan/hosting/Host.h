// Host: everything a program needs around a list view, made in the right order.
//
// Owns the component classes, the user's locale and the platform; the library's own components
// (product manager, catalogue look-up, trace log) are registered. A program replaces any of them through components()
// before it makes its first view, and the locale's service by HostOptions. Thread: one host per thread; it outlives the
// views made on it. The constructor raises a RuntimeError: 51 when the locale library's data is missing.
#pragma once

#include "orvan/hosting/ComponentRegistry.h"
#include "orvan/hosting/DefaultComponents.h"
#include "orvan/hosting/ThreadMessages.h"
#include "orvan/ui/EditingWay.h"
#include "orvan/ui/LocaleService.h"
#include "orvan/ui/icu/LocaleNames.h"

#include <memory>
#include <utility>

namespace orvan {

struct HostOptions {
    DefaultComponentOptions components = {};
    icu::LocaleNames locale = icu::localeNamesFromEnvironment();
    /// A service of the host's own, in place of the one that is made for `locale`. Its formats may change while the
    /// host runs, for instance to another currency: what is shown or opened after that has the new ones.
    std::shared_ptr<ui::LocaleService> localeService = {};
    ui::EditingWay editing = ui::EditingWay::classic; ///< orvan/core/Deviations.h lists the differences.
};

/// The user's number and money formats, as ICU knows them. Raises 51 when ICU's data is missing, and 5 for a currency
/// that is no code of three letters.
[[nodiscard]] std::unique_ptr<ui::LocaleService> makeLocaleService(const icu::LocaleNames& names);

template <class PlatformType>
class Host {
public:
    Host() : Host(asRuntimeError([] { return HostOptions(); })) {}
    /// The arguments after the options are passed to the platform's constructor.
    template <class... PlatformArguments>
    explicit Host(const HostOptions& options, PlatformArguments&&... platformArguments)
    try : locale_(options.localeService ? options.localeService : makeLocaleService(options.locale)),
        platform_(*locale_, components_, std::forward<PlatformArguments>(platformArguments)...),
        messages_(platform_.messageBox()) {
        platform_.editing = options.editing;
        DefaultComponentOptions components = options.components;
        if (options.editing == ui::EditingWay::classic) { // its completions, and so its traces, stay as they were
            components.catalogue.completionAsTyped = true;
        }
        registerDefaultComponents(components_, components);
    } catch (...) {
        raiseCurrentError();
    }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    ComponentRegistry& components() { return components_; }
    PlatformType& platform() { return platform_; }

private:
    ComponentRegistry components_;
    std::shared_ptr<ui::LocaleService> locale_;
    PlatformType platform_;
    ThreadMessages messages_;
};

} // namespace orvan
