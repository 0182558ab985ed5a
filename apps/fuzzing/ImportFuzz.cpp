// Import of a whole price list: the first byte is the decimal separator and the second one the delimiter, "?" where the
// import finds it; the rest is the list. What was imported is looked up again.

#include "apps/fuzzing/FuzzTarget.h"
#include "apps/fuzzing/MemoryFiles.h"
#include "apps/fuzzing/PlainPriceList.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CaseFolding.h"
#include "orvan/components/catalogue/Catalogue.h"
#include "orvan/components/catalogue/ImportRun.h"

#include <map>
#include <sstream>

namespace orvan::fuzz {
namespace {

using Outcome = CatalogueImportResult::Outcome;

struct PlainEntry {
    std::string name, key, partNum, note;
    std::optional<std::int64_t> unitPrice;
};

/// What the plain reader finds in a list.
struct PlainImport {
    bool readable = false;
    char decimal = '.';
    bool ambiguous = false;
    std::vector<std::uint64_t> refused; ///< The lines.
    std::map<std::int32_t, PlainEntry> entries;
};

bool isPlainUtf8(const std::string& text)
{
    for (std::size_t at = 0; at < text.size();) {
        const auto byte = [&](std::size_t i) -> unsigned {
            return i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
        };
        const unsigned lead = byte(at);
        const std::size_t size = lead < 0x80   ? 1
                                 : lead < 0xC2 ? 0
                                 : lead < 0xE0 ? 2
                                 : lead < 0xF0 ? 3
                                 : lead < 0xF5 ? 4
                                               : 0;
        unsigned character = size == 1 ? lead : lead & (0x7FU >> size);
        for (std::size_t i = 1; i < size; ++i) {
            if ((byte(at + i) & 0xC0) != 0x80) {
                return false;
            }
            character = character << 6 | (byte(at + i) & 0x3F);
        }
        const bool overlong = (size == 3 && character < 0x800) || (size == 4 && character < 0x10000);
        if (size == 0 || overlong || (character >= 0xD800 && character <= 0xDFFF) || character > 0x10FFFF) {
            return false;
        }
        at += size;
    }
    return true;
}

/// The place in the header of the first of the names that it has. Capitals, blanks and punctuation are left out of the
/// comparison.
std::optional<std::size_t> columnOf(const std::vector<std::string>& header, const std::vector<std::string>& names)
{
    std::vector<std::string> simple;
    for (const std::string& field : header) {
        simple.emplace_back();
        for (const char c : field) {
            const char small = static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
            simple.back() += (small >= 'a' && small <= 'z') || (c >= '0' && c <= '9') ? std::string(1, small) : "";
        }
    }
    for (const std::string& name : names) {
        const auto found = std::find(simple.begin(), simple.end(), name);
        if (found != simple.end()) {
            return static_cast<std::size_t>(found - simple.begin());
        }
    }
    return std::nullopt;
}

struct PlainColumns {
    explicit PlainColumns(const std::vector<std::string>& header)
        : id(columnOf(header, {"itemid", "id", "productid", "articleid"})),
          name(columnOf(header, {"name", "productname", "itemname", "articlename", "product", "article", "title"})),
          key(columnOf(header, {"key", "productkey", "itemkey"})),
          partNum(columnOf(header, {"partnumber", "partnum", "partno", "part", "sku", "itemnumber", "itemno",
                                    "articlenumber", "articleno", "productnumber", "productno"})),
          price(columnOf(header, {"unitprice", "price", "listprice"})),
          note(columnOf(header, {"note", "notes", "remark", "remarks", "comment", "comments", "description"}))
    {
    }

