#include "apps/fuzzing/PlainImport.h"

#include <algorithm>
#include <set>

namespace orvan::fuzz {

namespace {

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

} // namespace

PlainColumns::PlainColumns(const std::vector<std::string>& header)
    : id(columnOf(header, {"itemid", "id", "productid", "articleid"})),
      name(columnOf(header, {"name", "productname", "itemname", "articlename", "product", "article", "title"})),
      key(columnOf(header, {"key", "productkey", "itemkey"})),
      partNum(columnOf(header, {"partnumber", "partnum", "partno", "part", "sku", "itemnumber", "itemno",
                                "articlenumber", "articleno", "productnumber", "productno"})),
      price(columnOf(header, {"unitprice", "price", "listprice"})),
      note(columnOf(header, {"note", "notes", "remark", "remarks", "comment", "comments", "description"}))
{
}

bool isPlainUtf8(std::string_view text)
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

bool isComparable(const PlainImport& expected, const std::vector<PlainRecord>& records)
{
    return expected.readable && expected.plainPrices &&
           std::none_of(records.begin() + 1, records.end(), [&](const PlainRecord& record) {
               return record.fields.size() == records[0].fields.size() &&
                      std::equal(record.fields.begin(), record.fields.end(), records[0].fields.begin(),
                                 [](const auto& a, const auto& b) { return plainTrimmed(a) == plainTrimmed(b); });
           });
}

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

} // namespace orvan::fuzz
