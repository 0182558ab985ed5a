// orvan-catalogue: makes a catalogue from a price list, searches it, and counts its entries.

#include "CommandLine.h"
#include "ExportCommand.h"
#include "ImportCommand.h"
#include "Interruption.h"
#include "ServerCommands.h"

#include "apps/shared/TerminalText.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/base/Text.h"
#include "orvan/components/catalogue/Catalogue.h"
#include "orvan/components/catalogue/CatalogueFile.h"
#include "orvan/lookup/LookUpValue.h"
#include "orvan/version.h"

#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace orvan::tool {

namespace {

using shared::terminalText;

constexpr char kUsage[] = R"(usage: orvan-catalogue import LIST CATALOGUE [option...]
       orvan-catalogue preview LIST [option...]
       orvan-catalogue search CATALOGUE TEXT [--most N]
       orvan-catalogue statistics CATALOGUE
       orvan-catalogue export CATALOGUE FILE
       orvan-catalogue setup-server URI [option...]
       orvan-catalogue --help | --version

)";
constexpr char kSearchHelp[] =
    R"(search      Lists the entries whose part number or name begins with TEXT, ordered as in the editor.
            A server's catalogue is searched in a local copy, which is brought up to date first.
  --most N            list at most N entries by part number and N by name (default 20)
statistics  Counts the entries and shows the lowest and the highest price.
)";
constexpr char kExitHelp[] = R"(
Exit status: 0 success; 1 nothing was found, or the list was refused; 2 an error; 130 cancelled.
)";

std::string shown(ProductLkpMgr& catalogue, LookUpColumn column)
{
    const LookUpValue value = catalogue.GetFieldValue(static_cast<std::int32_t>(column));
    return std::holds_alternative<std::monostate>(value) ? std::string() : terminalText(toText(value));
}

/// Prints two lists, the ones that the editor's two look-up boxes would show.
int search(const std::vector<std::string>& words)
{
    CatalogueOptions options{.mostMatches = 20};
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
    const std::optional<ServerUri> server = serverUri(rest[0]);
    endInOrderAtSignals();
    options.file = rest[0];
    const std::shared_ptr<ProductLkpMgr> opened =
        server ? openServerCopy(options) : std::make_shared<SqliteCatalogue>(options);
    ProductLkpMgr& catalogue = *opened;
    bool any = false;
    using List = LookUpList (ProductLkpMgr::*)(std::string_view, bool);
    const std::pair<const char*, List> lists[] = {{"Part numbers", &ProductLkpMgr::GetPartNumList},
                                                  {"Names", &ProductLkpMgr::GetProductNameList}};
    for (const auto& [title, list] : lists) {
        const LookUpList rows = (catalogue.*list)(rest[1], false);
        if (!rows) {
            continue;
        }
        any = true;
        std::cout << title << '\n';
        for (const LookUpRow& row : *rows) {
            catalogue.SeekItem(toItemData(row.itemId));
            const std::string partNum = shown(catalogue, LookUpColumn::partNum);
            const std::size_t width = characterCount(partNum);
            std::cout << std::setw(10) << row.itemId << "  " << partNum << std::string(width < 20 ? 20 - width : 0, ' ')
                      << "  " << std::setw(12) << shown(catalogue, LookUpColumn::unitPrice) << "  "
                      << shown(catalogue, LookUpColumn::name) << '\n';
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
    if (const std::optional<ServerUri> server = serverUri(files[0])) {
        return serverStatistics(*server);
    }
    SqliteFile catalogue = openCatalogue(files[0]);
    const CatalogueStatistics counted = catalogueStatistics(catalogue);
    std::cout << "Entries         " << counted.entries << "\nWithout price   " << counted.withoutPrice
              << "\nLowest price    " << counted.lowestPrice.toText() << "\nHighest price   "
              << counted.highestPrice.toText() << "\nBytes           " << counted.bytes << '\n';
    return kDone;
}

int run(const std::vector<std::string>& words)
{
    const std::string command = words.empty() ? std::string() : words.front();
    const std::vector<std::string> rest(words.begin() + (words.empty() ? 0 : 1), words.end());
    try {
        if (command == "--help" || command == "-h") {
            std::cout << kUsage << kImportHelp << kSearchHelp << kExportHelp << kServerHelp << kExitHelp;
            return kDone;
        }
        if (command == "--version") {
            std::cout << "orvan-catalogue " << ORVAN_VERSION_TEXT << '\n';
            return kDone;
        }
        if (command == "import") {
            return import(rest);
        }
        if (command == "preview") {
            return preview(rest);
        }
        if (command == "search") {
            return search(rest);
        }
        if (command == "statistics") {
            return statistics(rest);
        }
        if (command == "export") {
            return exportCatalogue(rest);
        }
        if (command == "setup-server") {
            return setUpServer(rest);
        }
        throw WrongUse{command.empty() ? "no command" : "there is no command \"" + command + "\""};
    } catch (const WrongUse& wrong) {
        std::cerr << "orvan-catalogue: " << terminalText(wrong.problem) << "; see orvan-catalogue --help\n";
    } catch (const std::exception& error) {
        if (interrupted != 0) {
            std::cerr << "orvan-catalogue: cancelled\n";
            return kCancelled;
        }
        std::cerr << "orvan-catalogue: " << terminalText(error.what()) << '\n';
    }
    return kFailed;
}

} // namespace

} // namespace orvan::tool

int main(int argc, char** argv)
{
    return orvan::tool::run({argv + 1, argv + argc});
}
