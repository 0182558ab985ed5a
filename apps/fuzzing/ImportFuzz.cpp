// Import of a whole price list: the first byte is the decimal separator and the second one the delimiter, "?" where the
// import finds it; the rest is the list. What was written as a catalogue is looked up again.

#include "apps/fuzzing/FuzzTarget.h"
#include "apps/fuzzing/MemoryFiles.h"
#include "apps/fuzzing/PlainImport.h"
#include "orvan/base/Ascii.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CaseFolding.h"
#include "orvan/components/catalogue/Catalogue.h"
#include "orvan/components/catalogue/CatalogueFile.h"
#include "orvan/components/catalogue/CatalogueIds.h"
#include "orvan/components/catalogue/ImportRun.h"

#include <functional>
#include <optional>
#include <set>
#include <sstream>
#include <tuple>

namespace orvan::fuzz {
namespace {

using Outcome = CatalogueImportResult::Outcome;

/// The rows that a list has for a typed text, or all of them.
std::multiset<std::string> plainRows(const PlainImport& import, std::string PlainEntry::*text, const std::string& typed)
{
    std::multiset<std::string> rows;
    for (const auto& [id, entry] : import.entries) {
        if (const std::string& own = entry.*text; !own.empty() && foldCase(own).starts_with(foldCase(typed))) {
            rows.insert(own);
        }
    }
    return rows;
}

/// The order of a language is not checked, but that no match is missing and each is there once; what has the typed text
/// elsewhere stands behind.
void compareRows(const LookUpList& shown, const PlainImport& import, std::string PlainEntry::*text,
                 const std::string& typed)
{
    std::multiset<std::string> expected = plainRows(import, text, typed);
    const std::vector<LookUpRow> rows = shown.value_or(std::vector<LookUpRow>());
    const std::size_t matches = std::min<std::size_t>(expected.size(), typed.empty() ? 1000 : 250);
    if (matches == 0) {
        require(rows.empty() || rows[0].text == typed, "nothing begins so, but the text may be a code");
        return;
    }
    require(rows.size() >= matches, "no match is missing");
    require(foldCase(rows[0].text).starts_with(foldCase(typed)), "the first row begins with the typed text");
    for (std::size_t i = 0; i < matches; ++i) {
        auto own = expected.find(rows[i].text);
        if (i == 0 && own == expected.end()) { // the first row may have the capitals of the typed text
            own = std::find_if(expected.begin(), expected.end(),
                               [&](const std::string& each) { return foldCase(each) == foldCase(rows[0].text); });
        }
        require(own != expected.end(), "the matches come first, and each once");
        expected.erase(own);
    }
}

using Values = std::tuple<std::string, std::string, std::string, std::string, std::optional<std::int64_t>>;
using Entries = std::multiset<Values>;

void requireSame(const Entries& found, const PlainImport& import)
{
    Entries expected;
    for (const auto& [id, entry] : import.entries) {
        expected.insert({entry.name, entry.key, entry.partNum, entry.note, entry.unitPrice});
    }
    require(found == expected, "the entries are those of the list");
}

/// Reads the list without writing a catalogue. Returns what ImportRun::write would return.
bool readEntries(ImportRun& run, Entries& found)
{
    std::set<std::string> ids;
    return run.read([&](const CatalogueEntry& entry, std::uint64_t /*line*/) {
        if (const std::string id = comparedId(entry.ownId); !id.empty() && !ids.insert(id).second) {
            return whyTwice(entry);
        }
        found.emplace(entry.name, entry.key, trimmed(entry.partNum), entry.note,
                      entry.unitPrice ? std::optional(entry.unitPrice->scaled()) : std::nullopt);
        return UserText();
    });
}

/// Whether a catalogue is written of the list, too, which takes most of the time: of each seed, and of one in eight
/// inputs that libFuzzer invents. The input itself decides, so that it does the same when it runs again.
bool isWritten([[maybe_unused]] std::string_view input)
{
#ifdef ORVAN_FUZZ
    return std::hash<std::string_view>()(input) % 8 == 0;
#else
    return true;
#endif
}

void checkCatalogue(const PlainImport& import, const std::string& file)
{
    SqliteCatalogue catalogue({.file = file});
    const auto text = [&](std::int32_t column) { return std::get<std::string>(catalogue.GetFieldValue(column)); };
    Entries found;
    SqliteFile opened = openCatalogue(file);
    SqliteStatement numbers(opened, "SELECT item_id FROM product");
    for (SqliteRows rows = numbers.query(); rows.next();) {
        catalogue.SeekItem(static_cast<std::int32_t>(rows.integer(0)));
        require(!catalogue.IsEOF(), "each entry is found");
        const LookUpValue price = catalogue.GetFieldValue(6);
        const auto* const amount = std::get_if<Currency>(&price);
        found.insert({text(3), text(4), text(5), text(7), amount ? std::optional(amount->scaled()) : std::nullopt});
    }
    requireSame(found, import);
    compareRows(catalogue.GetProductNameList("", true), import, &PlainEntry::name, "");
    compareRows(catalogue.GetPartNumList("", true), import, &PlainEntry::partNum, "");
    std::string typed = import.entries.begin()->second.name.substr(0, 5);
    while (!isPlainUtf8(typed)) {
        typed.pop_back();
    }
    for (int way = 0; way < 2 && !typed.empty(); ++way) {
        compareRows(catalogue.GetProductNameList(typed, false), import, &PlainEntry::name, typed);
        compareRows(catalogue.GetPartNumList(typed, false), import, &PlainEntry::partNum, typed);
        typed = foldCase(typed);
    }
}

/// Whether the list begins as a file of another form does, which is refused by its name.
bool startsAsOther(std::string_view input)
{
    return input.starts_with("PK") || input.starts_with("%PDF") || input.starts_with("\xD0\xCF") ||
           input.find('<') != input.npos;
}

bool hasTotals(const CatalogueImportResult& result)
{
    return std::any_of(result.skipped.begin(), result.skipped.end(),
                       [](const RefusedRow& row) { return row.reason == "it is a row of totals"; });
}

} // namespace

void runTarget(std::string_view input)
{
    const char decimal = takeByte(input), delimiter = takeByte(input);
    if (std::string_view("?.,").find(decimal) == std::string_view::npos ||
        std::string_view("\"\r\n").find(delimiter) != std::string_view::npos) {
        return;
    }
    CatalogueImportOptions options{.delimiter = delimiter == '?' ? '\0' : delimiter,
                                   .decimalSeparator = decimal == '?' ? '\0' : decimal};
    const auto records = readPlainCsv(input, options.delimiter != 0 ? options.delimiter : plainDelimiter(input));
    const PlainImport expected = readPlainly(records, options.decimalSeparator);
    const bool comparable = isComparable(expected, records);
    if (comparable) {
        options.columns = named(PlainColumns(records[0].fields));
        options.encoding = "UTF-8";
        options.headerLine = records[0].line;
    }
    const std::string file = "/in memory";
    memoryFile(file).clear();
    memoryFile(file + ".entries").clear(); // which the import would have removed if it were on a disk
    const bool written = isWritten(input);
    Entries found;
    try {
        ImportRun run({.name = "list",
                       .bytes = input.size(),
                       .open = [&] { return std::make_unique<std::istringstream>(std::string(input)); }},
                      options);
        const bool imported = run.findPrices() && (written ? run.write(file) : readEntries(run, found));
        const CatalogueImportResult result = run.end(imported);
        if (!comparable || hasTotals(result)) {
            return;
        }
        // Which part of a malformed row is its price is left open, and with it which decimal separator is found.
        const bool anyMalformed =
            std::any_of(records.begin(), records.end(), [](const PlainRecord& record) { return record.malformed; });
        if (anyMalformed && options.decimalSeparator == 0) {
            require(!imported, "a list with a malformed row is not imported");
            return;
        }
        require((result.outcome == Outcome::ambiguous) == expected.ambiguous, "ambiguous prices are reported");
        if (expected.ambiguous) {
            return;
        }
        require(result.decimalSeparator == expected.decimal, "the decimal separator is found");
        require(imported == expected.refused.empty(), "a list is imported as a whole or not at all");
        require(result.refusedCount == expected.refused.size(), "each bad row is refused");
        for (std::size_t i = 0; i < result.refused.size(); ++i) {
            require(result.refused[i].line == expected.refused[i], "a refused row is named by its line");
        }
        require(result.rows == expected.entries.size(), "each good row is read");
        if (imported && written) {
            checkCatalogue(expected, file);
        } else if (imported) {
            requireSame(found, expected);
        }
    } catch (const RuntimeError& error) {
        const bool utf16 = input.starts_with("\xFF\xFE") || input.starts_with("\xFE\xFF");
        require(error.number() == ErrorNumber::invalidFileFormat ||
                    (input.starts_with("PK") && error.number() == ErrorNumber::cannotCreateComponent),
                "a list that is refused raises 321");
        // The plain reader refuses a row of totals, which it does not know; the import leaves such rows out.
        const bool onlyTotals = error.description().find("it holds no rows") != std::string::npos;
        const bool noRows = expected.entries.empty() && (expected.refused.empty() || onlyTotals);
        require(!comparable || utf16 || noRows || startsAsOther(input), "a list that can be understood is read");
    }
}

} // namespace orvan::fuzz
