// SettingsCommand: `orvan-desk --settings` shows where each setting of the desk comes from.
#pragma once

#include "LayeredSettings.h"

#include <QCommandLineParser>

namespace orvan::desk {

inline const QString kSettingsOption = QStringLiteral("settings");

/// All settings with where their values come from, as they are with this command line. Raises 75 where the user's
/// settings cannot be read.
[[nodiscard]] std::vector<ListedSetting> listedSettings(const QCommandLineParser& line);

/// The value of a setting: of the command line, the user, the computer or the desk itself. Raises 75 where the user's
/// settings cannot be read.
[[nodiscard]] QString settingValue(const QCommandLineParser& line, std::string_view name);

/// The option of the command line that the computer's settings do not allow; empty if there is none.
[[nodiscard]] QString lockedOption(const QCommandLineParser& line);

/// Prints all settings; one line each: name, "locked" or "-", origin, value. The problems of the files go to
/// `complain`; false if there are any.
[[nodiscard]] bool printSettings(const QCommandLineParser& line, void (*complain)(const QString&));

} // namespace orvan::desk
