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

    /// The value of a key; "" if it is missing. All texts are UTF-8. Raises 75 when the store cannot be read.
    [[nodiscard]] virtual std::string get(std::string_view application, std::string_view section,
                                          std::string_view key) = 0;
    /// Stores a value before it returns. Raises 75 when the store cannot be written; the store is then unchanged.
    virtual void set(std::string_view application, std::string_view section, std::string_view key,
                     std::string_view value) = 0;
};

} // namespace orvan::ui
