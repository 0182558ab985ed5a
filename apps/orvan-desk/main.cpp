// orvan-desk: opens, edits and saves quotes.

#include "CatalogueMenu.h"
#include "DeskSettings.h"
#include "EndSignals.h"
#include "Language.h"
#include "MainWindow.h"
#include "OutsideText.h"
#include "PdfCommand.h"
#include "PlacePrinter.h"
#include "QuoteLocale.h"
#include "WindowIcon.h"
#include "WindowPlace.h"
#include "servers/ServerCatalogue.h"
#include "settings/SettingsCommand.h"
#include "support/SupportDetails.h"

#include "apps/shared/TerminalText.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/files/WholeFile.h"
#include "orvan/hosting/QtHost.h"
#include "orvan/hosting/Version.h"
#include "orvan/ui/qt/Translation.h"

#include <QApplication>
#include <QBuffer>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QTextStream>
#include <QTimer>

#include <optional>

namespace {

constexpr int kFailed = 1, kWrongUse = 2;
constexpr const char* kHelpEnd = R"(
Files:
  /etc/xdg/orvan/defaults.conf
      What holds for all users of the computer, in lines name = value: catalogue, language, theme, editing,
      support-address, seller-name, seller-address, logo, closing-text. A line such as locked = catalogue, seller-name
      takes these settings from the users. The folder is one of XDG_CONFIG_DIRS.
  ~/.config/Orvan/settings.ini
      What the user has chosen. The command line goes before it, and it goes before the former file.

Exit status:
  0   The desk was closed, or what was asked for was written.
  1   A file, or a setting that was asked for, could not be read or written.
  2   The command line is wrong, or a setting in it is locked.
)";

void complain(const QString& problem)
{
    QTextStream(stderr) << QString::fromStdString(orvan::shared::terminalText(problem.toStdString())) << '\n';
}

/// Writes a picture of the window. Raises 75 where it cannot be written.
void writePicture(QWidget& window, const QString& path)
{
    QApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest); // of what has only just got its text
    QBuffer picture;
    const QByteArray format = QFileInfo(path).suffix().toLatin1();
    if (!picture.open(QIODevice::WriteOnly) || !window.grab().save(&picture, format.constData())) {
        throw orvan::RuntimeError(orvan::ErrorNumber::pathFileAccess, {}, "there is no such picture format");
    }
    const QByteArray& bytes = picture.data();
    static_cast<void>(orvan::files::replaceFile(orvan::desk::pathOf(path),
                                                {bytes.constData(), static_cast<std::size_t>(bytes.size())}));
}

int renderTo(QWidget& window, const QString& path)
{
    int result = kFailed;
    // The timer fires in the event loop, when the window has been laid out and painted as on a screen.
    QTimer::singleShot(0, &window, [&] {
        try {
            writePicture(window, path);
            QTextStream(stdout) << path << '\n';
            result = 0;
        } catch (const orvan::RuntimeError& error) {
            complain(QStringLiteral("Could not write %1: %2").arg(path, orvan::qt::translated(error)));
        }
        QCoreApplication::quit();
    });
    QApplication::exec();
    return result;
}

/// The names of all samples as one text: "coffee-bar, exhibition-stand, ..."
QString sampleNames()
{
    QStringList names;
    for (const QFileInfo& sample : QDir(QStringLiteral(":/samples")).entryInfoList()) {
        names << sample.baseName();
    }
    return names.join(QStringLiteral(", "));
}

