#include "SupportDetails.h"

#include "SupportTrace.h"

#include "apps/orvan-desk/Language.h"
#include "apps/orvan-desk/OutsideText.h"
#include "apps/orvan-desk/QuoteLocale.h"
#include "apps/orvan-desk/servers/ServerCatalogue.h"
#include "apps/shared/TerminalText.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CatalogueFile.h"
#include "orvan/components/catalogue/server/LocalCopy.h"
#include "orvan/components/catalogue/server/ServerUri.h"
#include "orvan/hosting/Version.h"
#include "orvan/ui/icu/LocaleData.h"

#include <QApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QFontInfo>
#include <QLocale>
#include <QProxyStyle>
#include <QScreen>
#include <QStyle>
#include <QSysInfo>

#include <sqlite3.h>
#include <unicode/uversion.h>

#include <algorithm>
#include <chrono>

namespace orvan::desk {

namespace {

/// The text as it grows: headings, and below them rows with a name each.
class Text {
public:
    void heading(const QString& title) { add(u'\n' + title); }
    void row(const char* name, const QString& value) { row(QString::fromUtf8(name), value); }
    void row(const QString& name, const QString& value)
    {
        const QString shown = QString::fromStdString(shared::terminalText(value.toStdString()));
        add(QStringLiteral("  %1 %2").arg(name, -20).arg(shown));
    }
    void line(const QString& line) { add(QStringLiteral("  ") + line); }
    void add(const QString& line) { text += line + u'\n'; }

