// How a price list is understood. The first byte is the letter of an encoding to read the rest in, or "?" if that is to
// be found out. Whatever the bytes are, each row is an entry, skipped or refused, with a reason and in order; a list
// that is written out again as it was understood, in the plainest form, is understood in the same way.

#include "apps/fuzzing/FuzzTarget.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CaseFolding.h"
#include "orvan/components/catalogue/lists/ListReader.h"
#include "orvan/core/SpreadsheetCell.h"

#include <sstream>

namespace orvan::fuzz {
namespace {

struct Entries {
    std::string plain; ///< The entries as a list in the plainest form.
    std::uint64_t count = 0, withoutPrice = 0;
};

ImportSource sourceOf(const std::string& bytes)
{
    return {.name = "list", .bytes = bytes.size(), .open = [&bytes] {
                return std::make_unique<std::istringstream>(bytes);
            }};
}

Entries entriesOf(const std::string& bytes, const CatalogueImportOptions& options)
{
    const ImportSource source = sourceOf(bytes);
    ListReader reader(source, options);
    Entries entries{.plain = "item id,name,key,part number,barcode,unit price,note\n"};
    const bool known = reader.findPrices([](std::uint64_t) { return true; });
    require(known == reader.ambiguousPrice().empty(), "prices are ambiguous, or their decimals are known");
    if (!known || !reader.missingColumns().empty()) {
        return entries;
    }
    std::uint64_t line = 0;
    while (reader.next()) {
        require(reader.line() > line && reader.line() > reader.form().headerLine,
                "rows are in order, below the header");
        line = reader.line();
        const bool isEntry = reader.kind() == ListReader::Kind::entry;
        require(isEntry == reader.reason().empty(), "what is no entry has a reason");
        if (!isEntry) {
            continue;
        }
        const CatalogueEntry& entry = reader.entry();
        require(!entry.name.empty() || !entry.partNum.empty(), "an entry has a name or a part number");
        require(!entry.unitPrice || entry.unitPrice->scaled() >= 0, "no price is negative");
        ++entries.count;
        entries.withoutPrice += entry.unitPrice ? 0 : 1;
        const std::string price = entry.unitPrice ? entry.unitPrice->toText() : std::string();
        for (const std::string_view text :
             {entry.ownId, entry.name, entry.key, entry.partNum, entry.barcode, std::string_view(price), entry.note}) {
            require(isUtf8(text), "texts are UTF-8");
            appendQuoted(entries.plain, text);
            entries.plain += ',';
        }
        entries.plain.back() = '\n';
    }
    return entries;
}

} // namespace

void runTarget(std::string_view input)
{
    CatalogueImportOptions options;
    switch (takeByte(input)) {
    case '?': break;
    case '8': options.encoding = "UTF-8"; break;
    case 'u': options.encoding = "UTF-16"; break;
    case 'w': options.encoding = "windows-1252"; break;
    case 'k': options.encoding = "KOI8-R"; break;
    case 'j': options.encoding = "Shift_JIS"; break;
    default: return;
    }
    Entries found;
    try {
        found = entriesOf(std::string(input), options);
    } catch (const RuntimeError& error) {
        require(error.number() == ErrorNumber::invalidFileFormat ||
                    error.number() == ErrorNumber::cannotCreateComponent,
                "a list that is refused raises 321");
        return;
    }
    if (found.count == 0) {
        return;
    }
    const Entries again =
        entriesOf(found.plain, {.delimiter = ',', .decimalSeparator = '.', .encoding = "UTF-8", .headerLine = 1});
    require(again.count <= found.count, "no entry is invented");
    require(again.count < found.count || again.plain == found.plain, "entries are read again as they are written");
}

} // namespace orvan::fuzz
