// Host: everything a program needs around a list view, made in the right order.
//
// Owns the component classes, the user's locale and the platform; the library's own components
// (product manager, catalogue look-up, trace log) are registered. A program replaces any of this by HostOptions, and
// component classes also through components() before it makes its first view. Thread: one host per thread; it outlives
// the views made on it. The constructor raises a RuntimeError: 51 when the locale library's data is missing.
#pragma once

#include "orvan/catalogue_export.h"
#include "orvan/core/ProductMgr.h"
#include "orvan/core/Trace.h"
#include "orvan/hosting/ComponentRegistry.h"
#include "orvan/hosting/DefaultComponents.h"
#include "orvan/hosting/ThreadMessages.h"
#include "orvan/lookup/ProductLkpMgr.h"
#include "orvan/recording/Recording.h"
#include "orvan/ui/Platform.h"
#include "orvan/ui/icu/LocaleNames.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace orvan {

struct HostOptions {
    DefaultComponentOptions components = {};
    icu::LocaleNames locale = icu::localeNamesFromEnvironment();
    /// A service of the host's own, in place of the one that is made for `locale`. Its formats may change while the
    /// host runs, for instance to another currency: what is shown or opened after that has the new ones.
    std::shared_ptr<ui::LocaleService> localeService = {};
    ui::EditingWay editing = ui::EditingWay::classic; ///< orvan/core/Deviations.h lists the differences.

    // Services of the host's own. What is left empty is the library's own. The host shares each service to its end and
    // calls it in its own thread. What a service throws counts as what the library's own would have raised.

    /// Keeps what users choose, such as columns and their widths.
    std::shared_ptr<ui::SettingsStore> settings = {};
    /// Asks the user everything that the library asks, and tells the errors that the library's trace log shows.
    std::shared_ptr<ui::MessageBox> messageBox = {};
    /// What the message about an error that closes a dialog names for help: an address or a number. UTF-8.
    std::string supportAddress = ui::kSupportAddress;

    // Components of the host's own, in place of the three of `components`. Each function makes a new object, which the
    // library shares; it may be called as long as the host lives, and throw. Where it throws or returns null, creating
    // the object raises what ComponentRegistry::create does.

    /// Called once in each thread that uses the library, with the thread's first object of the library. A thread that
    /// has a trace object already keeps it, whatever a later host says.
    std::function<std::shared_ptr<Trace>()> makeTrace = {};
    /// Called for each session of the editor.
    std::function<std::shared_ptr<ProductLkpMgr>()> makeCatalogue = {};
    /// Called for each list, and whenever the library needs an empty one.
    std::function<std::shared_ptr<ProductMgr>()> makeProductMgr = {};

    /// Records all list views, if it names a file. Where makeProductMgr makes a manager that is not the library's own,
    /// its `ownManager` is to be false.
    RecordingOptions recording = {};
};

/// The user's number and money formats, as ICU knows them. Raises 51 when ICU's data is missing, and 5 for a currency
/// that is no code of three letters.
[[nodiscard]] ORVAN_CATALOGUE_EXPORT std::unique_ptr<ui::LocaleService>
makeLocaleService(const icu::LocaleNames& names);

template <class PlatformType>
class Host {
public:
    Host() : Host(asRuntimeError([] { return HostOptions(); })) {}
    /// The arguments after the options are passed to the platform's constructor.
    template <class... PlatformArguments>
    explicit Host(const HostOptions& options, PlatformArguments&&... platformArguments)
    try : locale_(options.localeService ? options.localeService : makeLocaleService(options.locale)),
        platform_(*locale_, components_, std::forward<PlatformArguments>(platformArguments)...),
        messages_((platform_.useServices({options.settings, options.messageBox}), platform_.messageBox())) {
        platform_.editing = options.editing;
        platform_.supportAddress = options.supportAddress;
        DefaultComponentOptions components = options.components;
        if (options.editing == ui::EditingWay::classic) { // its completions, and so its traces, stay as they were
            components.catalogue.completionAsTyped = true;
        }
        registerDefaultComponents(components_, components);
        replace(kTraceClassName, options.makeTrace);
        replace(kProductLkpMgrClassName, options.makeCatalogue);
        replace(kProductMgrClassName, options.makeProductMgr);
        if (!options.recording.file.empty()) {
            startRecording(platform_, options.recording);
        }
    } catch (...) {
        raiseCurrentError();
    }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    ComponentRegistry& components() { return components_; }
    PlatformType& platform() { return platform_; }

private:
    template <class Factory>
    void replace(std::string_view className, const Factory& factory)
    {
        if (factory) {
            components_.registerClass(std::string(className), factory);
        }
    }

    ComponentRegistry components_;
    std::shared_ptr<ui::LocaleService> locale_;
    PlatformType platform_;
    ThreadMessages messages_;
};

} // namespace orvan
