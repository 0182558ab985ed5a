#include "SettingsCommand.h"

#include "apps/orvan-desk/CatalogueMenu.h"
#include "apps/shared/TerminalText.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/ui/Platform.h"
#include "orvan/ui/qt/QtSettingsStore.h"

#include <QLocale>
#include <QTextStream>

#include <algorithm>
#include <optional>

namespace orvan::desk {

namespace {

QString builtIn(const SettingRow& row)
{
    return row.name == "catalogue"         ? defaultCatalogueFile()
           : row.name == "language"        ? QLocale::system().uiLanguages().join(u',')
           : row.name == "theme"           ? QStringLiteral("system")
           : row.name == "editing"         ? QStringLiteral("careful")
           : row.name == "support-address" ? QString::fromUtf8(ui::kSupportAddress)
                                           : QString();
}

QString nameOf(const SettingRow& row)
{
    return QString::fromUtf8(row.name.data(), qsizetype(row.name.size()));
}

/// Gives the value of a setting in the command line; none where it is not there.
auto optionIn(const QCommandLineParser& line)
{
    return [&line](const SettingRow& row) {
        return row.hasOption && line.isSet(nameOf(row)) ? std::optional(line.value(nameOf(row))) : std::nullopt;
    };
}

} // namespace

std::vector<ListedSetting> listedSettings(const QCommandLineParser& line)
{
    qt::QtSettingsStore user;
    return listSettings(user, QString::fromStdString(qt::QtSettingsStore::defaultPath()), systemSettings(),
                        optionIn(line), builtIn);
}

QString settingValue(const QCommandLineParser& line, std::string_view name)
{
    const auto row = std::find_if(settingRows().begin(), settingRows().end(),
                                  [&](const SettingRow& each) { return each.name == name; });
    if (row == settingRows().end()) {
        return {};
    }
    qt::QtSettingsStore user; // reads the file for each value, so a start asks for no more than it needs
    return listSetting(*row, user, {}, systemSettings(), optionIn(line), builtIn).value;
}

QString lockedOption(const QCommandLineParser& line)
{
    for (const SettingRow& row : settingRows()) {
        if (row.hasOption && line.isSet(nameOf(row)) && systemSettings().locks(row.name)) {
            return nameOf(row);
        }
    }
    return {};
}

bool printSettings(const QCommandLineParser& line, void (*complain)(const QString&))
{
    for (const QString& problem : systemSettings().problems) {
        complain(problem);
    }
    try {
        QTextStream out(stdout);
        for (const ListedSetting& setting : listedSettings(line)) {
            const QString value =
                QString(setting.value).replace(u'\\', QStringLiteral("\\\\")).replace(u'\n', QStringLiteral("\\n"));
            const QString row = QStringLiteral("%1 %2 %3: %4")
                                    .arg(setting.name, -16)
                                    .arg(setting.locked ? QStringLiteral("locked") : QStringLiteral("-"), -7)
                                    .arg(setting.origin, value);
            out << QString::fromStdString(shared::terminalText(row.toStdString())) << '\n';
        }
    } catch (const RuntimeError& error) {
        complain(QString::fromUtf8(error.what()));
        return false;
    }
    return systemSettings().problems.isEmpty();
}

} // namespace orvan::desk
