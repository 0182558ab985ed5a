// SettingsStore: the user's own settings, kept between runs.
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
    virtual std::string get(std::string_view application, std::string_view section, std::string_view key) = 0;
    /// Stored when it returns. Raises 75 when the store cannot be written; it then is as it was.
    virtual void set(std::string_view application, std::string_view section, std::string_view key,
                     std::string_view value) = 0;
};

} // namespace orvan::ui
