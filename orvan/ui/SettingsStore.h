// SettingsStore: the user's own settings, kept between runs.
//
// Ownership: the platform. Raises 75. Thread: the user-interface thread.
#pragma once

#include <string>
#include <string_view>

namespace orvan::ui {

/// The application name under which the library and its desk keep their settings.
inline constexpr std::string_view kSettingsApplication = "Orvan";

class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    /// "" for a missing key. All texts UTF-8. Raises 75 when the store cannot be read.
    [[nodiscard]] virtual std::string get(std::string_view application, std::string_view section,
                                          std::string_view key) = 0;
    /// The value is stored when this returns. Raises 75 when the store cannot be written; it is then unchanged.
    virtual void set(std::string_view application, std::string_view section, std::string_view key,
                     std::string_view value) = 0;
};

} // namespace orvan::ui
