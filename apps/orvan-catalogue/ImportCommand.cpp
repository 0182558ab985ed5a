#include "ImportCommand.h"

#include "CommandLine.h"
#include "Interruption.h"
#include "ProgressBar.h"
#include "RefusedReport.h"
#include "ServerCommands.h"

#include "apps/shared/TerminalText.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CatalogueImport.h"
#include "orvan/components/catalogue/lists/ListPreview.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>

namespace orvan::tool {

const char kImportHelp[] =
    R"(import      Makes CATALOGUE from a price list, or replaces it: a text file (CSV, TSV) in any encoding, or a
            workbook (.xlsx). If rows have errors, lists them with their line numbers and does not change
            CATALOGUE. Programs that have CATALOGUE open need not be closed: their next look-up uses the new
            one. The catalogue that is replaced is kept as CATALOGUE.former until the next import.
            CATALOGUE may be on a server: postgresql://user@host/database. Then the list's entries are added to
            those that are there, or change them.
preview     Shows how a price list is understood, and imports nothing. It takes the same options:
  --item-id COLUMN, --name COLUMN, --key COLUMN, --part-number COLUMN, --barcode COLUMN,
  --unit-price COLUMN, --note COLUMN
                      a column by its name in the list, or #3 for the third one; - if the list has none
  --decimal C         the decimal separator of the prices: . or ,
  --delimiter C       the delimiter of the fields: , ; | or tab
  --encoding NAME     the encoding of a text file: UTF-8, windows-1252, ...
  --sheet NAME        a workbook's sheet, or #2 for the second one
  --language NAME     the language in whose order the lists are shown, such as sv
  --header-line N     the line with the columns' names; 0 if the list has none
  --first-line N      the line in which the entries begin
  --skip-bad-rows     leave out rows with errors, and write them to CATALOGUE.refused.csv
  --report FILE       write the rows with errors to FILE instead
  --remove-missing    on a server: remove the entries that the list does not have
  --quiet             show no progress bar
)";

namespace {

using shared::countOf;
using shared::terminalText;

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

std::uint64_t lineNumber(const std::string& option, const std::string& value)
{
    std::istringstream number(value);
    std::uint64_t line = 0;
    if (value.empty() || value.find_first_not_of("0123456789") != value.npos || !(number >> line)) {
        throw WrongUse{option + " must be the number of a line"};
    }
    return line;
}

struct Column {
    const char* option;
    std::string CatalogueImportOptions::ColumnNames::*name;
};
using Names = CatalogueImportOptions::ColumnNames;
constexpr Column kColumns[] = {{"--item-id", &Names::itemId},
                               {"--name", &Names::name},
                               {"--key", &Names::key},
                               {"--part-number", &Names::partNum},
                               {"--unit-price", &Names::unitPrice},
                               {"--note", &Names::note},
                               {"--barcode", &Names::barcode}};

/// What the command line says.
struct Request {
    CatalogueImportOptions options;
    std::string reportFile;
    bool quiet = false;
    bool removeMissing = false;
    std::vector<std::string> files;

