// L: the import of a price list. The peer is SQLite alone, which puts the same rows, already parsed, into the same
// table with the same indexes.

#include "benchmarks/Allocations.h"
#include "benchmarks/Comparison.h"
#include "benchmarks/SampleCatalogue.h"
#include "benchmarks/Subjects.h"
#include "benchmarks/Table.h"
#include "benchmarks/TemporaryFiles.h"
#include "orvan/components/catalogue/CaseFolding.h"
#include "orvan/components/catalogue/CatalogueFile.h"
#include "orvan/components/catalogue/CatalogueImport.h"

#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace orvan::bench {

namespace {

using Clock = std::chrono::steady_clock;

/// How long the work takes, in nanoseconds of the clock and not of the thread, because an import waits for the disk.
template <class Work>
double timeOf(Work&& work)
{
    const auto begin = Clock::now();
    work();
    return std::chrono::duration<double, std::nano>(Clock::now() - begin).count();
}

Side import(std::size_t rows)
{
    return {"", [rows] {
                const std::filesystem::path& list = priceList(rows);
                const std::filesystem::path file = temporaryFiles() / "imported.catalogue";
                std::filesystem::remove(file);
                return timeOf([&] { importCatalogue(list, file); });
            }};
}

struct ParsedRow {
    PriceListRow row;
    std::string nameFolded, partNumFolded;
};

std::vector<ParsedRow> parsedRows(std::size_t count)
{
    std::vector<ParsedRow> rows;
    rows.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        PriceListRow row = priceListRow(i);
        std::string nameFolded = foldCase(row.name), partNumFolded = foldCase(row.partNum);
        rows.push_back({std::move(row), std::move(nameFolded), std::move(partNumFolded)});
    }
    return rows;
}

void require(bool done, sqlite3* database)
{
    if (!done) {
        throw std::runtime_error(sqlite3_errmsg(database));
    }
}

/// Fills the peer's file with the settings that the library uses, which are SQLite's fastest: without a journal, and
/// with a single wait for the disk, at the end.
void fill(const std::filesystem::path& file, const std::vector<ParsedRow>& rows)
{
    sqlite3* database = nullptr;
    require(sqlite3_open(file.c_str(), &database) == SQLITE_OK, database);
    const auto run = [&](const char* sql) {
        require(sqlite3_exec(database, sql, nullptr, nullptr, nullptr) == SQLITE_OK, database);
    };
    run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA locking_mode = EXCLUSIVE;"
        "PRAGMA cache_size = -4096; BEGIN;"
        "CREATE TABLE product (item_id INTEGER PRIMARY KEY, name_folded TEXT, part_num_folded TEXT, name TEXT,"
        " key TEXT, part_num TEXT, unit_price, note TEXT);");
    sqlite3_stmt* insert = nullptr;
    require(sqlite3_prepare_v2(database, "INSERT INTO product VALUES (?, ?, ?, ?, ?, ?, ?, ?)", -1, &insert, nullptr) ==
                SQLITE_OK,
            database);
    for (const ParsedRow& each : rows) {
        const auto bind = [&](int index, const std::string& text) {
            sqlite3_bind_text(insert, index, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
        };
        sqlite3_bind_int(insert, 1, each.row.itemId);
        bind(2, each.nameFolded);
        bind(3, each.partNumFolded);
        bind(4, each.row.name);
        bind(5, each.row.key);
        bind(6, each.row.partNum);
        sqlite3_bind_int64(insert, 7, each.row.unitPrice);
        bind(8, each.row.note);
        require(sqlite3_step(insert) == SQLITE_DONE, database);
        sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    run("CREATE INDEX product_name_folded ON product (name_folded, name);"
        "CREATE INDEX product_name ON product (name);"
        "CREATE INDEX product_part_num_folded ON product (part_num_folded, part_num);"
        "CREATE INDEX product_part_num ON product (part_num); COMMIT");
    sqlite3_close(database);
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    ::fsync(descriptor);
    ::close(descriptor);
}

std::filesystem::path peersFile()
{
    return temporaryFiles() / "sqlite.catalogue";
}

Side sqliteAlone(std::size_t rows)
{
    return {"SQLite alone", [parsed = parsedRows(rows)] {
                std::filesystem::remove(peersFile());
                return timeOf([&] { fill(peersFile(), parsed); });
            }};
}

/// Throws unless both files hold the same rows and indexes, as far as some queries tell.
void requireSameFiles()
{
    constexpr std::size_t kRows = 10'000;
    fill(peersFile(), parsedRows(kRows));
    for (const char* const sql :
         {"SELECT count(*) FROM product", "SELECT sum(item_id * length(name || note || key)) FROM product",
          "SELECT sum(unit_price * length(part_num_folded || name_folded)) FROM product",
          "SELECT count(*) FROM sqlite_schema WHERE type = 'index'",
          "SELECT item_id FROM product ORDER BY name_folded, name, item_id LIMIT 1 OFFSET 5000"}) {
        SqliteFile ours(catalogueFile(kRows), SqliteFile::Access::readOnly);
        SqliteFile peers(peersFile(), SqliteFile::Access::readOnly);
        requireSame(ours.number(sql), peers.number(sql), sql);
    }
}

/// The largest amount of heap that an import uses at any time.
Side importMemory(std::string name, std::size_t rows)
{
    return {std::move(name), [rows] {
                const std::filesystem::path& list = priceList(rows);
                const std::size_t before = heapInUse();
                std::size_t most = before;
                CatalogueImportOptions options;
                options.progress = [&](const CatalogueImportProgress& /*progress*/) {
                    most = std::max(most, heapInUse());
                    return true;
                };
                importCatalogue(list, temporaryFiles() / "memory.catalogue", options);
                return static_cast<double>(most - before);
            }};
}

} // namespace

void addImport(Suite& suite)
{
    constexpr std::size_t kRows = 1'000'000;
    suite.add(Row{"L import, 1,000,000 rows", atMostTimes(2.5),
                  [] {
                      requireSameFiles();
                      return Sides{import(kRows), sqliteAlone(kRows)};
                  },
                  Unit::nanoseconds, 1});
    suite.add(Row{"L import's memory, 1,000,000 rows beside 100,000", atMostTimes(1.1),
                  [] {
                      return Sides{importMemory("", kRows), importMemory("100,000", 100'000)};
                  },
                  Unit::bytes, 1});
    const std::vector<std::size_t> sizes{10'000, 100'000, 1'000'000};
    suite.add(Growth{"L import", import, sizes, Unit::nanoseconds, 1});
    suite.add(
        Growth{"L import's memory", [](std::size_t rows) { return importMemory("", rows); }, sizes, Unit::bytes, 1});
}

} // namespace orvan::bench
