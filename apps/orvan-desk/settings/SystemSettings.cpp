#include "SystemSettings.h"

#include "apps/orvan-desk/Language.h"
#include "apps/orvan-desk/OutsideText.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/server/ServerUri.h"
#include "orvan/files/WholeFile.h"

#include <QDir>
#include <QFileInfo>
#include <QUtf8StringView>

#include <algorithm>
#include <utility>

namespace orvan::desk {

namespace {

constexpr std::int64_t kMostBytes = 1 << 20; // a larger file is something else
constexpr std::string_view kLocked = "locked";

QString quoted(const QString& text)
{
    return u'"' + shortened(text) + u'"';
}

/// The value without its escapes; none where there is an unknown one.
std::optional<QString> unescaped(const QString& written)
{
    QString value;
    for (qsizetype at = 0; at < written.size(); ++at) {
        if (written[at] != u'\\') {
            value += written[at];
            continue;
        }
        const QChar escaped = ++at < written.size() ? written[at] : QChar();
        if (escaped != u'n' && escaped != u'\\') {
            return std::nullopt;
        }
        value += escaped == u'n' ? u'\n' : u'\\';
    }
    return value;
}

/// Why a setting cannot have this value; empty if it can.
QString problemOf(const SettingRow& row, const QString& value)
{
    const std::string text = value.toStdString();
    switch (row.kind) {
    case SettingKind::choice:
        if (const QStringList choices = settingChoices(row.name); !choices.contains(value)) {
            return QStringLiteral("is one of %1, not %2").arg(choices.join(QStringLiteral(", ")), quoted(value));
        }
        return {};
    case SettingKind::catalogue:
        if (ServerUri::isUri(text)) {
            try {
                return ServerUri(text).hasPassword() ? QStringLiteral("has a password, which others could read here")
                                                     : QString();
            } catch (const RuntimeError& error) {
                return QStringLiteral("cannot be used: %1").arg(QString::fromUtf8(error.what()));
            }
        }
        [[fallthrough]];
    case SettingKind::path:
        return QDir::isAbsolutePath(value) ? QString()
                                           : QStringLiteral("needs the whole path, not %1").arg(quoted(value));
    case SettingKind::line: return value.contains(u'\n') ? QStringLiteral("has one line only") : QString();
    case SettingKind::text: break;
    }
    return {};
}

const SettingRow* rowNamed(const QString& name)
{
    const auto& rows = settingRows();
    const auto row =
        std::find_if(rows.begin(), rows.end(), [&](const SettingRow& each) { return name.toStdString() == each.name; });
    return row == rows.end() ? nullptr : &*row;
}

} // namespace

const std::vector<SettingRow>& settingRows()
{
    static const std::vector<SettingRow> rows{
        {"catalogue", SettingKind::catalogue, "Desk", "CatalogueServer", true},
        {"language", SettingKind::choice, "Desk", "Language", true},
        {"theme", SettingKind::choice, "Desk", "Theme", true},
        {"editing", SettingKind::choice, "Desk", "Editing", true},
        {"support-address", SettingKind::line, "Desk", "SupportAddress", false},
        {"seller-name", SettingKind::line, "DeskPrint", "SellerName", false, true},
        {"seller-address", SettingKind::text, "DeskPrint", "SellerAddress", false, true},
        {"logo", SettingKind::path, "DeskPrint", "Logo", false, true},
        {"closing-text", SettingKind::text, "DeskPrint", "ClosingText", false, true},
    };
    return rows;
}

QStringList settingChoices(std::string_view name)
{
    return name == "language" ? languages()
           : name == "theme"  ? QStringList{QStringLiteral("light"), QStringLiteral("dark"), QStringLiteral("system")}
                              : QStringList{QStringLiteral("careful"), QStringLiteral("classic")};
}

SystemSettings::SystemSettings(const QStringList& files)
{
    for (const SettingRow& row : settingRows()) {
        choices_[row.name] = {};
    }
    const QStringList fromWeakest(files.rbegin(), files.rend());
    for (const QString& file : fromWeakest) {
        read(file);
    }
}

QStringList SystemSettings::files()
{
    const QString folders = qEnvironmentVariable("XDG_CONFIG_DIRS");
    QStringList files;
    for (const QString& folder : (folders.isEmpty() ? QStringLiteral("/etc/xdg") : folders).split(u':')) {
        if (QDir::isAbsolutePath(folder)) { // the standard has others ignored
            files << QDir::cleanPath(folder + QStringLiteral("/orvan/defaults.conf"));
        }
    }
    return files;
}

const SystemSettings::Choice& SystemSettings::choice(std::string_view name) const
{
    return choices_.at(name);
}

void SystemSettings::read(const QString& file)
{
    if (!QFileInfo::exists(file) && !QFileInfo(file).isSymLink()) {
        return;
    }
    QByteArray bytes;
    try {
        bytes = QByteArray::fromStdString(files::readFile(pathOf(file), kMostBytes).bytes);
    } catch (const RuntimeError& error) {
        problems << QStringLiteral("%1: %2").arg(file, QString::fromUtf8(error.what()));
        return;
    }
    if (bytes.startsWith("\xEF\xBB\xBF")) {
        bytes.remove(0, 3); // a byte order mark that an editor has written
    }
    int number = 0;
    QStringList seen, locked;
    for (const QByteArray& written : bytes.split('\n')) {
        ++number;
        const auto refuse = [&](const QString& why) {
            problems << QStringLiteral("%1:%2: %3").arg(file).arg(number).arg(why);
        };
        const QString line = QString::fromUtf8(written).trimmed();
        if (line.isEmpty() || line.startsWith(u'#')) {
            continue;
        }
        const QString name = line.section(u'=', 0, 0).trimmed();
        const std::optional<QString> value = unescaped(line.section(u'=', 1).trimmed());
        const SettingRow* const row = rowNamed(name);
        if (!QUtf8StringView(written).isValidUtf8() || written.contains('\0')) {
            refuse(QStringLiteral("the line is not text in UTF-8"));
        } else if (!line.contains(u'=')) {
            refuse(QStringLiteral("a line has the form name = value, not %1").arg(quoted(line)));
        } else if (!row && name.toStdString() != kLocked) {
            refuse(QStringLiteral("there is no setting %1").arg(quoted(name)));
        } else if (seen.contains(name)) {
            refuse(QStringLiteral("%1 stands twice; the first one counts").arg(name));
        } else if (!value) {
            refuse(QStringLiteral("%1 has a backslash that is followed by neither n nor a backslash").arg(name));
        } else if (!row) {
            seen << name;
            for (const QString& each : value->split(u',', Qt::SkipEmptyParts)) {
                if (rowNamed(each.trimmed())) {
                    locked << each.trimmed();
                } else {
                    refuse(QStringLiteral("there is no setting %1 to lock").arg(quoted(each.trimmed())));
                }
            }
        } else if (const QString problem = value->isEmpty() ? QString() : problemOf(*row, *value); !problem.isEmpty()) {
            refuse(QStringLiteral("%1 %2").arg(name, problem));
        } else {
            seen << name;
            Choice& choice = choices_.at(row->name);
            if (choice.lockedBy.isEmpty() && !value->isEmpty()) {
                choice.value = value;
                choice.file = file;
            }
        }
    }
    for (const QString& name : locked) {
        if (Choice& choice = choices_.at(rowNamed(name)->name); choice.lockedBy.isEmpty()) {
            choice.lockedBy = file;
        }
    }
}

const SystemSettings& systemSettings()
{
    static const SystemSettings settings(SystemSettings::files());
    return settings;
}

} // namespace orvan::desk