    Request(const std::string& command, const std::vector<std::string>& words)
    {
        files = positional(words, [&](const std::string& option, const auto& value) {
            for (const Column& column : kColumns) {
                if (option == column.option) {
                    options.columns.*column.name = value();
                    return;
                }
            }
            if (option == "--delimiter") {
                options.delimiter = oneCharacter(option, value());
            } else if (option == "--decimal") {
                options.decimalSeparator = oneCharacter(option, value());
            } else if (option == "--encoding") {
                options.encoding = value();
            } else if (option == "--language") {
                options.language = value();
            } else if (option == "--sheet") {
                options.sheet = value();
            } else if (option == "--header-line") {
                options.headerLine = lineNumber(option, value());
            } else if (option == "--first-line") {
                options.firstLine = lineNumber(option, value());
            } else if (option == "--skip-bad-rows") {
                options.skipBadRows = true;
            } else if (option == "--report") {
                reportFile = value();
            } else if (option == "--remove-missing") {
                removeMissing = true;
            } else if (option == "--quiet") {
                quiet = true;
            } else {
                throw WrongUse{command + " has no option " + option};
            }
        });
    }
};

/// What the list does not tell, each with the option that says it. Returns whether there is anything.
bool tellQuestions(const std::string& file, const CatalogueImportOptions& options)
{
    const ListPreview preview = previewList(file, options, 0, [] { return interrupted == 0; });
    for (const ColumnKind* const kind : preview.form.found.missing) {
        const auto* const column = std::find_if(std::begin(kColumns), std::end(kColumns),
                                                [kind](const Column& each) { return each.name == kind->given; });
        std::cerr << "orvan-catalogue: " << terminalText(whyMissing(*kind, options.columns).english())
                  << "; name it with " << column->option << ", or say \"" << column->option
                  << " -\" if the list has none\n";
    }
    if (!preview.ambiguousPrice.empty()) {
        std::cerr << "orvan-catalogue: prices such as \"" << terminalText(preview.ambiguousPrice)
                  << "\" can be read in two ways; name the decimal separator with --decimal\n";
    }
    const bool any = !preview.form.found.missing.empty() || !preview.ambiguousPrice.empty();
    if (any && preview.form.headerLine == 0) {
        std::cerr
            << "orvan-catalogue: no line has the names of the columns; name it with --header-line, or the columns "
               "by their numbers, such as --name \"#2\"\n";
    } else if (any) {
        std::cerr << "orvan-catalogue: line " << preview.form.headerLine << " was taken for the names of the columns ("
                  << terminalText(listed({preview.form.header.begin(), preview.form.header.end()}))
                  << "); name another one with --header-line\n";
    }
    return any;
}

void tellRows(const std::string& source, const std::vector<RefusedRow>& rows, std::uint64_t count)
{
    for (const RefusedRow& row : rows) {
        std::cerr << source << ':' << row.line << ": " << terminalText(row.reason.english()) << '\n';
    }
    if (count > rows.size()) {
        std::cerr << "... and " << count - rows.size() << " more\n";
    }
}

/// What was imported: the numbers, and what of the list was not.
void tellImported(const CatalogueImportResult& result, const std::string& source, const std::string& catalogue)
{
    std::cout << countOf(result.rows, "entry", "entries") << " in " << catalogue << '\n';
    if (result.withoutPrice > 0) {
        std::cout << countOf(result.withoutPrice, "entry", "entries") << " without a price\n";
    }
    std::cout << "Read as "
              << (result.sheet.empty() ? result.encoding : "the sheet \"" + terminalText(result.sheet) + "\"")
              << ", with a decimal " << (result.decimalSeparator == ',' ? "comma" : "point") << '\n';
    if (result.skippedCount > 0) {
        std::cout << result.skippedCount << (result.skippedCount == 1 ? " row" : " rows") << " skipped\n";
        tellRows(source, result.skipped, result.skippedCount);
    }
    if (!result.former.empty()) {
        std::cout << "The former catalogue is kept as " << terminalText(result.former.string()) << '\n';
    }
}

int report(const CatalogueImportResult& result, const Request& request, const RefusedReport& refusedRows)
{
    const std::string source = terminalText(request.files[0]), catalogue = terminalText(request.files[1]);
    using Outcome = CatalogueImportResult::Outcome;
    if (result.outcome == Outcome::cancelled) {
        std::cerr << "orvan-catalogue: cancelled; " << catalogue << " was not changed\n";
        return kCancelled;
    }
    if (result.outcome == Outcome::ambiguous) {
        tellQuestions(request.files[0], request.options);
        return kNothing;
    }
    if (result.outcome == Outcome::imported) {
        tellImported(result, source, catalogue);
    }
    tellRows(source, result.refused, result.refusedCount);
    if (refusedRows.written()) {
        std::cerr << "orvan-catalogue: the rows with errors stand in " << terminalText(refusedRows.file()) << '\n';
    }
    if (result.refusedCount == 0) {
        return kDone;
    }
    const bool imported = result.outcome == Outcome::imported;
    std::cerr << "orvan-catalogue: " << result.refusedCount << " of "
              << countOf(result.refusedCount + result.rows, "row", "rows") << " refused; "
              << (imported ? "the others were imported" : catalogue + " was not changed") << '\n';
    if (!imported && !request.options.skipBadRows) {
        std::cerr << "orvan-catalogue: --skip-bad-rows imports the others\n";
    }
    return imported ? kDone : kNothing;
}

} // namespace

