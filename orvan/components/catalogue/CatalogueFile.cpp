#include "orvan/components/catalogue/CatalogueFile.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CaseFolding.h"
#include "orvan/files/Descriptor.h"

#include <iterator>

#include <unistd.h>

namespace orvan {

namespace {

constexpr std::int64_t kApplicationId = 0x4F72764B; // "OrvK"
constexpr std::int64_t kVersion = 1;

// The price has no declared type; if it had one, SQLite would turn a text that another program wrote into a number.
//
// The size of SQLite's cache is also how much SQLite sorts in memory at a time. With a cache sixteen times as large,
// building the indexes took a quarter longer, because the data no longer stayed in the processor's cache; an import of
// item ids in random order took a fifth less; and every import needed sixteen times as much memory.
constexpr char kTable[] = R"(
PRAGMA journal_mode = OFF;
PRAGMA synchronous = OFF;
PRAGMA locking_mode = EXCLUSIVE;
PRAGMA cache_size = -4096; -- KiB
BEGIN;
CREATE TABLE product (
    item_id INTEGER PRIMARY KEY,
    name_folded TEXT,
    part_num_folded TEXT,
    name TEXT,
    key TEXT,
    part_num TEXT,
    unit_price, -- in ten-thousandths
    note TEXT,
    barcode TEXT
);
CREATE TABLE origin (
    source TEXT,
    entries INTEGER
);
)";

constexpr const char* kIndexes[] = {
    "CREATE INDEX product_name_folded ON product (name_folded, name)",
    "CREATE INDEX product_name ON product (name)",
    "CREATE INDEX product_part_num_folded ON product (part_num_folded, part_num)",
    "CREATE INDEX product_part_num ON product (part_num)",
};

} // namespace

bool isCatalogue(const std::filesystem::path& file)
{
    // SQLite's file format has the application id at this place, in big-endian order.
    constexpr off_t kIdAt = 68;
    unsigned char bytes[4] = {};
    try {
        const files::Descriptor opened = files::Descriptor::openRegular(file);
        if (::pread(opened.get(), bytes, sizeof bytes, kIdAt) != sizeof bytes) {
            return false;
        }
    } catch (const RuntimeError&) {
        return false; // there is no such file, or something else has this name
    }
    std::int64_t id = 0;
    for (const unsigned char byte : bytes) {
        id = id * 256 + byte;
    }
    return id == kApplicationId;
}

SqliteFile openCatalogue(const std::filesystem::path& file)
{
    SqliteFile catalogue(file, SqliteFile::Access::readOnly);
    if (catalogue.number("PRAGMA application_id") != kApplicationId) {
        raiseCatalogueError(ErrorNumber::invalidFileFormat, file, userText("it is no catalogue file"));
    }
    if (catalogue.number("PRAGMA user_version") != kVersion) {
        raiseCatalogueError(ErrorNumber::invalidFileFormat, file,
                            userText("a newer version of this program has made it"));
    }
    return catalogue;
}

CatalogueOrigin catalogueOrigin(SqliteFile& catalogue)
{
    CatalogueOrigin origin;
    if (catalogue.number("SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name = 'origin'") == 0) {
        origin.entries = catalogue.number("SELECT count(*) FROM product");
        return origin;
    }
    SqliteStatement query(catalogue, "SELECT source, entries FROM origin");
    SqliteRows rows = query.query();
    if (rows.next()) {
        origin.source = rows.text(0);
        origin.entries = rows.integer(1);
    }
    return origin;
}

CatalogueStatistics catalogueStatistics(SqliteFile& catalogue)
{
    SqliteStatement query(catalogue, "SELECT count(*), count(*) - count(unit_price), min(unit_price), max(unit_price)"
                                     " FROM product");
    CatalogueStatistics statistics;
    SqliteRows rows = query.query();
    if (rows.next()) {
        statistics.entries = rows.integer(0);
        statistics.withoutPrice = rows.integer(1);
        statistics.lowestPrice = Currency::fromScaled(rows.integer(2));
        statistics.highestPrice = Currency::fromScaled(rows.integer(3));
    }
    statistics.bytes = static_cast<std::int64_t>(std::filesystem::file_size(catalogue.path()));
    return statistics;
}

CatalogueWriter::CatalogueWriter(const std::filesystem::path& file)
    : file_(file, SqliteFile::Access::create),
      insert_((file_.run(kTable), file_), "INSERT OR IGNORE INTO product VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)")
{
}

bool CatalogueWriter::add(const CatalogueEntry& entry)
{
    foldCase(entry.name, nameFolded_);
    foldCase(entry.partNum, partNumFolded_);
    const std::string_view nameFolded = nameFolded_, partNumFolded = partNumFolded_;
    const auto insert = [&](auto unitPrice) {
        return insert_.execute(std::int64_t{entry.itemId}, nameFolded, partNumFolded, entry.name, entry.key,
                               entry.partNum, unitPrice, entry.note, entry.barcode);
    };
    return (entry.unitPrice ? insert(entry.unitPrice->scaled()) : insert(nullptr)) == 1;
}

void CatalogueWriter::setOrigin(const CatalogueOrigin& origin)
{
    SqliteStatement(file_, "INSERT INTO origin VALUES (?, ?)").execute(std::string_view(origin.source), origin.entries);
}

bool CatalogueWriter::finish(const std::function<bool(int built, int all)>& goOn)
{
    const int all = static_cast<int>(std::size(kIndexes));
    for (int built = 0; built < all; ++built) {
        if (!file_.runWhile(kIndexes[built], [&] { return goOn(built, all); })) {
            return false;
        }
    }
    file_.run(("PRAGMA application_id = " + std::to_string(kApplicationId) +
               "; PRAGMA user_version = " + std::to_string(kVersion) + "; COMMIT")
                  .c_str());
    return goOn(all, all);
}

} // namespace orvan
