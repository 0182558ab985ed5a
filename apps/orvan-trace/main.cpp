// orvan-trace: tells what the trace logs of the library say about procedures, their times and their errors.

#include "Report.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/version.h"

#include <shared/TerminalText.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace orvan::trace_reader;

constexpr const char* kHelp = R"(usage: orvan-trace [--json] log...
       orvan-trace [--json] --tree [FILE:]LINE log...
       orvan-trace [--json] --tree PROCEDURE[#N] log...
       orvan-trace [--json] --compare log log
       orvan-trace --help | --version

Reads trace logs and prints each procedure's calls, errors and times in milliseconds: its own, the total with the
procedures that it called, and the slowest call. Entries and exits that do not pair are listed, those on purpose and
those not. A log is a file, which brings its rotated files (trace.1.log of trace.log) with it, or a folder, which stands
for all logs in it, as ~/.local/state/orvan does.

  --tree      prints one call with all calls in it, each with its time and its errors: the outermost call that the
              line is of (without FILE, a line of the last file), or the procedure's first or N-th call, as
              "cmdDelete_Click" or "ProductView::cmdDelete_Click#2"
  --compare   prints where the procedures of two logs part, and which procedures are open there; times and the
              numbers of threads may differ
  --json      prints JSON

Exit status: 0 the logs were read, and are alike where two are compared; 1 the command line or a log is wrong; 2 the
logs part.
)";

[[noreturn]] void refuse(const std::string& problem)
{
    throw orvan::RuntimeError(orvan::ErrorNumber::invalidProcedureCall, {}, problem);
}

/// Takes a number that the text ends with, behind a separator or alone; false if there is none.
bool takeNumber(std::string& text, char separator, std::uint64_t& number)
{
    const std::size_t at = text.rfind(separator);
    const char* const begin = text.data() + (at == std::string::npos ? 0 : at + 1);
    const char* const end = text.data() + text.size();
    std::uint64_t taken = 0;
    const auto [rest, error] = std::from_chars(begin, end, taken);
    if (error != std::errc() || rest != end || taken == 0) {
        return false;
    }
    number = taken;
    text.resize(at == std::string::npos ? 0 : at);
    return true;
}

TreeChoice treeChoice(std::string text)
{
    TreeChoice choice;
    if (takeNumber(text, ':', choice.line)) {
        choice.file = text;
        return choice;
    }
    if (text.find('#') != std::string::npos && !takeNumber(text, '#', choice.number)) {
        refuse("\"" + text + "\" is neither a line nor a procedure");
    }
    choice.procedure = text;
    return choice;
}

struct Arguments {
    bool json = false;
    bool compares = false;
    bool hasTree = false;
    TreeChoice tree;
    std::vector<std::filesystem::path> logs;
};

Arguments readArguments(const std::vector<std::string>& words)
{
    Arguments arguments;
    for (auto word = words.begin(); word != words.end(); ++word) {
        if (*word == "--json") {
            arguments.json = true;
        } else if (*word == "--compare") {
            arguments.compares = true;
        } else if (*word == "--tree" && std::next(word) != words.end()) {
            arguments.hasTree = true;
            arguments.tree = treeChoice(*++word);
        } else if (word->starts_with("--")) {
            refuse("the option " + *word + " is not known, or has no value");
        } else {
            arguments.logs.emplace_back(*word);
        }
    }
    if (arguments.logs.empty() || (arguments.compares && arguments.hasTree)) {
        refuse("no log is named, or the options exclude each other; see orvan-trace --help");
    }
    return arguments;
}

template <class Found>
void print(const Arguments& arguments, const Found& found)
{
    arguments.json ? printJson(std::cout, found) : printText(std::cout, found);
}

void tellBadLines(const Summary& summary)
{
    for (const Place& place : summary.badPlaces) {
        std::cerr << orvan::shared::terminalText(summary.files[place.file].string()) << ':' << place.line
                  << ": no line of a trace\n";
    }
    if (summary.badLines > summary.badPlaces.size()) {
        std::cerr << summary.badLines << " lines are no lines of a trace\n";
    }
}

int run(const Arguments& arguments)
{
    if (arguments.compares) {
        std::vector<Log> two;
        for (const std::filesystem::path& name : arguments.logs) { // one by one: a log may be compared with itself
            std::ranges::move(findLogs({name}), std::back_inserter(two));
        }
        if (two.size() != 2) {
            refuse("two logs are compared, not " + std::to_string(two.size()));
        }
        const auto parting = compare(two[0], two[1]);
        print(arguments, parting);
        return parting ? 2 : 0;
    }
    const std::vector<Log> logs = findLogs(arguments.logs);
    if (logs.empty()) {
        refuse("there is no log in the folder");
    }
    if (arguments.hasTree) {
        const Tree tree = findTree(logs, arguments.tree);
        if (tree.nodes.empty()) {
            refuse("the logs have no such call");
        }
        print(arguments, tree);
        return 0;
    }
    const Summary summary = summarize(logs);
    print(arguments, summary);
    tellBadLines(summary);
    return summary.lines == 0 && summary.badLines > 0 ? 1 : 0;
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> words(argv + 1, argv + argc);
    const std::string_view first = words.empty() ? "" : std::string_view(words.front());
    if (first == "--version") {
        std::cout << "orvan-trace " << ORVAN_VERSION_TEXT << '\n';
        return 0;
    }
    if (words.empty() || first == "--help") {
        (first == "--help" ? std::cout : std::cerr) << kHelp;
        return first == "--help" ? 0 : 1;
    }
    try {
        const int status = run(readArguments(words));
        if (!std::cout.flush()) {
            std::cerr << "orvan-trace: the output cannot be written\n";
            return 1;
        }
        return status;
    } catch (const std::exception& error) { // a folder that cannot be read, too
        std::cerr << "orvan-trace: " << orvan::shared::terminalText(error.what()) << '\n';
        return 1;
    }
}
