// Import of a whole price list: the first byte is the decimal separator and the second one the delimiter, "?" where the
// import finds it; the rest is the list. What was imported is looked up again.

#include "apps/fuzzing/FuzzTarget.h"
#include "apps/fuzzing/MemoryFiles.h"
#include "apps/fuzzing/PlainPriceList.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CaseFolding.h"
#include "orvan/components/catalogue/Catalogue.h"
#include "orvan/components/catalogue/CatalogueFile.h"
#include "orvan/components/catalogue/ImportRun.h"

#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <tuple>

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
    bool plainPrices = true;                   ///< It knows what all prices mean.
    std::vector<std::uint64_t> refused;        ///< The lines.
    std::map<std::string, PlainEntry> entries; ///< By their own ids, or else by their rows.
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

/// Without blanks at either end, the no-break space included.
std::string plainTrimmed(std::string text)
{
    for (std::string before; before != text;) {
        before = text;
        while (!text.empty() && std::string_view(" \t\r\n").find(text.front()) != std::string_view::npos) {
            text.erase(0, 1);
        }
        while (!text.empty() && std::string_view(" \t\r\n").find(text.back()) != std::string_view::npos) {
            text.pop_back();
        }
        text.erase(0, text.starts_with("\xC2\xA0") ? 2 : 0);
        text.erase(text.size() - (text.ends_with("\xC2\xA0") ? 2 : 0));
    }
    return text;
}

bool isBlankFrom(const std::vector<std::string>& fields, std::size_t from)
{
    return std::all_of(fields.begin() + static_cast<std::ptrdiff_t>(std::min(from, fields.size())), fields.end(),
                       [](const std::string& field) { return plainTrimmed(field).empty(); });
}

/// Whether a row has the header's number of fields; blank ones at the end do not count.
bool isShaped(const std::vector<std::string>& header, const std::vector<std::string>& fields)
{
    std::size_t least = header.size();
    while (least > 0 && plainTrimmed(header[least - 1]).empty()) {
        --least;
    }
    return fields.size() >= least && isBlankFrom(fields, header.size());
}

/// Whether the plain reader knows what the price means: it has no sign, no currency and no words.
bool isPlainPrice(const std::string& price)
{
    const std::string text = plainTrimmed(price);
    return text.empty() || (text.find_first_not_of("0123456789.,' ") == text.npos && text.back() >= '0' &&
                            text.back() <= '9' && text.front() >= '0' && text.front() <= '9');
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
        const auto field = [&](const std::optional<std::size_t>& column) {
            return column && *column < fields.size() ? plainTrimmed(fields[*column]) : "";
        };
        if (!records[row].malformed && isBlankFrom(fields, 0)) {
            continue;
        }
        if (records[row].malformed || !isShaped(records[0].fields, fields)) {
            import.refused.push_back(records[row].line);
            continue;
        }
        const PlainEntry entry{field(columns.name), field(columns.key),
                               std::string(withoutBlanks(field(columns.partNum))), field(columns.note),
                               readPlainPrice(field(columns.price), import.decimal)};
        const bool goodPrice = entry.unitPrice ? *entry.unitPrice >= 0 : withoutBlanks(field(columns.price)).empty();
        import.plainPrices = import.plainPrices && isPlainPrice(field(columns.price));
        const std::string ownId(withoutBlanks(field(columns.id)));
        const auto number = readPlainId(ownId);
        const std::string id = ownId.empty() ? "row " + std::to_string(row) : number ? std::to_string(*number) : ownId;
        if ((entry.name + entry.partNum).empty() || !isPlainUtf8(entry.name) || !isPlainUtf8(entry.key) ||
            !isPlainUtf8(entry.partNum) || !isPlainUtf8(entry.note) || !isPlainUtf8(ownId) || !goodPrice ||
            !import.entries.emplace(id, entry).second) {
            import.refused.push_back(records[row].line);
        }
    }
}

/// Finds the decimal separator: the first price that can be read in only one way tells it.
void findDecimal(PlainImport& import, const std::vector<PlainRecord>& records, std::size_t column)
{
    for (std::size_t row = 1; row < records.size(); ++row) {
        if (!isShaped(records[0].fields, records[row].fields) || column >= records[row].fields.size()) {
            continue;
        }
        const auto point = readPlainPrice(records[row].fields[column], '.');
        const auto comma = readPlainPrice(records[row].fields[column], ',');
        import.plainPrices = import.plainPrices && isPlainPrice(records[row].fields[column]);
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

void checkCatalogue(const PlainImport& import, const std::string& file)
{
    SqliteCatalogue catalogue({.file = file});
    const auto text = [&](std::int32_t column) { return std::get<std::string>(catalogue.GetFieldValue(column)); };
    using Values = std::tuple<std::string, std::string, std::string, std::string, std::optional<std::int64_t>>;
    std::multiset<Values> expected, found;
    for (const auto& [id, entry] : import.entries) {
        expected.insert({entry.name, entry.key, entry.partNum, entry.note, entry.unitPrice});
    }
    SqliteFile opened = openCatalogue(file);
    SqliteStatement numbers(opened, "SELECT item_id FROM product");
    for (SqliteRows rows = numbers.query(); rows.next();) {
        catalogue.SeekItem(static_cast<std::int32_t>(rows.integer(0)));
        require(!catalogue.IsEOF(), "each entry is found");
        const LookUpValue price = catalogue.GetFieldValue(6);
        const auto* const amount = std::get_if<Currency>(&price);
        found.insert({text(3), text(4), text(5), text(7), amount ? std::optional(amount->scaled()) : std::nullopt});
    }
    require(found == expected, "the entries are those of the list");
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

/// Names the columns as the plain reader finds them: it knows the English names only.
CatalogueImportOptions::ColumnNames named(const PlainColumns& columns)
{
    const auto name = [](const std::optional<std::size_t>& column) {
        return column ? "#" + std::to_string(*column + 1) : std::string(kNoColumn);
    };
    return {.itemId = name(columns.id),
            .name = name(columns.name),
            .key = name(columns.key),
            .partNum = name(columns.partNum),
            .unitPrice = name(columns.price),
            .note = name(columns.note),
            .barcode = std::string(kNoColumn)};
}

/// Whether the plain reader can say what is imported. It knows neither repeated headers nor totals.
bool isComparable(const PlainImport& expected, const std::vector<PlainRecord>& records)
{
    return expected.readable && expected.plainPrices &&
           std::none_of(records.begin() + 1, records.end(), [&](const PlainRecord& record) {
               return record.fields.size() == records[0].fields.size() &&
                      std::equal(record.fields.begin(), record.fields.end(), records[0].fields.begin(),
                                 [](const auto& a, const auto& b) { return plainTrimmed(a) == plainTrimmed(b); });
           });
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
    try {
        ImportRun run({.name = "list",
                       .bytes = input.size(),
                       .open = [&] { return std::make_unique<std::istringstream>(std::string(input)); }},
                      options);
        const bool imported = run.findPrices() && run.write(file);
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
        if (imported) {
            checkCatalogue(expected, file);
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
