// N: the start of the desk, seen from outside: from the call that starts the program to its end at the first paint, and
// the memory that it has taken until then.
//
// The desk runs on an X server, as on a user's screen. With Qt's off-screen platform, an empty window would do next to
// nothing and would not even read the system's fonts, so there would be nothing to compare with.

#include "benchmarks/Comparison.h"
#include "benchmarks/FirstPaint.h"
#include "benchmarks/SampleCatalogue.h"
#include "benchmarks/Subjects.h"
#include "benchmarks/TemporaryFiles.h"
#include "orvan/components/catalogue/CatalogueImport.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>

#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orvan::bench {

namespace {

/// A virtual X server that is used only by this run.
class XServer {
public:
    XServer()
    {
        server_.start(QStringLiteral("Xvfb"),
                      {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                       QStringLiteral("0"), QStringLiteral("1280x900x24"), QStringLiteral("-nolisten"),
                       QStringLiteral("tcp")});
        if (!server_.waitForReadyRead()) { // the server prints its display number once it is ready
            throw std::runtime_error("Xvfb does not start");
        }
        display_ = ":" + server_.readLine().trimmed();
    }
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;
    ~XServer()
    {
        server_.terminate();
        server_.waitForFinished();
    }

    const QByteArray& display() const { return display_; }

private:
    QProcess server_;
    QByteArray display_;
};

/// A program in the same folder as this one, which is going to be started on the server.
std::string programOn(const XServer& server, const std::string& name)
{
    qputenv("DISPLAY", server.display());
    qputenv("QT_QPA_PLATFORM", "xcb");
    return QCoreApplication::applicationDirPath().toStdString().append("/").append(name);
}

std::filesystem::path catalogueOfUser()
{
    return temporaryFiles() / "home" / "orvan-desk" / "products.catalogue";
}

/// The bytes that the program has taken at its first paint. It gets the catalogue's name as an argument.
double memoryAtFirstPaint(const std::string& name, const XServer& server)
{
    const std::string program = programOn(server, name);
    QProcess started;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(kTellMemory), QStringLiteral("1"));
    started.setProcessEnvironment(environment);
    started.start(QString::fromStdString(program), {QString::fromStdString(catalogueOfUser().string())});
    if (!started.waitForFinished() || started.exitCode() != 0) {
        throw std::runtime_error(program + " failed");
    }
    return started.readAllStandardOutput().trimmed().toDouble();
}

/// The time that one start of the program takes.
double startTime(const std::string& name, const XServer& server)
{
    std::string program = programOn(server, name);
    char* const arguments[] = {program.data(), nullptr};
    const auto begin = std::chrono::steady_clock::now();
    pid_t child = 0;
    int status = 0;
    if (::posix_spawn(&child, arguments[0], nullptr, nullptr, arguments, environ) != 0 ||
        ::waitpid(child, &status, 0) != child || status != 0) {
        throw std::runtime_error(program + " failed");
    }
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - begin).count();
}

/// Makes the home directory of a user who has started the desk before, and so has a catalogue.
void makeUser()
{
    const std::filesystem::path home = catalogueOfUser().parent_path().parent_path();
    for (const char* const variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"}) {
        qputenv(variable, QByteArray::fromStdString(home.string()));
    }
    std::filesystem::create_directories(home / "orvan-desk");
    importCatalogue(priceList(1'000), catalogueOfUser());
}

} // namespace

void addDeskStart(Suite& suite)
{
    using Measure = double (*)(const std::string&, const XServer&);
    const auto beside = [](const char* peer, const char* program, Measure measure) {
        makeUser();
        const auto side = [measure, server = std::make_shared<XServer>()](const char* name, const char* started) {
            return Side{name, [=] { return measure(started, *server); }};
        };
        return Sides{side("", "orvan-bench-desk"), side(peer, program)};
    };
    suite.add(Row{"N start of the desk to its first paint", atMostTimes(1.5),
                  [=] { return beside("an empty window", "orvan-bench-window", startTime); }, Unit::nanoseconds, 21});
    suite.add(Row{"N memory of the desk at its first paint", atMostTimes(1.1),
                  [=] { return beside("a bare program of the same parts", "orvan-bench-bare", memoryAtFirstPaint); },
                  Unit::bytes, 5});
}

} // namespace orvan::bench