int import(const std::vector<std::string>& words)
{
    Request request("import", words);
    if (request.files.size() != 2) {
        throw WrongUse{"import needs two arguments, a price list and a catalogue"};
    }
    const std::optional<ServerUri> server = serverUri(request.files[1]);
    if (request.removeMissing && !server) {
        throw WrongUse{"--remove-missing is for servers; an import into a file always removes what the list lacks"};
    }
    if (request.reportFile.empty() && request.options.skipBadRows) {
        request.reportFile = request.files[server ? 0 : 1] + ".refused.csv";
    }
    endInOrderAtSignals();
    request.options.keepFormer = true;
    RefusedReport refused(request.reportFile);
    request.options.eachRefused = [&](const RefusedRow& row, const auto& cells) { refused.add(row, cells); };
    ServerImportResult result;
    try {
        ProgressBar bar(!request.quiet);
        request.options.progress = [&](const CatalogueImportProgress& progress) {
            bar.show(progress);
            return interrupted == 0;
        };
        if (server) {
            result = importToServer(request.files[0], *server, request.options,
                                    {.removeMissing = request.removeMissing, .waits = [&bar] {
                                         bar.tell("orvan-catalogue: waiting until another import has ended");
                                     }});
        } else {
            result.list = importCatalogue(request.files[0], request.files[1], request.options);
        }
    } catch (const RuntimeError& error) {
        if (error.number() != ErrorNumber::invalidFileFormat || !tellQuestions(request.files[0], request.options)) {
            throw;
        }
        return kNothing;
    }
    refused.finish();
    if (server && result.list.outcome == CatalogueImportResult::Outcome::imported) {
        std::cout << result.added << " added, " << result.changed << " changed, " << result.removed
                  << " removed; revision " << result.revision << '\n';
    }
    return report(result.list, request, refused);
}

int preview(const std::vector<std::string>& words)
{
    constexpr std::size_t kShownRows = 5;
    const Request request("preview", words);
    if (request.files.size() != 1) {
        throw WrongUse{"preview needs one argument, a price list"};
    }
    endInOrderAtSignals();
    const ListPreview list =
        previewList(request.files[0], request.options, kShownRows, [] { return interrupted == 0; });
    const ListForm& form = list.form;
    if (form.workbook) {
        std::cout << "Sheet           " << terminalText(form.sheets[form.sheet]) << '\n';
    } else {
        std::cout << "Encoding        " << form.encoding << "\nDelimiter       "
                  << (form.delimiter == '\t' ? "tab" : std::string(1, form.delimiter)) << '\n';
    }
    std::cout << "Decimals        " << (list.decimalSeparator == ',' ? "comma" : "point") << "\nHeader in line  "
              << form.headerLine << "\nEntries from    " << form.firstLine << '\n';
    for (const ColumnKind& kind : columnKinds()) {
        if (const std::optional<std::size_t> place = list.columns.*kind.place) {
            const std::string name = *place < form.header.size() ? form.header[*place] : std::string();
            std::string label = kind.shown.english();
            label.resize(16, ' ');
            std::cout << label << '#' << *place + 1 << ' ' << terminalText(name) << '\n';
        }
    }
    for (const PreviewedRow& row : list.rows) {
        std::cout << row.line << ": "
                  << terminalText(listed({row.cells.begin(), row.cells.end()}) +
                                  (row.reason.empty() ? "" : " - " + row.reason.english()))
                  << '\n';
    }
    std::cout << "Entries         " << list.entries << "\nWithout price   " << list.withoutPrice << "\nSkipped         "
              << list.skippedCount << "\nRefused         " << list.refusedCount << '\n';
    tellRows(terminalText(request.files[0]), list.refused, list.refusedCount);
    const bool asks = tellQuestions(request.files[0], request.options);
    return asks || list.refusedCount > 0 ? kNothing : kDone;
}

} // namespace orvan::tool
