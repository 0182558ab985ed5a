// orvan-catalogue: makes a catalogue from a CSV file, searches it, and counts its entries.

#include "apps/shared/TerminalText.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/base/Text.h"
#include "orvan/components/catalogue/Catalogue.h"
#include "orvan/components/catalogue/CatalogueFile.h"
#include "orvan/components/catalogue/CatalogueImport.h"
#include "orvan/lookup/LookUpValue.h"

#include <csignal>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <unistd.h>

namespace {

using orvan::CatalogueImportOptions;
using orvan::CatalogueImportProgress;
using orvan::CatalogueImportResult;
using orvan::shared::terminalText;

constexpr int kDone = 0, kNothing = 1, kFailed = 2, kCancelled = 130;

constexpr char kHelp[] = R"(usage: orvan-catalogue import FILE.csv CATALOGUE [option...]
       orvan-catalogue search CATALOGUE TEXT [--most N]
       orvan-catalogue statistics CATALOGUE

import      Makes CATALOGUE from a CSV or TSV file in UTF-8, or replaces it. If rows have errors, lists
            them with their line numbers and does not change CATALOGUE.
            Programs that have CATALOGUE open need not be closed: their next look-up uses the new one.
            The catalogue that is replaced is kept as CATALOGUE.former until the next import.
  --delimiter C       the delimiter of the fields: , ; | or tab; by default found in the first line
  --decimal C         the decimal separator of the prices: . or ,; by default found in the prices
  --item-id NAME, --name NAME, --key NAME, --part-number NAME, --unit-price NAME, --note NAME
                      the name of a column in the first line, if it is not one of the usual names
  --language NAME     the language in whose order the lists are shown, such as sv; by default that of most languages
  --quiet             show no progress bar
search      Lists the entries whose part number or name begins with TEXT, ordered as in the editor.
  --most N            list at most N entries by part number and N by name (default 20)
statistics  Counts the entries and shows the lowest and the highest price.

Exit status: 0 success; 1 nothing was found, or the file was refused; 2 an error; 130 cancelled.
)";

struct WrongUse {
    std::string problem;
};

/// Returns the words of the command line that are not options. Passes each option to `take`, with a function that
/// returns the option's value.
template <class Take>
std::vector<std::string> positional(const std::vector<std::string>& words, Take&& take)
{
    std::vector<std::string> rest;
    bool options = true;
    for (std::size_t at = 0; at < words.size(); ++at) {
        if (options && words[at] == "--") {
            options = false; // the words after "--" are not options, even if they begin with "--"
        } else if (options && words[at].starts_with("--")) {
            const std::string& option = words[at];
            take(option, [&]() -> const std::string& {
                if (++at == words.size()) {
                    throw WrongUse{option + " needs a value"};
                }
                return words[at];
            });
        } else {
            rest.push_back(words[at]);
        }
    }
    return rest;
}

// --- import -----------------------------------------------------------------------------------------

volatile std::sig_atomic_t interrupted = 0;

/// The first signal cancels the import, which removes its unfinished file. A second one ends the program at once.
/// Without SA_RESTART, a signal also ends a system call that waits.
void endInOrderAtSignals()
{
    struct sigaction action = {};
    action.sa_handler = [](int) { interrupted = 1; };
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        ::sigaction(signal, &action, nullptr);
    }
}

/// A progress bar in one line, which each call overwrites. Shows nothing if the output is not a terminal.
class ProgressBar {
public:
    explicit ProgressBar(bool shown) : shown_(shown && ::isatty(STDERR_FILENO) != 0) {}
    ~ProgressBar()
    {
        if (!last_.empty()) {
            std::cerr << "\r\033[K" << std::flush;
        }
    }

