// orvan-bench: measures the library's paths and their peers. ./bench builds it and passes its arguments on.

#include "benchmarks/Comparison.h"
#include "benchmarks/Machine.h"
#include "benchmarks/Options.h"
#include "benchmarks/Results.h"
#include "benchmarks/Subjects.h"

#include <QApplication>
#include <algorithm>
#include <exception>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr const char* kHelp =
    "usage: ./bench [--growth] [--json FILE] [--compare FILE] [NAME...]\n"
    "       ./bench --list | --summary FILE... | --beside FILE...\n"
    "       ./bench --compilers [NAME...]\n"
    "       ./bench --felt --help\n"
    "\n"
    "Prints each path of the library beside its peer and its bound; medians, measured in turn,\n"
    "and in brackets between what figures the middle half of the repetitions lies.\n"
    "Exits with 1 and names the rows that fall short of their bound by more than half.\n"
    "\n"
    "  NAME            only the rows whose names begin so, such as E or \"E format\"\n"
    "  --growth        how each path grows with the size of what it works on, instead\n"
    "  --json FILE     also writes what was measured into the file\n"
    "  --compare FILE  also prints each figure beside the one of an earlier run, whose file this is\n"
    "  --summary       in how many of these runs each row holds; nothing is measured\n"
    "  --beside        our figures of these runs beside each other; nothing is measured\n"
    "  --list          the names of all rows\n"
    "  --compilers     builds with GCC and Clang, with and without LTO, and prints their figures\n";

/// Prints the runs that the files hold.
int printRuns(const std::vector<std::string>& files, bool beside)
{
    if (files.empty()) {
        throw std::runtime_error("files of earlier runs are needed");
    }
    std::vector<orvan::bench::Results> runs;
    std::transform(files.begin(), files.end(), std::back_inserter(runs), orvan::bench::readResults);
    if (beside) {
        std::vector<std::string> names;
        std::transform(files.begin(), files.end(), std::back_inserter(names),
                       [](const std::string& file) { return std::filesystem::path(file).stem().string(); });
        orvan::bench::printBeside(std::cout, runs, names);
    } else {
        orvan::bench::printSummary(std::cout, runs);
    }
    return 0;
}

int run(std::vector<std::string> arguments)
{
    orvan::bench::Suite suite;
    // The subjects that need no window come first: once windows have been made and destroyed, allocating in the heap
    // takes longer on both sides, which hides the difference between them.
    orvan::bench::addEditor(suite);
    orvan::bench::addTraceLines(suite);
    orvan::bench::addAmounts(suite);
    orvan::bench::addProductsString(suite);
    orvan::bench::addLongList(suite);
    orvan::bench::addQtGrid(suite);
    orvan::bench::addQtForm(suite);
    orvan::bench::addLookUp(suite);
    orvan::bench::addImport(suite);
    orvan::bench::addDeskStart(suite);
    orvan::bench::addPrinting(suite);
    orvan::bench::addListCommands(suite);
    orvan::bench::addSearch(suite);
#ifdef ORVAN_POSTGRES_FOLDER
    orvan::bench::addServerCopy(suite);
#endif

    using orvan::bench::takeOption;
    if (takeOption(arguments, "--help") || takeOption(arguments, "-h")) {
        std::cout << kHelp;
        return 0;
    }
    const bool list = takeOption(arguments, "--list");
    const bool summary = takeOption(arguments, "--summary");
    const bool beside = takeOption(arguments, "--beside");
    const bool growth = takeOption(arguments, "--growth");
    const orvan::bench::ResultFiles files(arguments);
    if (const auto unknown = orvan::bench::unknownOption(arguments)) {
        std::cerr << "Unknown option " << *unknown << "\n\n" << kHelp;
        return 2;
    }
    if (list) {
        suite.list();
        return 0;
    }
    if (summary || beside) {
        return printRuns(arguments, beside);
    }
    suite.select(arguments);
    orvan::bench::Results results{.machine = orvan::bench::machineDescription()};
    std::cout << results.machine << '\n';
    const std::vector<std::string> failed = growth ? suite.runGrowths(results) : suite.runRows(results);
    files.finish(results);
    return orvan::bench::exitCode(failed);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "default.warning=false"); // hides Qt's warning that there is no desktop session
    const QApplication application(argc, argv);
    try {
        return run({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 2;
    }
}
