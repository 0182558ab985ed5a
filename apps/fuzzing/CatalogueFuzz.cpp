// Catalogue files: the first line is the typed text, and the rest is the file. If SQLite finds the file in order, the
// lists are compared with those that a scan of the whole table gives. That is so for files of the first form alone: in
// those of the present one, each page has a checksum, which an invented input does not hit.

#include "apps/fuzzing/FuzzTarget.h"
#include "apps/fuzzing/MemoryFiles.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CaseFolding.h"
#include "orvan/components/catalogue/Catalogue.h"
#include "orvan/components/catalogue/CatalogueFile.h"

#include <algorithm>
#include <tuple>

namespace orvan::fuzz {
namespace {

constexpr std::size_t kMost = 5; ///< Rows of a list: few, so that the limit is reached.

const std::string kFile = "/in memory";

/// What version 2.1.30 wrote.
constexpr char kFirstForm[] = R"(CREATE TABLE product (
    item_id INTEGER PRIMARY KEY,
    name_folded TEXT,
    part_num_folded TEXT,
    name TEXT,
    key TEXT,
    part_num TEXT,
    unit_price, -- in ten-thousandths
    note TEXT
);
CREATE TABLE origin (
    source TEXT,
    entries INTEGER
);
CREATE INDEX product_name_folded ON product (name_folded, name);
CREATE INDEX product_name ON product (name);
CREATE INDEX product_part_num_folded ON product (part_num_folded, part_num);
CREATE INDEX product_part_num ON product (part_num);)";

struct ScannedRow {
    std::int64_t id;
    std::string text, folded;
};

/// Whether SQLite finds no fault in the file, and its table and indexes are those that an import makes.
bool isInOrder(SqliteFile& file)
{
    SqliteStatement check(file, "PRAGMA integrity_check");
    SqliteRows answer = check.query();
    if (!answer.next() || answer.text(0) != "ok") {
        return false;
    }
    if (catalogueVersion(file) != kFirstCatalogueVersion) {
        return false;
    }
    static const std::string made = [] {
        const std::string other = "/another in memory";
        SqliteFile catalogue(other, SqliteFile::Access::create);
        catalogue.run(kFirstForm);
        SqliteStatement schema(catalogue, "SELECT group_concat(sql) FROM sqlite_schema");
        SqliteRows rows = schema.query();
        return rows.next() ? std::string(rows.text(0)) : std::string();
    }();
    SqliteStatement schema(file, "SELECT group_concat(sql) FROM sqlite_schema");
    SqliteRows rows = schema.query();
    return rows.next() && rows.text(0) == made &&
           file.number("SELECT count(*) FROM pragma_encoding WHERE encoding = 'UTF-8'") == 1 &&
           file.number("SELECT count(*) FROM product NOT INDEXED WHERE typeof(name) <> 'text' OR"
                       " typeof(name_folded) <> 'text' OR typeof(part_num) <> 'text' OR"
                       " typeof(part_num_folded) <> 'text'") == 0;
}

std::vector<ScannedRow> scan(SqliteFile& file, const std::string& column)
{
    std::vector<ScannedRow> all;
    SqliteStatement statement(file, "SELECT item_id, " + column + ", " + column + "_folded FROM product NOT INDEXED");
    for (SqliteRows rows = statement.query(); rows.next();) {
        all.push_back({rows.integer(0), std::string(rows.text(1)), std::string(rows.text(2))});
    }
    return all;
}

void compare(const LookUpList& shown, std::vector<ScannedRow> all, const std::string& typed)
{
    const std::string folded = foldCase(typed);
    std::erase_if(all, [&](const ScannedRow& row) { return row.folded.empty() || !row.folded.starts_with(folded); });
    const auto key = [&](const ScannedRow& row) { return std::tuple(row.folded, row.text, row.id); };
    std::sort(all.begin(), all.end(), [&](const ScannedRow& a, const ScannedRow& b) { return key(a) < key(b); });
    if (all.size() > kMost) {
        all.resize(kMost);
    }
    std::stable_partition(all.begin(), all.end(), [&](const ScannedRow& row) { return row.text == typed; });
    const std::vector<LookUpRow> rows = shown.value_or(std::vector<LookUpRow>());
    require(rows.size() == all.size(), "no match is missing");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        require(rows[i].itemId == all[i].id, "the matches are in order");
        require(i == 0 || rows[i].text == all[i].text, "each row has its entry's text");
    }
}

void checkFirst(const LookUpList& rows, const std::string& typed)
{
    require(!rows || (!rows->empty() && rows->size() <= kMost), "a list is not empty, and no longer than its limit");
    require(!rows || foldCase(rows->front().text).starts_with(foldCase(typed)),
            "the first row begins with the typed text");
}

} // namespace

void runTarget(std::string_view input)
{
    const std::string typed(takeLine(input));
    memoryFile(kFile) = input;
    try {
        SqliteCatalogue catalogue({.file = kFile, .mostMatches = kMost, .mostListed = kMost});
        const LookUpList names = catalogue.GetProductNameList(typed, false);
        const LookUpList partNums = catalogue.GetPartNumList(typed, false);
        const LookUpList all = catalogue.GetProductNameList("", true);
        checkFirst(names, typed);
        checkFirst(partNums, typed);
        for (const LookUpRow& row : all.value_or(std::vector<LookUpRow>())) {
            catalogue.SeekItem(static_cast<std::int32_t>(row.itemId));
            for (std::int32_t column = 0; column < 8 && !catalogue.IsEOF(); ++column) {
                static_cast<void>(catalogue.GetFieldValue(column));
            }
        }
        SqliteFile file = openCatalogue(kFile);
        if (isInOrder(file)) {
            const std::vector<ScannedRow> byName = scan(file, "name");
            compare(names, typed.empty() ? std::vector<ScannedRow>() : byName, typed);
            compare(partNums, typed.empty() ? std::vector<ScannedRow>() : scan(file, "part_num"), typed);
            compare(all, byName, "");
        }
    } catch (const RuntimeError& error) {
        require(error.number() == ErrorNumber::invalidFileFormat || error.number() == ErrorNumber::pathFileAccess ||
                    error.number() == ErrorNumber::outOfMemory,
                "a damaged file raises 321, 75 or 7");
    }
}

} // namespace orvan::fuzz