    QString text;
};

QString timeOf(const QDateTime& time)
{
    return time.isValid() ? time.toOffsetFromUtc(time.offsetFromUtc()).toString(Qt::ISODate)
                          : QStringLiteral("at an unknown time");
}

QString pathText(const std::filesystem::path& path)
{
    return QString::fromStdString(path.string());
}

QString environment(const char* name)
{
    return qEnvironmentVariable(name, QStringLiteral("not set"));
}

void addVersions(Text& text)
{
    const auto both = [](const QString& runs, const char* built) {
        return QStringLiteral("%1, built with %2").arg(runs, QString::fromUtf8(built));
    };
    UVersionInfo icu = {};
    char icuText[U_MAX_VERSION_STRING_LENGTH] = {};
    u_getVersion(icu);
    u_versionToString(icu, icuText);
    const std::string_view version = libraryVersion();
    text.heading(QStringLiteral("Versions"));
    text.row("Orvan Desk", QString::fromUtf8(version.data(), static_cast<qsizetype>(version.size())));
    text.row("Qt", both(QString::fromUtf8(qVersion()), QT_VERSION_STR));
    text.row("ICU", both(QString::fromUtf8(icuText), U_ICU_VERSION));
    text.row("SQLite", both(QString::fromUtf8(sqlite3_libversion()), SQLITE_VERSION));
}

void addSystem(Text& text)
{
    text.heading(QStringLiteral("System"));
    text.row("Operating system", QSysInfo::prettyProductName());
    text.row("Kernel", QSysInfo::kernelType() + u' ' + QSysInfo::kernelVersion());
    text.row("Processor", QSysInfo::currentCpuArchitecture());
    text.row("Desktop", environment("XDG_CURRENT_DESKTOP"));
    text.row("Kind of session", environment("XDG_SESSION_TYPE"));
}

void addLocale(Text& text)
{
    const icu::LocaleNames names = icu::localeNamesFromEnvironment();
    const auto name = [](const std::string& given) {
        return QStringLiteral("%1, from \"%2\"")
            .arg(QString::fromStdString(icu::icuLocaleId(given)), QString::fromStdString(given));
    };
    text.heading(QStringLiteral("Locale"));
    text.row("Language of texts", usedLanguage());
    text.row("Languages asked for", QLocale::system().uiLanguages().join(QStringLiteral(", ")));
    text.row("Number formats", name(names.numeric));
    text.row("Money formats", name(names.monetary));
    text.row("Currency", userCurrency(names));
    text.row("Dates", QLocale().name());
    text.row("Direction",
             QApplication::isRightToLeft() ? QStringLiteral("right to left") : QStringLiteral("left to right"));
}

void addScreens(Text& text)
{
    text.heading(QStringLiteral("Screen, font and style"));
    text.row("Window system", QApplication::platformName());
    if (QApplication::platformName() == u"offscreen") {
        text.line(
            QStringLiteral("No screen is used; Help > Copy Details for Support in the desk tells of the screens."));
    } else {
        for (const QScreen* const screen : QApplication::screens()) {
            text.row(QStringLiteral("Screen ") + screen->name(),
                     QStringLiteral("%1 x %2 pixels of the desk, each %3 of the screen's; %4 dots per inch%5")
                         .arg(screen->size().width())
                         .arg(screen->size().height())
                         .arg(screen->devicePixelRatio())
                         .arg(screen->logicalDotsPerInch())
                         .arg(screen == QApplication::primaryScreen() ? QStringLiteral("; the main one") : QString()));
        }
    }
    const QFont font = QApplication::font();
    text.row("Font", QStringLiteral("%1, %2 pt, shown as %3")
                         .arg(font.family())
                         .arg(QFontInfo(font).pointSizeF())
                         .arg(QFontInfo(font).family()));
    const auto* const own = qobject_cast<const QProxyStyle*>(QApplication::style());
    text.row("Style",
             own ? own->baseStyle()->name() + QStringLiteral(", with the desk's own") : QApplication::style()->name());
    text.row("Colours", QApplication::palette().window().color().lightness() < 128 ? QStringLiteral("dark")
                                                                                   : QStringLiteral("light"));
}

/// A catalogue's file or address, without a password.
QString shownCatalogue(const QString& catalogue)
{
    if (!isServer(catalogue)) {
        return catalogue;
    }
    try {
        return QString::fromStdString(ServerUri(catalogue.toStdString()).shown());
    } catch (const RuntimeError&) {
        return QStringLiteral("an address that cannot be used"); // which may have a password in a wrong place
    }
}

void addFile(Text& text, const std::filesystem::path& file)
{
    const QFileInfo info(pathText(file));
    if (!info.exists()) {
        text.row("State", QStringLiteral("there is no such file"));
        return;
    }
    text.row("Made", timeOf(info.lastModified()));
    text.row("Size", QStringLiteral("%1 bytes").arg(info.size()));
    try {
        SqliteFile catalogue = openCatalogue(file);
        const CatalogueOrigin origin = catalogueOrigin(catalogue);
        text.row("Entries", QString::number(origin.entries));
        text.row("Form", QString::number(catalogueVersion(catalogue)));
        text.row("In the order of", origin.language.empty() ? QStringLiteral("no language that it says")
                                                            : QString::fromStdString(origin.language));
    } catch (const RuntimeError& error) {
        text.row("State", QStringLiteral("it cannot be read: %1").arg(QString::fromUtf8(error.what())));
    }
}

/// The reason why no changes come is left out: it is what a server or a driver says, and may quote a row. The status
/// line has it.
void addCopyState(Text& text, const CatalogueCopyState& copy)
{
    text.row("Changes come", !copy.problem.empty() ? QStringLiteral("no; the desk's status line says why")
                             : copy.brought        ? QStringLiteral("yes")
                                                   : QStringLiteral("yes, another program of the user brings them"));
    text.row("As the server's",
             copy.checked ? timeOf(QDateTime::fromSecsSinceEpoch(std::chrono::system_clock::to_time_t(*copy.checked)))
                          : QStringLiteral("not yet known"));
    if (copy.percent) {
        text.row("Being copied", QStringLiteral("%1 %").arg(*copy.percent));
    }
}

void addCatalogue(Text& text, const DetailsSource& source)
{
    text.heading(QStringLiteral("Catalogue"));
    text.row(isServer(source.catalogue) ? "Server" : "File", shownCatalogue(source.catalogue));
    if (!isServer(source.catalogue)) {
        addFile(text, pathOf(source.catalogue));
        return;
    }
    try {
        const ServerUri uri(source.catalogue.toStdString());
        const std::filesystem::path folder = pathOf(copiesFolder()) / uri.identity();
        text.row("Local copy", pathText(LocalCopy::catalogueIn(folder)));
        addFile(text, LocalCopy::catalogueIn(folder));
        if (const std::optional<CopyState> copied = LocalCopy(folder).state()) {
            text.row("Revision", QString::number(copied->revision));
        }
    } catch (const RuntimeError& error) {
        text.row("Local copy", QStringLiteral("cannot be used, error %1").arg(error.number()));
    }
    if (source.copy) {
        addCopyState(text, *source.copy);
    }
}

bool isLetterhead(const QString& name)
{
    const auto& rows = settingRows();
    return std::any_of(rows.begin(), rows.end(), [&](const SettingRow& row) {
        return row.name == name.toStdString() && row.section == "DeskPrint";
    });
}

void addSettings(Text& text, const DetailsSource& source)
{
    text.heading(QStringLiteral("Settings"));
    text.row("Way of editing", source.editing);
    try {
        for (const ListedSetting& setting : source.settings ? source.settings() : std::vector<ListedSetting>()) {
            const QString value = !isLetterhead(setting.name) ? shownCatalogue(setting.value)
                                  : setting.value.isEmpty()   ? QStringLiteral("not set")
                                                              : QStringLiteral("set");
            text.row(setting.name,
                     QStringLiteral("%1 (%2%3)")
                         .arg(value, setting.origin, setting.locked ? QStringLiteral(", locked") : QString()));
        }
    } catch (const RuntimeError& error) {
        text.line(QStringLiteral("The user's settings cannot be read: error %1.").arg(error.number()));
    }
    if (const qsizetype problems = systemSettings().problems.size(); problems > 0) { // they may quote a letterhead
        text.line(QStringLiteral("Lines of defaults.conf that cannot be used: %1; orvan-desk --settings names them.")
                      .arg(problems));
    }
}

void addTrace(Text& text, const std::filesystem::path& log)
{
    text.row("File", pathText(log));
    text.row("Written", timeOf(QFileInfo(pathText(log)).lastModified()));
    const TraceExcerpt excerpt = lastTraceLines(log);
    for (const QString& line : excerpt.lines) {
        text.line(line);
    }
    if (excerpt.leftOut > 0) {
        text.line(QStringLiteral("Lines of other kinds that are left out: %1.").arg(excerpt.leftOut));
    }
    if (excerpt.lines.isEmpty() && excerpt.leftOut == 0) {
        text.line(QStringLiteral("Nothing can be read in it."));
    }
}

void addTraces(Text& text, const std::filesystem::path& own)
{
    const std::filesystem::path folder = own.parent_path();
    std::error_code unreadable;
    const bool traced = std::filesystem::exists(own, unreadable);
    const std::optional<std::filesystem::path> other = traced ? std::nullopt : newestTrace(folder, own);
    const std::optional<std::filesystem::path> crashed = newestCrashTrace(folder, own);
    text.heading(QStringLiteral("Last lines of the trace"));
    if (traced || other) {
        text.line(traced ? QStringLiteral("Of this process.")
                         : QStringLiteral("This process has written none; the newest trace of another one:"));
        addTrace(text, traced ? own : *other);
    } else {
        text.line(own.empty() ? QStringLiteral("The user has no home directory, so no trace is written.")
                              : QStringLiteral("There is no trace in %1.").arg(pathText(folder)));
    }
    text.heading(QStringLiteral("Last lines of the trace of the last program that did not end in order"));
    if (!crashed) {
        text.line(QStringLiteral("There is none."));
    } else if (crashed == other) {
        text.line(QStringLiteral("They stand above."));
    } else {
        addTrace(text, *crashed);
    }
}

} // namespace

QString supportDetails(const DetailsSource& source)
{
    Text text;
    text.add(QStringLiteral("Details of Orvan Desk for support, %1").arg(timeOf(QDateTime::currentDateTime())));
    text.add(QStringLiteral("They name no product, no customer and no text of the letterhead."));
    addVersions(text);
    addSystem(text);
    addLocale(text);
    addScreens(text);
    addCatalogue(text, source);
    addSettings(text, source);
    addTraces(text, source.ownTrace);
    return text.text;
}

} // namespace orvan::desk