    std::optional<std::size_t> id, name, key, partNum, price, note;
};

std::optional<std::int32_t> readPlainId(const std::string& text)
{
    const std::string id(withoutBlanks(text));
    const std::string digits = id.starts_with('-') ? id.substr(1) : id;
    const PlainAmount value = readPlainAmount(digits);
    const std::int64_t size = value.scaled / 10000;
    if (digits.empty() || !plainDigits(digits) || value.kind != PlainAmount::amount ||
        size > (id == digits ? 2147483647 : 2147483648)) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(id == digits ? size : -size);
}

void readRows(PlainImport& import, const std::vector<PlainRecord>& records, const PlainColumns& columns)
{
    for (std::size_t row = 1; row < records.size(); ++row) {
        const std::vector<std::string>& fields = records[row].fields;
        const auto field = [&](const std::optional<std::size_t>& column) { return column ? fields[*column] : ""; };
        if (records[row].malformed || fields.size() != records[0].fields.size()) {
            import.refused.push_back(records[row].line);
            continue;
        }
        const PlainEntry entry{field(columns.name), field(columns.key),
                               std::string(withoutBlanks(field(columns.partNum))), field(columns.note),
                               readPlainPrice(field(columns.price), import.decimal)};
        const bool goodPrice = entry.unitPrice ? *entry.unitPrice >= 0 : withoutBlanks(field(columns.price)).empty();
        const auto id = columns.id ? readPlainId(field(columns.id)) : static_cast<std::int32_t>(row);
        if ((entry.name + field(columns.partNum)).empty() || !isPlainUtf8(entry.name) || !isPlainUtf8(entry.key) ||
            !isPlainUtf8(entry.partNum) || !isPlainUtf8(entry.note) || !goodPrice || !id ||
            !import.entries.emplace(*id, entry).second) {
            import.refused.push_back(records[row].line);
        }
    }
}

/// Finds the decimal separator: the first price that can be read in only one way tells it.
void findDecimal(PlainImport& import, const std::vector<PlainRecord>& records, std::size_t column)
{
    for (std::size_t row = 1; row < records.size(); ++row) {
        if (records[row].fields.size() != records[0].fields.size()) {
            continue;
        }
        const auto point = readPlainPrice(records[row].fields[column], '.');
        const auto comma = readPlainPrice(records[row].fields[column], ',');
        if (point.has_value() != comma.has_value()) {
            import.decimal = point ? '.' : ',';
            import.ambiguous = false;
            return;
        }
        import.ambiguous |= point != comma;
    }
}

PlainImport readPlainly(const std::vector<PlainRecord>& records, char decimal)
{
    PlainImport import;
    if (records.size() < 2 || records[0].malformed) {
        return import;
    }
    const PlainColumns columns(records[0].fields);
    import.readable = columns.name && columns.partNum && columns.price;
    if (!import.readable) {
        return import;
    }
    import.decimal = decimal != 0 ? decimal : '.';
    if (decimal == 0) {
        findDecimal(import, records, *columns.price);
    }
    readRows(import, records, columns);
    return import;
}

/// The rows that a list has for a typed text, or all of them.
std::map<std::int64_t, std::string> plainRows(const PlainImport& import, std::string PlainEntry::*text,
                                              const std::string& typed)
{
    std::map<std::int64_t, std::string> rows;
    for (const auto& [id, entry] : import.entries) {
        if (const std::string& own = entry.*text; !own.empty() && foldCase(own).starts_with(foldCase(typed))) {
            rows.emplace(id, own);
        }
    }
    return rows;
}

/// The order of a language is not checked, but that no match is missing and each is there once; what has the typed text
/// elsewhere stands behind.
void compareRows(const LookUpList& shown, const PlainImport& import, std::string PlainEntry::*text,
                 const std::string& typed)
{
    std::map<std::int64_t, std::string> expected = plainRows(import, text, typed);
    const std::vector<LookUpRow> rows = shown.value_or(std::vector<LookUpRow>());
    const std::size_t matches = std::min<std::size_t>(expected.size(), typed.empty() ? 1000 : 250);
    if (matches == 0) {
        require(rows.empty() || rows[0].text == typed, "nothing begins so, but the text may be a code");
        return;
    }
    require(rows.size() >= matches, "no match is missing");
    require(foldCase(rows[0].text).starts_with(foldCase(typed)), "the first row begins with the typed text");
    for (std::size_t i = 0; i < matches; ++i) {
        const auto own = expected.find(rows[i].itemId);
        require(own != expected.end(), "the matches come first, and each once");
        require(i == 0 || rows[i].text == own->second, "each row has its entry's text");
        require(foldCase(rows[i].text) == foldCase(own->second),
                "the first row has its entry's text, too, except for capitals");
        expected.erase(own);
    }
}

void checkCatalogue(const PlainImport& import, const std::string& file)
{
    SqliteCatalogue catalogue({.file = file});
    const auto text = [&](std::int32_t column) { return std::get<std::string>(catalogue.GetFieldValue(column)); };
    for (const auto& [id, entry] : import.entries) {
        catalogue.SeekItem(id);
        require(!catalogue.IsEOF(), "each entry is found");
        require(text(3) == entry.name && text(4) == entry.key && text(5) == entry.partNum && text(7) == entry.note,
                "the entry's texts");
        const LookUpValue price = catalogue.GetFieldValue(6);
        require(entry.unitPrice ? price == LookUpValue(Currency::fromScaled(*entry.unitPrice)) : price == LookUpValue(),
                "the entry's price");
    }
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

/// Whether the plain reader can say what is imported. It cannot if the header has letters that are not ASCII, because
/// it does not know how the library compares these.
bool isComparable(const std::vector<PlainRecord>& records)
{
    const auto ascii = [](const std::string& text) {
        return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    };
    return records.empty() || std::all_of(records[0].fields.begin(), records[0].fields.end(), ascii);
}

} // namespace

void runTarget(std::string_view input)
{
    const char decimal = takeByte(input), delimiter = takeByte(input);
    if (std::string_view("?.,").find(decimal) == std::string_view::npos ||
        std::string_view("\"\r\n").find(delimiter) != std::string_view::npos) {
        return;
    }
    const CatalogueImportOptions options{.delimiter = delimiter == '?' ? '\0' : delimiter,
                                         .decimalSeparator = decimal == '?' ? '\0' : decimal};
    const auto records = readPlainCsv(input, options.delimiter != 0 ? options.delimiter : plainDelimiter(input));
    const PlainImport expected = readPlainly(records, options.decimalSeparator);
    const bool comparable = isComparable(records);
    const std::string file = "/in memory";
    memoryFile(file).clear();
    memoryFile(file + ".entries").clear(); // which the import would have removed if it were on a disk
    try {
        ImportRun run({.name = "list",
                       .bytes = input.size(),
                       .open = [&] { return std::make_unique<std::istringstream>(std::string(input)); }},
                      options);
        const bool imported = run.findDecimalSeparator() && run.write(file);
        const CatalogueImportResult result = run.end(imported);
        if (!comparable) {
            return;
        }
        require(expected.readable, "a list that cannot be understood is refused");
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
        if (imported) {
            checkCatalogue(expected, file);
        }
    } catch (const RuntimeError& error) {
        const bool utf16 = input.starts_with("\xFF\xFE") || input.starts_with("\xFE\xFF");
        require(error.number() == ErrorNumber::invalidFileFormat, "a list that is refused raises 321");
        require(!comparable || utf16 || !expected.readable, "a list that can be understood is read");
    }
}

} // namespace orvan::fuzz