/// The options and arguments that the desk was called with.
class CommandLine {
public:
    CommandLine()
    {
        parser.setApplicationDescription(QStringLiteral("Opens, edits and saves quotes."));
        parser.addHelpOption();
        parser.addVersionOption();
        parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("Quote to open."),
                                     QStringLiteral("[file]"));
        printPlaces.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOptions(
            {sample, theme, language, catalogue, editing, render, pdf, csv, settings, details, printPlaces});
    }

    /// Reads the command line, and answers --help and --version. Returns what is wrong with it, or an empty text.
    QString read(const QApplication& application)
    {
        if (!parser.parse(QApplication::arguments())) {
            return parser.errorText();
        }
        if (parser.isSet(QStringLiteral("help"))) {
            QTextStream(stdout) << parser.helpText() << kHelpEnd;
            std::exit(0);
        }
        parser.process(application); // ends the program after --help-all and --version
        return problem();
    }

    QCommandLineParser parser;
    const QCommandLineOption sample{QStringLiteral("sample"),
                                    QStringLiteral("Open a quote that comes with the desk: %1.").arg(sampleNames()),
                                    QStringLiteral("name")};
    const QCommandLineOption theme{QStringLiteral("theme"), QStringLiteral("Use light or dark colours in this run."),
                                   QStringLiteral("theme")};
    const QCommandLineOption language{QStringLiteral("language"),
                                      QStringLiteral("Show the desk in this language instead of the user's own: %1.")
                                          .arg(orvan::desk::languages().join(QStringLiteral(", "))),
                                      QStringLiteral("language")};
    const QCommandLineOption catalogue{QStringLiteral("catalogue"),
                                       QStringLiteral("Look products up in this catalogue instead of the user's own: a "
                                                      "file, or postgresql://user@host/database."),
                                       QStringLiteral("catalogue")};
    const QCommandLineOption editing{
        QStringLiteral("editing"),
        QStringLiteral("Edit in the careful way (the default), which changes nothing that the user has not edited and "
                       "asks before edits are lost, or in the classic way, in which the editor has always worked."),
        QStringLiteral("way"), QStringLiteral("careful")};
    const QCommandLineOption render{QStringLiteral("render"),
                                    QStringLiteral("Write a picture of the window to this file and exit."),
                                    QStringLiteral("png")};
    const QCommandLineOption pdf{
        orvan::desk::kPdfOption,
        QStringLiteral("Print the quote into this PDF file and exit; needs no display. The letterhead, the columns and "
                       "the paper are those that the user has chosen in the desk."),
        QStringLiteral("pdf")};
    const QCommandLineOption csv{
        orvan::desk::kCsvOption,
        QStringLiteral("Write the quote's lines into this CSV file for a spreadsheet and exit; needs no display. The "
                       "separators are those of the user's locale, and a tab where the name ends with .tsv."),
        QStringLiteral("csv")};
    const QCommandLineOption settings{
        orvan::desk::kSettingsOption,
        QStringLiteral("List the settings that can be made for all users of a computer, each with its value, where "
                       "that comes from and whether it is locked, and exit; needs no display.")};
    const QCommandLineOption details{
        orvan::desk::kDetailsOption,
        QStringLiteral(
            "Print what support staff ask first and exit: versions, system, locale, catalogue, settings, and "
            "the last lines of the trace, also of a desk that crashed. No product and no customer is in it. "
            "Needs no display.")};
    QCommandLineOption printPlaces{QStringLiteral("print-places")}; ///< For tests: see PlacePrinter.h.

private:
    [[nodiscard]] QString problem() const
    {
        const QString colours = parser.value(theme), way = parser.value(editing), name = parser.value(sample);
        if (parser.isSet(theme) && colours != u"light" && colours != u"dark") {
            return QStringLiteral("--theme must be light or dark, not \"%1\".").arg(colours);
        }
        if (const QStringList known = orvan::desk::languages();
            parser.isSet(language) && !known.contains(parser.value(language))) {
            return QStringLiteral("--language must be one of %1, not \"%2\".")
                .arg(known.join(QStringLiteral(", ")), parser.value(language));
        }
        if (way != u"careful" && way != u"classic") {
            return QStringLiteral("--editing must be classic or careful, not \"%1\".").arg(way);
        }
        if (const QString locked = orvan::desk::lockedOption(parser); !locked.isEmpty()) {
            return QStringLiteral("--%1 cannot be used: %2 locks this setting.")
                .arg(locked, orvan::desk::systemSettings().choice(locked.toStdString()).lockedBy);
        }
        if (const QString server = parser.value(catalogue); orvan::desk::isServer(server)) {
            if (const QString why = orvan::desk::whyRefused(server); !why.isEmpty()) {
                return QStringLiteral("--catalogue cannot be used: %1").arg(why);
            }
        }
        if (parser.isSet(sample) && !QFile::exists(QStringLiteral(":/samples/%1.quote.json").arg(name))) {
            return QStringLiteral("There is no sample \"%1\". The samples are: %2.").arg(name, sampleNames());
        }
        const qsizetype quotes = parser.positionalArguments().size() + (parser.isSet(sample) ? 1 : 0);
        QStringList outputs;
        for (const QCommandLineOption& output : {pdf, csv, render}) {
            outputs << (parser.isSet(output) ? QStringList{QStringLiteral("--") + output.names().constFirst()}
                                             : QStringList());
        }
        if (outputs.size() > 1) {
            return QStringLiteral("%1 cannot be used together.").arg(outputs.join(QStringLiteral(" and ")));
        }
        if (quotes == 0 && (parser.isSet(pdf) || parser.isSet(csv))) {
            return QStringLiteral("%1 needs a quote.").arg(outputs.constFirst());
        }
        return quotes > 1 ? QStringLiteral("Only one quote can be opened at a time.") : QString();
    }
};

/// Writes the quote into a file for another program, without a window. What the user should know is told, but only a
/// file that could not be read or written is a failure.
int convert(const CommandLine& line, const QString& file,
            QStringList (*convertTo)(const QString& quoteFile, const QString& file))
{
    const QStringList files = line.parser.positionalArguments();
    const QString quote =
        files.isEmpty() ? orvan::desk::sampleFile(line.parser.value(line.sample)) : files.constFirst();
    try {
        for (const QString& notice : convertTo(quote, file)) {
            complain(notice);
        }
        QTextStream(stdout) << QString::fromStdString(orvan::shared::terminalText(file.toStdString())) << '\n';
        return 0;
    } catch (const orvan::desk::QuoteFileError& error) {
        complain(QStringLiteral("Could not open %1. %2").arg(quote, orvan::qt::translated(error)));
    } catch (const std::exception& error) {
        complain(QStringLiteral("Could not write %1: %2").arg(file, orvan::qt::translated(error)));
    }
    return kFailed;
}

