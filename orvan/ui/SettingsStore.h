// SettingsStore: the user's own settings, kept between runs.
//
// Each platform makes a store of its own kind: that of the platform in memory keeps the settings as long as the
// platform exists, that of the Qt platform keeps them in a file. HostOptions::settings (orvan/hosting/Host.h) replaces
// it with a store of the host's. The list view reads its columns when it is made and stores them when the user changes
// them; the desk keeps its own settings beside them. orvan/testing/SettingsStoreConformance.h tests a store against
// what is said here.
//
// Ownership: the platform. Errors: 75, as below. A list view whose settings cannot be read shows its defaults, and what
// cannot be stored is forgotten; both errors stand in the trace. Thread: the user-interface thread.
#pragma once

#include "orvan/core_export.h"

#include <string>
#include <string_view>

namespace orvan::ui {

/// The application name under which the library and its desk keep their settings.
inline constexpr std::string_view kSettingsApplication = "Orvan";

class ORVAN_CORE_EXPORT SettingsStore {
public:
    virtual ~SettingsStore() = default;

    /// The value of a key; "" if it is missing, so that a stored "" looks the same. The three names together make a
    /// place: the same key in another section or application is another one. Names and values are UTF-8 and may have
    /// any characters, line breaks included. Raises 75 when the store cannot be read.
    [[nodiscard]] virtual std::string get(std::string_view application, std::string_view section,
                                          std::string_view key) = 0;
    /// Stores a value in the place of the former one, before it returns. Raises 75 when the store cannot be written;
    /// the store is then unchanged.
    virtual void set(std::string_view application, std::string_view section, std::string_view key,
                     std::string_view value) = 0;
};

} // namespace orvan::ui
