#include "orvan/ui/qt/QtSettingsStore.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/files/Descriptor.h"
#include "orvan/files/WholeFile.h"
#include "orvan/ui/qt/QtText.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>

#include <optional>

// The store does not use QSettings: all QSettings objects for one file share what was read and what could not be
// written, so they do not always report a damaged file or a failed change.

namespace orvan::qt {

namespace {

/// How long a change waits for the lock: far longer than another change takes. QLockFile itself takes over the lock of
/// a program that has crashed.
constexpr int kLockMilliseconds = 5000;
/// A larger file cannot be settings, and would fill the memory.
constexpr std::int64_t kMostBytes = 64LL * 1024 * 1024;

/// Percent-encodes all characters except those in `plain`, letters, digits and "-._~". '%' is always encoded.
QByteArray encoded(std::string_view text, const QByteArray& plain)
{
    return QByteArray(text.data(), static_cast<qsizetype>(text.size())).toPercentEncoding(plain);
}

QByteArray headerLine(std::string_view application, std::string_view section)
{
    return '[' + encoded(application, {}) + '/' + encoded(section, {}) + ']';
}

QByteArray linePrefix(std::string_view key)
{
    return encoded(key, {}) + '=';
}

/// Leaves readable ASCII as it is, except for a space, which could be lost at an end of the line.
QByteArray valueText(std::string_view value)
{
    return encoded(value, "!\"#$&'()*+,/:;<=>?@[\\]^`{|}");
}

bool isDamaged(const QByteArray& line)
{
    const bool blank = line.isEmpty() || line.startsWith(';') || line.startsWith('#');
    const bool header = line.startsWith('[') && line.endsWith(']');
    return line.contains('\0') || (!blank && !header && !line.contains('='));
}

struct Place {
    std::optional<qsizetype> header; ///< The last line with the section's header.
    std::optional<qsizetype> line;   ///< The last line with the key; earlier ones are ignored.
};

Place findPlace(const QList<QByteArray>& lines, const QByteArray& header, const QByteArray& prefix)
{
    Place place;
    bool inside = false;
    for (qsizetype at = 0; at < lines.size(); ++at) {
        if (lines[at].startsWith('[')) {
            inside = lines[at] == header;
            place.header = inside ? at : place.header;
        } else if (inside && lines[at].startsWith(prefix)) {
            place.line = at;
        }
    }
    return place;
}

} // namespace

QtSettingsStore::QtSettingsStore(const std::string& path) : path_(toQt(path)) {}

std::string QtSettingsStore::defaultPath()
{
    return fromQt(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                  QStringLiteral("/Orvan/settings.ini"));
}

std::string QtSettingsStore::get(std::string_view application, std::string_view section, std::string_view key)
{
    const QList<QByteArray> lines = readLines();
    const QByteArray prefix = linePrefix(key);
    const Place place = findPlace(lines, headerLine(application, section), prefix);
    if (!place.line) {
        return {};
    }
    return QByteArray::fromPercentEncoding(lines[*place.line].mid(prefix.size())).toStdString();
}

void QtSettingsStore::set(std::string_view application, std::string_view section, std::string_view key,
                          std::string_view value)
{
    if (!QDir().mkpath(QFileInfo(path_).path())) {
        raise(Doing::writing, userText("its folder cannot be made"));
    }
    const QString lockName = path_ + QStringLiteral(".lock");
    try {
        files::refuseOtherThanFile(pathOf(lockName)); // QLockFile would wait at a pipe for a writer
    } catch (const RuntimeError& error) {
        raise(Doing::writing, userText("its lock file cannot be used: %1", error.userText()));
    }
    QLockFile lock(lockName);
    if (!lock.tryLock(kLockMilliseconds)) {
        raise(Doing::writing, userText("it cannot be locked"));
    }
    QList<QByteArray> lines = readLines();
    const QByteArray header = headerLine(application, section);
    const QByteArray prefix = linePrefix(key);
    const Place place = findPlace(lines, header, prefix);
    const QByteArray line = prefix + valueText(value);
    if (place.line) {
        lines[*place.line] = line;
    } else if (place.header) {
        lines.insert(*place.header + 1, line);
    } else {
        lines << header << line;
    }
    writeLines(lines);
}

QList<QByteArray> QtSettingsStore::readLines() const
{
    if (!QFileInfo::exists(path_)) {
        return {};
    }
    QByteArray text;
    try {
        text = QByteArray::fromStdString(files::readFile(pathOf(path_), kMostBytes).bytes);
    } catch (const RuntimeError& error) {
        raise(Doing::reading, error.userText());
    }
    if (text.startsWith("\xEF\xBB\xBF")) {
        text.remove(0, 3); // a byte order mark that an editor has written
    }
    QList<QByteArray> lines = text.split('\n');
    for (QByteArray& line : lines) {
        line = line.trimmed(); // a person's editor may have left spaces and carriage returns
        if (isDamaged(line)) {
            raise(Doing::reading, userText("it is damaged"));
        }
    }
    if (lines.last().isEmpty()) {
        lines.removeLast(); // the empty text after the last line end
    }
    return lines;
}

void QtSettingsStore::writeLines(const QList<QByteArray>& lines) const
{
    std::string text;
    for (const QByteArray& line : lines) {
        text.append(line.constData(), static_cast<std::size_t>(line.size())).append("\n");
    }
    try {
        static_cast<void>(files::replaceFile(pathOf(path_), text));
    } catch (const RuntimeError& error) {
        raise(Doing::writing, error.userText());
    }
}

void QtSettingsStore::raise(Doing what, const UserText& reason) const
{
    throw RuntimeError(ErrorNumber::pathFileAccess, {},
                       what == Doing::reading
                           ? userText("the settings \"%1\" cannot be read: %2", fromQt(path_), reason)
                           : userText("the settings \"%1\" cannot be written: %2", fromQt(path_), reason));
}

} // namespace orvan::qt
