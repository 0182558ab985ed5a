// L: the import of a price list. The peer is SQLite alone, which puts the same rows, already parsed, into the same
// tables with the same indexes. What a row is sorted and found by is computed before, for SQLite has no function for
// it.

#include "benchmarks/Allocations.h"
#include "benchmarks/Comparison.h"
#include "benchmarks/SampleCatalogue.h"
#include "benchmarks/Subjects.h"
#include "benchmarks/Table.h"
#include "benchmarks/TemporaryFiles.h"
#include "orvan/components/catalogue/CaseFolding.h"
#include "orvan/components/catalogue/CatalogueFile.h"
#include "orvan/components/catalogue/CatalogueImport.h"
#include "orvan/components/catalogue/SearchText.h"

#include <sqlite3.h>
#include <unicode/coll.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <string_view>
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

/// A row with all that is computed from it, which SQLite alone could not.
struct ParsedRow {
    PriceListRow row;
    std::string nameFolded, partNumFolded, nameKey, partNumKey, pieces, words;
};

std::string sortKey(const ::icu::Collator& collator, const std::string& text)
{
    std::string key(4 * text.size() + 64, '\0');
    key.resize(static_cast<std::size_t>(collator.getSortKey(::icu::UnicodeString::fromUTF8(text),
                                                            reinterpret_cast<std::uint8_t*>(key.data()),
                                                            static_cast<std::int32_t>(key.size()))));
    return key;
}

std::vector<ParsedRow> parsedRows(std::size_t count)
{
    std::vector<ParsedRow> rows;
    rows.reserve(count);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<::icu::Collator> collator(::icu::Collator::createInstance(::icu::Locale::getRoot(), status));
    for (std::size_t i = 0; i < count; ++i) {
        PriceListRow row = priceListRow(i);
        ParsedRow parsed{{},
                         foldCase(row.name),
                         foldCase(row.partNum),
                         sortKey(*collator, row.name),
                         sortKey(*collator, row.partNum),
                         {},
                         {}};
        for (const std::string& text : {row.name, row.partNum, row.note}) {
            appendPieces(text, parsed.pieces);
            appendVocabulary(text, parsed.words);
        }
        parsed.row = std::move(row);
        rows.push_back(std::move(parsed));
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
        "CREATE TEMP TABLE given (item_id INTEGER PRIMARY KEY, name TEXT, key TEXT, part_num TEXT, unit_price,"
        " note TEXT, name_folded TEXT, part_num_folded TEXT, name_key BLOB, part_num_key BLOB, pieces TEXT);"
        "CREATE TEMP TABLE given_word (word TEXT);"
        "CREATE TABLE product (rank INTEGER PRIMARY KEY, item_id INTEGER, name TEXT, key TEXT, part_num TEXT,"
        " unit_price, note TEXT);"
        "CREATE TABLE part_num_order (rank INTEGER PRIMARY KEY, item_id INTEGER, part_num TEXT);"
        "CREATE TABLE name_start (folded TEXT, rank INTEGER, PRIMARY KEY (folded, rank)) WITHOUT ROWID;"
        "CREATE TABLE part_num_start (folded TEXT, rank INTEGER, PRIMARY KEY (folded, rank)) WITHOUT ROWID;"
        "CREATE VIRTUAL TABLE piece USING fts5(text, content = '', detail = none, columnsize = 0,"
        " tokenize = \"ascii tokenchars '_'\");"
        "CREATE TABLE word (word TEXT PRIMARY KEY) WITHOUT ROWID;");
    sqlite3_stmt* insert = nullptr;
    const auto prepare = [&](const char* sql) {
        require(sqlite3_prepare_v2(database, sql, -1, &insert, nullptr) == SQLITE_OK, database);
    };
    const auto bind = [&](int index, std::string_view text) {
        sqlite3_bind_text(insert, index, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
    };
    const auto step = [&] {
        require(sqlite3_step(insert) == SQLITE_DONE, database);
        sqlite3_reset(insert);
    };
    prepare("INSERT INTO given VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    for (const ParsedRow& each : rows) {
        sqlite3_bind_int(insert, 1, each.row.itemId);
        bind(2, each.row.name);
        bind(3, each.row.key);
        bind(4, each.row.partNum);
        sqlite3_bind_int64(insert, 5, each.row.unitPrice);
        bind(6, each.row.note);
        bind(7, each.nameFolded);
        bind(8, each.partNumFolded);
        sqlite3_bind_blob(insert, 9, each.nameKey.data(), static_cast<int>(each.nameKey.size()), SQLITE_STATIC);
        sqlite3_bind_blob(insert, 10, each.partNumKey.data(), static_cast<int>(each.partNumKey.size()), SQLITE_STATIC);
        bind(11, each.pieces);
        step();
    }
    sqlite3_finalize(insert);
    prepare("INSERT INTO given_word VALUES (?)");
    for (const ParsedRow& each : rows) {
        for (std::size_t begin = 0, end = 0; begin < each.words.size(); begin = end + 1) {
            end = each.words.find(' ', begin);
            bind(1, std::string_view(each.words).substr(begin, end - begin));
            step();
        }
    }
    sqlite3_finalize(insert);
    run("INSERT INTO product SELECT NULL, item_id, name, key, part_num, unit_price, note FROM given"
        " ORDER BY name_key, name, item_id;"
        "CREATE UNIQUE INDEX product_item_id ON product (item_id);"
        "CREATE INDEX product_id_key ON product (part_num, item_id);"
        "INSERT INTO part_num_order SELECT NULL, item_id, part_num FROM given ORDER BY part_num_key, part_num, item_id;"
        "INSERT INTO name_start SELECT name_folded, rank FROM product JOIN given USING (item_id) ORDER BY 1, 2;"
        "INSERT INTO part_num_start SELECT part_num_folded, rank FROM part_num_order JOIN given USING (item_id)"
        " ORDER BY 1, 2;"
        "INSERT INTO piece (rowid, text) SELECT rank, pieces FROM product JOIN given USING (item_id) ORDER BY rank;"
        "INSERT INTO piece (piece) VALUES ('optimize');"
        "INSERT INTO word SELECT DISTINCT word FROM given_word ORDER BY 1; COMMIT");
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

/// Throws unless both files hold the same rows and indexes, as far as some queries tell. The library's file also has
/// what makes searches faster, which SQLite alone does not write: rows for crowded beginnings, whose ranks are
/// negative, and the entry of each word that no other entry has.
void requireSameFiles()
{
    constexpr std::size_t kRows = 10'000;
    fill(peersFile(), parsedRows(kRows));
    for (const char* const sql :
         {"SELECT count(*) FROM product", "SELECT sum(item_id * length(name || note || key)) FROM product",
          "SELECT sum(unit_price * rank) FROM product",
          "SELECT sum(rank * length(folded)) FROM name_start WHERE rank > 0",
          "SELECT sum(rank * length(folded)) FROM part_num_start WHERE rank > 0", "SELECT count(*) FROM word",
          "SELECT count(*) FROM piece WHERE piece MATCH 'ing'"}) {
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
    suite.add(Row{"L import, 1,000,000 rows", atMostTimes(2),
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
