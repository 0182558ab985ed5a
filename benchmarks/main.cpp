// orvan-bench: measures the library's paths and their peers. ./bench builds it and passes its arguments on.

#include "benchmarks/Comparison.h"
#include "benchmarks/Machine.h"
#include "benchmarks/Subjects.h"

#include <QApplication>
#include <algorithm>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace {

constexpr const char* kHelp =
    "usage: ./bench [--growth] [--list] [NAME...]\n"
    "       ./bench --felt --help\n"
    "\n"
    "Prints each path of the library beside its peer and its bound; medians, measured in turn.\n"
    "Exits with 1 and names the rows that fall short of their bound by more than half.\n"
    "\n"
    "  NAME      only the rows whose names begin so, such as E or \"E format\"\n"
    "  --growth  how each path grows with the size of what it works on, instead\n"
    "  --list    the names of all rows\n";

int run(std::vector<std::string> arguments)
{
    orvan::bench::Suite suite;
    // The subjects that need no window come first: once windows have been made and destroyed, allocating in the heap
    // takes longer on both sides, which hides the difference between them.
    orvan::bench::addEditor(suite);
    orvan::bench::addTraceLines(suite);
    orvan::bench::addAmounts(suite);
    orvan::bench::addProductsString(suite);
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

    const auto take = [&](const char* option) { return std::erase(arguments, option) > 0; };
    if (take("--help") || take("-h")) {
        std::cout << kHelp;
        return 0;
    }
    const bool list = take("--list");
    const bool growth = take("--growth");
    const auto unknown = std::find_if(arguments.begin(), arguments.end(),
                                      [](const std::string& argument) { return argument.starts_with("-"); });
    if (unknown != arguments.end()) {
        std::cerr << "Unknown option " << *unknown << "\n\n" << kHelp;
        return 2;
    }
    if (list) {
        suite.list();
        return 0;
    }
    suite.select(arguments);
    std::cout << orvan::bench::machineDescription() << '\n';
    const std::vector<std::string> failed = growth ? suite.runGrowths() : suite.runRows();
    for (const std::string& name : failed) {
        std::cerr << "Fails: " << name << '\n';
    }
    return failed.empty() ? 0 : 1;
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
