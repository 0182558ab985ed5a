// orvan-desk: opens, edits and saves quotes.

#include "CatalogueMenu.h"
#include "EndSignals.h"
#include "MainWindow.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/hosting/Version.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QTextStream>
#include <QTimer>

namespace {

int renderTo(QWidget& window, const QString& path)
{
    int result = 1;
    // The timer fires in the event loop, when the window has been laid out and painted as on a screen.
    QTimer::singleShot(0, &window, [&] {
        result = window.grab().save(path) ? 0 : 1;
        QTextStream(result == 0 ? stdout : stderr) << (result == 0 ? "" : "Could not write ") << path << '\n';
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

/// Says what is wrong with the arguments; empty if nothing is.
QString problemOf(const QCommandLineParser& parser)
{
    const QString theme = parser.value(QStringLiteral("theme"));
    const QString sample = parser.value(QStringLiteral("sample"));
    const auto files = parser.positionalArguments().size();
    if (parser.isSet(QStringLiteral("theme")) && theme != u"light" && theme != u"dark") {
        return QStringLiteral("--theme must be light or dark, not \"%1\".").arg(theme);
    }
    if (parser.isSet(QStringLiteral("sample")) &&
        !QFile::exists(QStringLiteral(":/samples/%1.quote.json").arg(sample))) {
        return QStringLiteral("There is no sample \"%1\". The samples are: %2.").arg(sample, sampleNames());
    }
    return files + (parser.isSet(QStringLiteral("sample")) ? 1 : 0) > 1
               ? QStringLiteral("Only one quote can be opened at a time.")
               : QString();
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("orvan-desk"));
    QApplication::setApplicationVersion(QString::fromStdString(std::string(orvan::libraryVersion())));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Opens, edits and saves quotes."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("Quote to open."), QStringLiteral("[file]"));
    const QCommandLineOption sample(QStringLiteral("sample"),
                                    QStringLiteral("Open a quote that comes with the desk: %1.").arg(sampleNames()),
                                    QStringLiteral("name"));
    const QCommandLineOption theme(QStringLiteral("theme"), QStringLiteral("Use light or dark colours in this run."),
                                   QStringLiteral("theme"));
    const QCommandLineOption catalogue(QStringLiteral("catalogue"),
                                       QStringLiteral("Look products up in this catalogue instead of the user's own."),
                                       QStringLiteral("file"));
    const QCommandLineOption render(QStringLiteral("render"),
                                    QStringLiteral("Write a picture of the window to this file and exit."),
                                    QStringLiteral("png"));
    parser.addOptions({sample, theme, catalogue, render});
    parser.process(application);
    if (const QString problem = problemOf(parser); !problem.isEmpty()) {
        QTextStream(stderr) << problem << '\n';
        return 1;
    }

    try {
        const bool ownCatalogue = parser.isSet(catalogue);
        const QString products = ownCatalogue ? parser.value(catalogue) : orvan::desk::defaultCatalogueFile();
        orvan::desk::lookUpProductsIn(products);
        orvan::desk::MainWindow window;
        if (parser.isSet(theme)) {
            window.useTheme(orvan::desk::themeNamed(parser.value(theme)));
        }
        if (parser.isSet(render)) {
            window.onProblem = [](const QString& problem) { QTextStream(stderr) << problem << '\n'; };
        }
        window.useCatalogue(products, !ownCatalogue);
        window.show();
        const QStringList files = parser.positionalArguments();
        const bool opened = !files.isEmpty()       ? window.open(files.constFirst())
                            : parser.isSet(sample) ? window.openSample(parser.value(sample))
                                                   : true;
        if (!parser.isSet(render)) {
            const orvan::desk::EndSignals endSignals([&window] {
                window.keepUnsavedWork(); // asks nobody: whoever sends a signal does not wait for an answer
                QApplication::exit();
            });
            QTimer::singleShot(0, &window, &orvan::desk::MainWindow::offerAbandonedWork);
            return QApplication::exec();
        }
        return opened ? renderTo(window, parser.value(render)) : 1;
    } catch (const orvan::RuntimeError& error) {
        QTextStream(stderr) << "orvan-desk cannot start: error " << error.number() << ", "
                            << QString::fromUtf8(error.what()) << '\n';
        return 1;
    }
}