    void show(const CatalogueImportProgress& progress)
    {
        if (!shown_ || progress.bytesTotal == 0) {
            return;
        }
        const bool reading = progress.indexesTotal == 0;
        const double done = reading ? double(progress.bytesRead) / double(progress.bytesTotal)
                                    : double(progress.indexesBuilt) / progress.indexesTotal;
        constexpr int kWidth = 40;
        const int filled = static_cast<int>(done * kWidth);
        std::ostringstream line;
        line << (reading ? "Reading  [" : "Indexing [") << std::string(static_cast<std::size_t>(filled), '#')
             << std::string(static_cast<std::size_t>(kWidth - filled), '.') << "] " << static_cast<int>(done * 100)
             << " %  " << progress.rows << " rows";
        if (line.str() != last_) {
            last_ = line.str();
            std::cerr << '\r' << last_ << std::flush;
        }
    }

private:
    const bool shown_;
    std::string last_;
};

char oneCharacter(const std::string& option, const std::string& value)
{
    if (value == "tab" || value == "\\t") {
        return '\t';
    }
    if (value.size() != 1) {
        throw WrongUse{option + " must be one character"};
    }
    return value.front();
}

int report(const CatalogueImportResult& result, const std::string& sourceName, const std::string& catalogueName)
{
    const std::string source = terminalText(sourceName), catalogue = terminalText(catalogueName);
    using Outcome = CatalogueImportResult::Outcome;
    if (result.outcome == Outcome::imported) {
        std::cout << result.rows << " entries in " << catalogue << '\n';
        if (!result.former.empty()) {
            std::cout << "The former catalogue is kept as " << terminalText(result.former.string()) << '\n';
        }
        return kDone;
    }
    if (result.outcome == Outcome::cancelled) {
        std::cerr << "orvan-catalogue: cancelled; " << catalogue << " was not changed\n";
        return kCancelled;
    }
    if (result.outcome == Outcome::ambiguous) {
        std::cerr << "orvan-catalogue: prices such as \"" << terminalText(result.ambiguousPrice)
                  << "\" can be read in two ways; name the decimal separator with --decimal\n";
        return kNothing;
    }
    for (const orvan::RefusedRow& row : result.refused) {
        std::cerr << source << ':' << row.line << ": " << terminalText(row.reason.english()) << '\n';
    }
    if (result.refusedCount > result.refused.size()) {
        std::cerr << "... and " << result.refusedCount - result.refused.size() << " more\n";
    }
    std::cerr << "orvan-catalogue: " << result.refusedCount << " of " << result.refusedCount + result.rows
              << " rows refused; " << catalogue << " was not changed\n";
    return kNothing;
}

int import(const std::vector<std::string>& words)
{
    CatalogueImportOptions options;
    bool quiet = false;
    const auto files = positional(words, [&](const std::string& option, const auto& value) {
        const std::pair<const char*, std::string&> columns[] = {{"--item-id", options.columns.itemId},
                                                                {"--name", options.columns.name},
                                                                {"--key", options.columns.key},
                                                                {"--part-number", options.columns.partNum},
                                                                {"--unit-price", options.columns.unitPrice},
                                                                {"--note", options.columns.note},
                                                                {"--language", options.language}};
        for (const auto& [name, column] : columns) {
            if (option == name) {
                column = value();
                return;
            }
        }
        if (option == "--delimiter") {
            options.delimiter = oneCharacter(option, value());
        } else if (option == "--decimal") {
            options.decimalSeparator = oneCharacter(option, value());
        } else if (option == "--quiet") {
            quiet = true;
        } else {
            throw WrongUse{"import has no option " + option};
        }
    });
    if (files.size() != 2) {
        throw WrongUse{"import needs two arguments, a file and a catalogue"};
    }
    endInOrderAtSignals();
    options.keepFormer = true;
    CatalogueImportResult result;
    {
        ProgressBar bar(!quiet);
        options.progress = [&](const CatalogueImportProgress& progress) {
            bar.show(progress);
            return interrupted == 0;
        };
        result = orvan::importCatalogue(files[0], files[1], options);
    }
    return report(result, files[0], files[1]);
}

// --- search and statistics --------------------------------------------------------------------------

