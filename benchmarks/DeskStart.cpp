// N: the start of the desk, seen from outside: from the call that starts the program to its end at the first paint.
//
// On an X server, as users start it, beside an empty window. Off-screen an empty window does next to nothing: it does
// not even read the system's fonts, so the peer there shows a line of text.

#include "benchmarks/Comparison.h"
#include "benchmarks/SampleCatalogue.h"
#include "benchmarks/Subjects.h"
#include "benchmarks/TemporaryFiles.h"
#include "components/CatalogueImport.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QProcess>

#include <chrono>
#include <memory>
#include <stdexcept>
#include <vector>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orvan::bench {

namespace {

/// An X server of this run's own, off-screen.
class XServer {
public:
    XServer()
    {
        server_.start(QStringLiteral("Xvfb"),
                      {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                       QStringLiteral("0"), QStringLiteral("1280x900x24"), QStringLiteral("-nolisten"),
                       QStringLiteral("tcp")});
        if (!server_.waitForReadyRead()) { // it tells its number once it is ready
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

struct Platform {
    QByteArray name;
    std::shared_ptr<XServer> server = nullptr;
};

/// One start of a program that stands beside this one.
double startTime(std::vector<std::string> command, const Platform& platform)
{
    command[0] = QCoreApplication::applicationDirPath().toStdString().append("/").append(command[0]);
    std::vector<char*> arguments;
    for (std::string& each : command) {
        arguments.push_back(each.data());
    }
    arguments.push_back(nullptr);
    qputenv("DISPLAY", platform.server ? platform.server->display() : QByteArray());
    qputenv("QT_QPA_PLATFORM", platform.name);
    const auto begin = std::chrono::steady_clock::now();
    pid_t child = 0;
    int status = 0;
    if (::posix_spawn(&child, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0 ||
        ::waitpid(child, &status, 0) != child || status != 0) {
        throw std::runtime_error(command[0] + " failed");
    }
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - begin).count();
}

Side start(std::string name, std::vector<std::string> command, const Platform& platform)
{
    return {std::move(name), [=] { return startTime(command, platform); }};
}

/// A user who has started the desk before.
void makeUser()
{
    const std::filesystem::path home = temporaryFiles() / "home";
    for (const char* const variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"}) {
        qputenv(variable, QByteArray::fromStdString(home.string()));
    }
    std::filesystem::create_directories(home / "orvan-desk");
    importCatalogue(priceList(1'000), home / "orvan-desk" / "products.catalogue");
}

} // namespace

void addDeskStart(Suite& suite)
{
    suite.add(
        Row{"N start of the desk to its first paint, X server", atMostTimes(1.5),
            [] {
                makeUser();
                const Platform x{"xcb", std::make_shared<XServer>()};
                return Sides{start("", {"orvan-bench-desk"}, x), start("an empty window", {"orvan-bench-window"}, x)};
            },
            Unit::nanoseconds, 21});
    suite.add(Row{"N start of the desk to its first paint, off-screen", atMostTimes(1.5),
                  [] {
                      makeUser();
                      const Platform offscreen{"offscreen"};
                      return Sides{start("", {"orvan-bench-desk"}, offscreen),
                                   start("a line of text", {"orvan-bench-window", "text"}, offscreen)};
                  },
                  Unit::nanoseconds, 21});
}

} // namespace orvan::bench