/// A setting; `otherwise` where the user's settings cannot be read, which the window tells when it reads them.
QString chosen(const CommandLine& line, std::string_view name, const QString& otherwise)
{
    try {
        return orvan::desk::settingValue(line.parser, name);
    } catch (const orvan::RuntimeError& error) {
        qWarning("%s", error.what());
        return otherwise;
    }
}

/// Prints the details for support. Whatever is missing is said in them, so this does not fail.
int printDetails(const CommandLine& line)
{
    orvan::desk::applyTheme(orvan::desk::themeNamed(chosen(line, "theme", {}))); // the style and colours of the window
    QTextStream(stdout) << orvan::desk::supportDetails(
        {.catalogue = chosen(line, "catalogue", orvan::desk::defaultCatalogueFile()),
         .editing = chosen(line, "editing", QStringLiteral("careful")),
         .settings = [&line] { return orvan::desk::listedSettings(line.parser); }});
    return 0;
}

/// Opens the window as the command line asks, and runs until the user or the system ends it.
int run(const CommandLine& line)
{
    const QCommandLineParser& parser = line.parser;
    const QString products = chosen(line, "catalogue", orvan::desk::defaultCatalogueFile());
    // A server's catalogue gets its place in the host below, once there is a window that shows its state.
    orvan::HostOptions options = orvan::desk::lookUpProductsIn(orvan::desk::isServer(products) ? QString() : products);
    options.editing =
        chosen(line, "editing", {}) == u"classic" ? orvan::ui::EditingWay::classic : orvan::ui::EditingWay::careful;
    options.localeService = orvan::desk::makeQuoteLocale(options.locale);
    options.settings = orvan::desk::deskSettings();
    options.supportAddress =
        chosen(line, "support-address", QString::fromUtf8(orvan::ui::kSupportAddress)).toStdString();
    orvan::setQtHostOptions(options);
    orvan::desk::MainWindow window;
    window.settingsForDetails = [&parser] { return orvan::desk::listedSettings(parser); };
    if (parser.isSet(line.theme)) {
        window.useTheme(orvan::desk::themeNamed(parser.value(line.theme)));
    }
    if (parser.isSet(line.render)) {
        window.onProblem = complain;
    }
    if (orvan::desk::isServer(products)) {
        window.useServer(products);
    } else {
        window.useCatalogue(products, products == orvan::desk::defaultCatalogueFile());
    }
    std::optional<orvan::desk::WindowPlaceKeeper> place;
    if (!parser.isSet(line.render)) { // a picture has always the same size
        place.emplace(window);
    }
    window.show();
    const QStringList files = parser.positionalArguments();
    const bool opened = !files.isEmpty()            ? window.open(files.constFirst())
                        : parser.isSet(line.sample) ? window.openSample(parser.value(line.sample))
                                                    : true;
    if (parser.isSet(line.render)) {
        return opened ? renderTo(window, parser.value(line.render)) : kFailed;
    }
    const orvan::desk::EndSignals endSignals([&window] {
        window.keepUnsavedWork(); // asks nobody: whoever sends a signal does not wait for an answer
        QApplication::exit();
    });
    QTimer::singleShot(0, &window, [&window] {
        window.tellSettingsProblems();
        window.offerAbandonedWork();
    });
    std::optional<orvan::desk::PlacePrinter> places;
    if (parser.isSet(line.printPlaces)) {
        places.emplace();
    }
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    orvan::desk::needNoDisplayForFiles(argc, argv);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("orvan-desk"));
    QApplication::setDesktopFileName(
        QStringLiteral("orvan-desk")); // tells the desktop which icon belongs to the window
    QApplication::setWindowIcon(orvan::desk::windowIcon());
    QApplication::setApplicationVersion(QString::fromStdString(std::string(orvan::libraryVersion())));
    CommandLine line;
    if (const QString problem = line.read(application); !problem.isEmpty()) {
        complain(problem);
        return kWrongUse;
    }
    if (line.parser.isSet(line.settings)) {
        return orvan::desk::printSettings(line.parser, complain) ? 0 : kFailed;
    }
    orvan::desk::useLanguage(
        chosen(line, "language", QLocale::system().uiLanguages().join(u',')).split(u',', Qt::SkipEmptyParts));
    if (line.parser.isSet(line.details)) {
        return printDetails(line);
    }
    if (line.parser.isSet(line.pdf) || line.parser.isSet(line.csv) || line.parser.isSet(line.render)) {
        for (const QString& problem : orvan::desk::systemSettings().problems) {
            complain(problem); // a window tells it itself
        }
    }
    try {
        const QCommandLineParser& parser = line.parser;
        return parser.isSet(line.pdf)   ? convert(line, parser.value(line.pdf), orvan::desk::convertToPdf)
               : parser.isSet(line.csv) ? convert(line, parser.value(line.csv), orvan::desk::convertToCsv)
                                        : run(line);
    } catch (const orvan::RuntimeError& error) {
        complain(QStringLiteral("orvan-desk cannot start: error %1, %2")
                     .arg(error.number())
                     .arg(orvan::qt::translated(error)));
        return kFailed;
    }
}
