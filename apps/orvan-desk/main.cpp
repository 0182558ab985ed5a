// orvan-desk: opens, edits and saves quotes.

#include "MainWindow.h"

#include "base/RuntimeError.h"
#include "hosting/Version.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTextStream>
#include <QTimer>

namespace {

int renderTo(QWidget& window, const QString& path)
{
    int result = 1;
    // Once the window has been laid out and painted as on a screen.
    QTimer::singleShot(0, &window, [&] {
        result = window.grab().save(path) ? 0 : 1;
        QTextStream(result == 0 ? stdout : stderr) << (result == 0 ? "" : "Could not write ") << path << '\n';
        QCoreApplication::quit();
    });
    QApplication::exec();
    return result;
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
    const QCommandLineOption sample(QStringLiteral("sample"), QStringLiteral("Open a quote that comes with the desk."),
                                    QStringLiteral("name"));
    const QCommandLineOption theme(QStringLiteral("theme"), QStringLiteral("Colours of this run: light or dark."),
                                   QStringLiteral("theme"));
    const QCommandLineOption render(QStringLiteral("render"), QStringLiteral("Write a picture of the window and end."),
                                    QStringLiteral("png"));
    parser.addOptions({sample, theme, render});
    parser.process(application);

    try {
        orvan::desk::MainWindow window;
        if (parser.isSet(theme)) {
            window.useTheme(orvan::desk::themeNamed(parser.value(theme)));
        }
        if (parser.isSet(render)) {
            window.onProblem = [](const QString& problem) { QTextStream(stderr) << problem << '\n'; };
        }
        window.show();
        const QStringList files = parser.positionalArguments();
        const bool opened = !files.isEmpty()       ? window.open(files.constFirst())
                            : parser.isSet(sample) ? window.openSample(parser.value(sample))
                                                   : true;
        if (!parser.isSet(render)) {
            return QApplication::exec();
        }
        return opened ? renderTo(window, parser.value(render)) : 1;
    } catch (const orvan::RuntimeError& error) {
        QTextStream(stderr) << "orvan-desk cannot start: error " << error.number() << ", "
                            << QString::fromUtf8(error.what()) << '\n';
        return 1;
    }
}
