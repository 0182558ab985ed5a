#include "orvan/components/catalogue/CatalogueFile.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/files/Descriptor.h"

#include <unistd.h>

namespace orvan {

namespace {

// SQLite's file format has these numbers at these places, in big-endian order.
constexpr off_t kApplicationIdAt = 68;
constexpr off_t kVersionAt = 60;

/// Returns 0 where there is no such file, or something else has this name.
std::int64_t numberInHeader(const std::filesystem::path& file, off_t at)
{
    unsigned char bytes[4] = {};
    try {
        const files::Descriptor opened = files::Descriptor::openRegular(file);
        if (::pread(opened.get(), bytes, sizeof bytes, at) != sizeof bytes) {
            return 0;
        }
    } catch (const RuntimeError&) {
        return 0;
    }
    std::int64_t number = 0;
    for (const unsigned char byte : bytes) {
        number = number * 256 + byte;
    }
    return number;
}

[[noreturn]] void raiseNewer(const std::filesystem::path& file)
{
    raiseCatalogueError(ErrorNumber::invalidFileFormat, file, userText("a newer version of this program has made it"));
}

} // namespace

bool isCatalogue(const std::filesystem::path& file)
{
    return numberInHeader(file, kApplicationIdAt) == kCatalogueApplicationId;
}

void refuseNewerCatalogue(const std::filesystem::path& file)
{
    if (isCatalogue(file) && numberInHeader(file, kVersionAt) > kCatalogueVersion) {
        raiseNewer(file);
    }
}

std::int64_t catalogueVersion(SqliteFile& catalogue)
{
    return catalogue.number("PRAGMA user_version");
}

SqliteFile openCatalogue(const std::filesystem::path& file)
{
    SqliteFile catalogue(file, SqliteFile::Access::readOnly);
    if (catalogue.number("PRAGMA application_id") != kCatalogueApplicationId) {
        raiseCatalogueError(ErrorNumber::invalidFileFormat, file, userText("it is no catalogue file"));
    }
    const std::int64_t version = catalogueVersion(catalogue);
    if (version > kCatalogueVersion) {
        raiseNewer(file);
    }
    if (version < kFirstCatalogueVersion || (version > kFirstCatalogueVersion) != catalogue.hasChecksums()) {
        raiseCatalogueError(ErrorNumber::invalidFileFormat, file, userText("it is damaged (%1)", "its header"));
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
    const bool isFirst = catalogueVersion(catalogue) == kFirstCatalogueVersion;
    SqliteStatement query(catalogue, isFirst ? "SELECT source, entries, '', 1, '' FROM origin"
                                             : "SELECT source, entries, lineage, next_number, language FROM origin");
    SqliteRows rows = query.query();
    if (rows.next()) {
        origin = {.source = std::string(rows.text(0)),
                  .entries = rows.integer(1),
                  .lineage = std::string(rows.text(2)),
                  .nextNumber = rows.integer(3),
                  .language = std::string(rows.text(4))};
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

} // namespace orvan