std::string shown(orvan::SqliteCatalogue& catalogue, orvan::LookUpColumn column)
{
    const orvan::LookUpValue value = catalogue.GetFieldValue(static_cast<std::int32_t>(column));
    return std::holds_alternative<std::monostate>(value) ? std::string() : terminalText(orvan::toText(value));
}

/// Prints two lists, the ones that the editor's two look-up boxes would show.
int search(const std::vector<std::string>& words)
{
    orvan::CatalogueOptions options{.mostMatches = 20};
    const auto rest = positional(words, [&](const std::string& option, const auto& value) {
        if (option != "--most") {
            throw WrongUse{"search has no option " + option};
        }
        std::istringstream number(value());
        if (!(number >> options.mostMatches) || !number.eof() || options.mostMatches == 0) {
            throw WrongUse{"--most must be a number of entries, 1 or more"};
        }
    });
    if (rest.size() != 2) {
        throw WrongUse{"search needs two arguments, a catalogue and a text"};
    }
    options.file = rest[0];
    orvan::SqliteCatalogue catalogue(options);
    bool any = false;
    using List = orvan::LookUpList (orvan::SqliteCatalogue::*)(std::string_view, bool);
    const std::pair<const char*, List> lists[] = {{"Part numbers", &orvan::SqliteCatalogue::GetPartNumList},
                                                  {"Names", &orvan::SqliteCatalogue::GetProductNameList}};
    for (const auto& [title, list] : lists) {
        const orvan::LookUpList rows = (catalogue.*list)(rest[1], false);
        if (!rows) {
            continue;
        }
        any = true;
        std::cout << title << '\n';
        for (const orvan::LookUpRow& row : *rows) {
            catalogue.SeekItem(orvan::toItemData(row.itemId));
            const std::string partNum = shown(catalogue, orvan::LookUpColumn::partNum);
            const std::size_t width = orvan::characterCount(partNum);
            std::cout << std::setw(10) << row.itemId << "  " << partNum << std::string(width < 20 ? 20 - width : 0, ' ')
                      << "  " << std::setw(12) << shown(catalogue, orvan::LookUpColumn::unitPrice) << "  "
                      << shown(catalogue, orvan::LookUpColumn::name) << '\n';
        }
    }
    return any ? kDone : kNothing;
}

int statistics(const std::vector<std::string>& words)
{
    const auto files = positional(words, [&](const std::string& option, const auto& /*value*/) {
        throw WrongUse{"statistics has no option " + option};
    });
    if (files.size() != 1) {
        throw WrongUse{"statistics needs one argument, a catalogue"};
    }
    orvan::SqliteFile catalogue = orvan::openCatalogue(files[0]);
    const orvan::CatalogueStatistics counted = orvan::catalogueStatistics(catalogue);
    std::cout << "Entries         " << counted.entries << "\nWithout price   " << counted.withoutPrice
              << "\nLowest price    " << counted.lowestPrice.toText() << "\nHighest price   "
              << counted.highestPrice.toText() << "\nBytes           " << counted.bytes << '\n';
    return kDone;
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> words(argv + 1, argv + argc);
    const std::string command = words.empty() ? std::string() : words.front();
    const std::vector<std::string> rest(words.begin() + (words.empty() ? 0 : 1), words.end());
    try {
        if (command == "--help" || command == "-h") {
            std::cout << kHelp;
            return kDone;
        }
        if (command == "import") {
            return import(rest);
        }
        if (command == "search") {
            return search(rest);
        }
        if (command == "statistics") {
            return statistics(rest);
        }
        throw WrongUse{command.empty() ? "no command" : "there is no command \"" + command + "\""};
    } catch (const WrongUse& wrong) {
        std::cerr << "orvan-catalogue: " << terminalText(wrong.problem) << "; see orvan-catalogue --help\n";
    } catch (const std::exception& error) {
        std::cerr << "orvan-catalogue: " << terminalText(error.what()) << '\n';
    }
    return kFailed;
}
