// LayeredSettings: the user's settings above those of the computer.
//
// What the user has not set is as the computer's file says; what that file locks is as it says in any case. A user's
// own value of a locked setting is kept, and counts again once the lock is gone. Stores cannot tell an empty text from
// one that is not set. So a line of the letterhead that the user has emptied is stored as kBlank, for it would be the
// computer's again otherwise. Thread and errors: as of the user's store. A locked setting does not ask that store.
#pragma once

#include "SystemSettings.h"

#include "orvan/ui/SettingsStore.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvan::desk {

class LayeredSettings : public ui::SettingsStore {
public:
    /// `system` outlives this object.
    LayeredSettings(std::shared_ptr<ui::SettingsStore> user, const SystemSettings& system);

    std::string get(std::string_view application, std::string_view section, std::string_view key) override;
    /// Stores nothing where the setting is locked. A value that the computer's file has, too, is stored as "not set",
    /// so that the user's dialogs, which store all that they show, do not turn it into the user's own. An empty value
    /// is stored as kBlank where the user may do without what the computer's file has.
    void set(std::string_view application, std::string_view section, std::string_view key,
             std::string_view value) override;

private:
    const std::shared_ptr<ui::SettingsStore> user_;
    const SystemSettings& system_;
};

/// What the user's store keeps in the place of an empty text that goes before the computer's. It is a blank, so that a
/// desk of an earlier version prints nothing, too.
inline constexpr std::string_view kBlank = " ";

/// The user's own value of a setting, out of what the store has; none where the user has not set it.
[[nodiscard]] std::optional<std::string> ownValue(const SettingRow& row, std::string stored);

/// The settings of this user on this computer.
[[nodiscard]] std::shared_ptr<ui::SettingsStore> deskSettings();

/// One row of `orvan-desk --settings`.
struct ListedSetting {
    QString name, value;
    QString origin; ///< "built in", "system file /etc/xdg/orvan/defaults.conf", "user file ...", "command line"
    bool locked = false;
};

/// A setting with where its value comes from. `option` and `builtIn` give the value of the command line, which may be
/// none, and of the desk itself. Raises 75 where the user's settings cannot be read.
template <class Option, class BuiltIn>
ListedSetting listSetting(const SettingRow& row, ui::SettingsStore& user, const QString& userFile,
                          const SystemSettings& system, Option&& option, BuiltIn&& builtIn)
{
    const SystemSettings::Choice& choice = system.choice(row.name);
    const bool locked = system.locks(row.name);
    const std::optional<std::string> own =
        locked ? std::nullopt : ownValue(row, user.get(ui::kSettingsApplication, row.section, row.key));
    const std::optional<QString> asked = locked ? std::nullopt : option(row);
    const QString name = QString::fromUtf8(row.name.data(), qsizetype(row.name.size()));
    if (asked) {
        return {name, *asked, QStringLiteral("command line")};
    }
    if (own) {
        return {name, QString::fromStdString(*own), QStringLiteral("user file ") + userFile};
    }
    if (choice.value) {
        return {name, *choice.value, QStringLiteral("system file ") + choice.file, locked};
    }
    return {name, builtIn(row), QStringLiteral("built in"), locked};
}

/// The same for all settings.
template <class Option, class BuiltIn>
std::vector<ListedSetting> listSettings(ui::SettingsStore& user, const QString& userFile, const SystemSettings& system,
                                        Option&& option, BuiltIn&& builtIn)
{
    std::vector<ListedSetting> list;
    for (const SettingRow& row : settingRows()) {
        list.push_back(listSetting(row, user, userFile, system, option, builtIn));
    }
    return list;
}

} // namespace orvan::desk
