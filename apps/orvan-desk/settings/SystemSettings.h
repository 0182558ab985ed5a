// SystemSettings: what the administrator of a computer has chosen for all its users.
//
// The file is orvan/defaults.conf in a folder of XDG_CONFIG_DIRS, usually /etc/xdg: lines "name = value", in UTF-8,
// with comments behind '#' at the beginning of a line; "\n" in a value is a line break and "\\" a backslash. "locked =
// name, name" names the settings in which neither users nor the command line have a say. Of several files the first
// folder's one counts, setting by setting, but what a later one locks stays as it is there. A lock saves users from
// changing something by mistake; it does not bind somebody who sets XDG_CONFIG_DIRS. A line that cannot be used is left
// out, and `problems` names its file and number. Thread: the user-interface thread.
#pragma once

#include <QString>
#include <QStringList>

#include <map>
#include <optional>
#include <string_view>
#include <vector>

namespace orvan::desk {

/// Which values a setting takes.
enum class SettingKind { choice, catalogue, path, line, text };

/// A setting that can be chosen for all users.
struct SettingRow {
    std::string_view name; ///< In the file; also of the command line's option, where there is one.
    SettingKind kind;
    std::string_view section, key; ///< Its place in the user's settings.
    bool hasOption;
    bool mayBeBlank = false; ///< A user may want none, although the computer's file has one.
};
[[nodiscard]] const std::vector<SettingRow>& settingRows();
/// The values of a setting that is a choice.
[[nodiscard]] QStringList settingChoices(std::string_view name);

class SystemSettings {
public:
    /// One setting of the system's.
    struct Choice {
        std::optional<QString> value;
        QString file;     ///< That has the value.
        QString lockedBy; ///< The file that locks it, with or without a value; empty where none does.
    };

    /// Reads the files, the one that counts most first. A missing file is none.
    explicit SystemSettings(const QStringList& files);

    /// The files of XDG_CONFIG_DIRS, whether they exist or not.
    [[nodiscard]] static QStringList files();

    [[nodiscard]] const Choice& choice(std::string_view name) const;
    [[nodiscard]] bool locks(std::string_view name) const { return !choice(name).lockedBy.isEmpty(); }

    QStringList problems; ///< "/etc/xdg/orvan/defaults.conf:3: there is no setting "colour""

private:
    void read(const QString& file);

    std::map<std::string_view, Choice> choices_;
};

/// The settings of this computer, read once.
[[nodiscard]] const SystemSettings& systemSettings();

} // namespace orvan::desk
