// N: the start of the desk, seen from outside: from the call that starts the program to its end at the first paint.

#include "benchmarks/Comparison.h"
#include "benchmarks/SampleCatalogue.h"
#include "benchmarks/Subjects.h"
#include "benchmarks/TemporaryFiles.h"
#include "components/CatalogueImport.h"

#include <QByteArray>
#include <QCoreApplication>

#include <chrono>
#include <stdexcept>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orvan::bench {

namespace {

/// One start of a program that stands beside this one.
double startTime(const char* program)
{
    std::string path = QCoreApplication::applicationDirPath().toStdString().append("/").append(program);
    char* const arguments[] = {path.data(), nullptr};
    const auto begin = std::chrono::steady_clock::now();
    pid_t child = 0;
    int status = 0;
    if (::posix_spawn(&child, path.c_str(), nullptr, nullptr, arguments, environ) != 0 ||
        ::waitpid(child, &status, 0) != child || status != 0) {
        throw std::runtime_error(path + " failed");
    }
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - begin).count();
}

Side start(std::string name, const char* program)
{
    return {std::move(name), [program] { return startTime(program); }};
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
    suite.add(Row{"N start of the desk to its first paint", atMostTimes(1.5), [] {
                      makeUser();
                      return Sides{start("", "orvan-bench-desk"), start("an empty window", "orvan-bench-empty")};
                  }, Unit::nanoseconds, 21});
}

} // namespace orvan::bench
