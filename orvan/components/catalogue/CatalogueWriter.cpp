#include "orvan/components/catalogue/CatalogueWriter.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/base/Text.h"
#include "orvan/components/catalogue/CaseFolding.h"
#include "orvan/components/catalogue/SearchText.h"
#include "orvan/components/catalogue/SortKeys.h"

#include <algorithm>
#include <array>
#include <system_error>
#include <utility>
#include <vector>

namespace orvan {

namespace {

constexpr std::size_t kLongestWord = 40; // bytes; what is longer is no word that somebody types
constexpr std::uint64_t kRowsBetweenQuestions = 10'000;

// The price has no declared type; if it had one, SQLite would turn a text that another program wrote into a number.
//
// The size of SQLite's cache is also how much SQLite sorts in memory at a time. With a cache sixteen times as large,
// building the indexes took a quarter longer, because the data no longer stayed in the processor's cache, and every
// import needed sixteen times as much memory.
constexpr char kSettings[] = R"(
PRAGMA journal_mode = OFF;
PRAGMA synchronous = OFF;
PRAGMA locking_mode = EXCLUSIVE;
PRAGMA cache_size = -4096; -- KiB
)";

constexpr char kTables[] = R"(
PRAGMA gathered.journal_mode = OFF;
PRAGMA gathered.synchronous = OFF;
PRAGMA gathered.locking_mode = EXCLUSIVE;
BEGIN;
CREATE TABLE gathered.entry (
    item_id INTEGER PRIMARY KEY,
    own_id TEXT, name TEXT, key TEXT, part_num TEXT, unit_price, note TEXT, barcode TEXT
);
CREATE TABLE gathered.word (word TEXT, rank INTEGER);
CREATE UNIQUE INDEX gathered.entry_own_id ON entry (own_id) WHERE own_id IS NOT NULL;
CREATE TABLE product (
    rank INTEGER PRIMARY KEY,
    item_id INTEGER,
    own_id TEXT,
    name TEXT,
    key TEXT,
    part_num TEXT,
    unit_price, -- in ten-thousandths
    note TEXT,
    barcode TEXT,
    id_key TEXT
);
CREATE TABLE part_num_order (rank INTEGER PRIMARY KEY, item_id INTEGER, part_num TEXT, product_rank INTEGER);
CREATE TABLE name_start (folded TEXT, rank INTEGER, entries INTEGER, PRIMARY KEY (folded, rank)) WITHOUT ROWID;
CREATE TABLE part_num_start (folded TEXT, rank INTEGER, entries INTEGER, PRIMARY KEY (folded, rank)) WITHOUT ROWID;
CREATE VIRTUAL TABLE piece USING fts5(
    text, content = '', detail = none, columnsize = 0, tokenize = "ascii tokenchars '_'"
);
INSERT INTO piece (piece, rank) VALUES ('pgsz', 8000); -- bytes, so that a page of the index fits into one of the file
CREATE TABLE piece_entries (piece TEXT PRIMARY KEY, entries INTEGER) WITHOUT ROWID;
CREATE VIRTUAL TABLE temp.piece_list USING fts5vocab(main, piece, row);
CREATE TABLE word (
    has_digits INTEGER, word TEXT,
    rank INTEGER, -- of the entry that has it; NULL if several have it
    PRIMARY KEY (has_digits, word)
) WITHOUT ROWID;
CREATE TABLE retired (item_id INTEGER PRIMARY KEY, id_key TEXT);
CREATE TABLE origin (source TEXT, entries INTEGER, lineage TEXT, next_number INTEGER, language TEXT);
)";

/// Entries without a text are the last ones, where the list of that text leaves them out.
constexpr std::array kSteps = {
    "INSERT INTO product SELECT NULL, item_id, own_id, name, key, part_num, unit_price, note, barcode,"
    " CASE WHEN own_id IS NOT NULL THEN 'i' || own_id WHEN part_num <> '' THEN 'p' || part_num ELSE 'n' || name END"
    " FROM gathered.entry ORDER BY name = '', sort_key(name), name, item_id",
    "CREATE UNIQUE INDEX product_item_id ON product (item_id)",
    "CREATE INDEX product_id_key ON product (id_key, item_id)",
    // Keys that several entries share: the name follows, and the place among those that have the same name, too.
    "UPDATE product SET id_key = 'd' || id_key || char(31) || name || char(31) || place FROM (SELECT rank AS same,"
    " row_number() OVER (PARTITION BY id_key, name ORDER BY item_id) - 1 AS place FROM product WHERE id_key IN"
    " (SELECT id_key FROM product INDEXED BY product_id_key GROUP BY id_key HAVING count(*) > 1)) WHERE rank = same",
    "INSERT INTO part_num_order SELECT NULL, item_id, part_num, rank FROM product WHERE part_num <> ''"
    " ORDER BY sort_key(part_num), part_num, item_id",
    "INSERT INTO name_start SELECT fold(name), rank, NULL FROM product WHERE name <> '' ORDER BY 1, 2",
    "INSERT INTO part_num_start SELECT fold(part_num), rank, NULL FROM part_num_order ORDER BY 1, 2",
    "INSERT INTO piece (rowid, text) SELECT rank, pieces(name, part_num, barcode, note) FROM product",
    "INSERT INTO piece_entries SELECT term, doc FROM temp.piece_list",
};

std::filesystem::path besides(const std::filesystem::path& file)
{
    std::filesystem::path gathered = file;
    return gathered += ".entries";
}

/// Attaches the file in which the entries are gathered.
void attachGathered(SqliteFile& file, const std::filesystem::path& path)
{
    SqliteStatement attach(file, "ATTACH ? AS gathered");
    const std::string name = path.string();
    attach.execute(std::string_view(name));
}

SqliteFile& prepared(SqliteFile& file)
{
    // Removed before it is used, and again once it is open: from then on it lives as long as the connection. A failing
    // step must not leave it behind, either.
    const auto removeGathered = [gathered = besides(file.path())] {
        std::error_code ignored;
        std::filesystem::remove(gathered, ignored);
    };
    removeGathered();
    try {
        file.addChecksums();
        file.run(kSettings);
        attachGathered(file, besides(file.path()));
        file.run(kTables);
    } catch (...) {
        removeGathered();
        throw;
    }
    removeGathered();
    return file;
}

} // namespace

CatalogueWriter::CatalogueWriter(const std::filesystem::path& file, CatalogueWriterOptions options)
    : file_(file, SqliteFile::Access::create), options_(std::move(options)), ids_(options_.former),
      insert_(prepared(file_), "INSERT OR IGNORE INTO gathered.entry VALUES (?, ?, ?, ?, ?, ?, ?, ?)"),
      findOwn_(file_, "SELECT 1 FROM gathered.entry WHERE own_id = ?"),
      gatherWord_(file_, "INSERT INTO gathered.word VALUES (?, ?)")
{
    addFunctions();
}

CatalogueWriter::~CatalogueWriter() = default;

void CatalogueWriter::addFunctions()
{
    using Arguments = const std::vector<std::string_view>&;
    file_.addFunction("fold", 1, true, [](Arguments texts, std::string& folded) { foldCase(texts.front(), folded); });
    file_.addFunction("sort_key", 1, false,
                      [keys = std::make_shared<SortKeys>(options_.language)](Arguments texts, std::string& key) {
                          keys->write(texts.front(), key);
                      });
    file_.addFunction("pieces", 4, true, [](Arguments texts, std::string& pieces) {
        for (const std::string_view text : texts) {
            appendPieces(text, pieces);
        }
    });
}

bool CatalogueWriter::add(const CatalogueEntry& given)
{
    CatalogueEntry entry = given;
    entry.partNum = trimmed(given.partNum);
    entry.barcode = trimmed(given.barcode);
    const std::string ownId = comparedId(given.ownId);
    const std::string_view own = ownId;
    if (!own.empty()) {
        SqliteRows earlier = findOwn_.query(own);
        if (earlier.next()) {
            return false;
        }
    }
    const auto insert = [&](std::int32_t number, auto id, auto price) {
        return insert_.execute(std::int64_t{number}, id, entry.name, entry.key, entry.partNum, price, entry.note,
                               entry.barcode) == 1;
    };
    const auto insertPriced = [&](std::int32_t number, auto id) {
        return entry.unitPrice ? insert(number, id, entry.unitPrice->scaled()) : insert(number, id, nullptr);
    };
    const auto take = [&](std::int32_t number) {
        return own.empty() ? insertPriced(number, nullptr) : insertPriced(number, own);
    };
    if (given.number) {
        if (!take(*given.number)) {
            return false;
        }
    } else {
        ids_.number(own, entry, take);
    }
    return true;
}

/// Notes each word of the entry with the entry's rank. Two ranks are enough to say that a word belongs to several
/// entries, so seenWords_ keeps most of the further ranks of such a word from being written.
void CatalogueWriter::gatherWords(std::int64_t rank, const SqliteRows& texts)
{
    words_.clear();
    for (int column = 1; column <= 4; ++column) {
        appendVocabulary(texts.text(column), words_);
    }
    for (std::size_t begin = 0, end = 0; begin < words_.size(); begin = end + 1) {
        end = words_.find(' ', begin);
        const std::string_view word = std::string_view(words_).substr(begin, end - begin);
        SeenWord& seen = seenWords_[std::hash<std::string_view>()(word) % seenWords_.size()];
        const bool isAnother = seen.word != word;
        if (word.size() <= kLongestWord && (isAnother || (!seen.inSeveral && seen.rank != rank))) {
            seen.word = word;
            seen.rank = rank;
            seen.inSeveral = !isAnother;
            gatherWord_.execute(word, rank);
        }
    }
}

bool CatalogueWriter::writeWords(const std::function<bool()>& goesOn)
{
    SqliteStatement all(file_, "SELECT rank, name, part_num, barcode, note FROM product");
    std::uint64_t count = 0;
    for (SqliteRows rows = all.query(); rows.next();) {
        if (++count % kRowsBetweenQuestions == 0 && !goesOn()) {
            return false;
        }
        gatherWords(rows.integer(0), rows);
    }
    return file_.runWhile(
        "INSERT INTO word SELECT word GLOB '*[0-9]*', word, iif(min(rank) = max(rank), min(rank), NULL)"
        " FROM gathered.word GROUP BY 1, 2",
        goesOn);
}

bool CatalogueWriter::finish(const std::function<bool(int built, int all)>& goOn)
{
    constexpr int kAll = static_cast<int>(kSteps.size()) + 4;
    int built = 0;
    const auto goesOn = [&] { return goOn(built, kAll); };
    for (const char* const step : kSteps) {
        if (!file_.runWhile(step, goesOn)) {
            return false;
        }
        ++built;
    }
    // Merged step by step, so that it can be cancelled: one search then reads one list for each piece.
    file_.run("INSERT INTO piece (piece, rank) VALUES ('merge', -1000)");
    for (std::int64_t before = -2, now = 0; now - before > 1;) {
        if (!goesOn()) {
            return false;
        }
        before = file_.number("SELECT total_changes()");
        file_.run("INSERT INTO piece (piece, rank) VALUES ('merge', 1000)");
        now = file_.number("SELECT total_changes()");
    }
    ++built;
    if (!writeWords(goesOn)) {
        return false;
    }
    ++built;
    if (!writeCrowded(LookUpText::name, goesOn) || !writeCrowded(LookUpText::partNum, goesOn)) {
        return false;
    }
    ++built;
    writeRetired();
    writeOrigin();
    ++built;
    return goesOn();
}

/// The beginnings that more entries share than a search sorts, with the first rank among those and their number. They
/// are few: a search goes through the ranks from there, and so needs not sort.
bool CatalogueWriter::writeCrowded(LookUpText list, const std::function<bool()>& goesOn)
{
    struct Beginning {
        std::size_t size;
        std::int64_t first, entries;
    };
    std::vector<Beginning> open; // of the previous text: its beginnings, one for each character
    std::string previous;
    std::vector<std::pair<std::string, Beginning>> crowded; // written at the end, because the table is being read
    const auto closeTo = [&](std::size_t common) {
        while (!open.empty() && open.back().size > common) {
            const Beginning closed = open.back();
            open.pop_back();
            if (closed.entries > kCrowd) {
                crowded.emplace_back(previous.substr(0, closed.size), closed);
            }
            if (!open.empty()) {
                open.back().first = std::min(open.back().first, closed.first);
                open.back().entries += closed.entries;
            }
        }
    };
    const std::string table = list == LookUpText::name ? "name_start" : "part_num_start";
    SqliteStatement all(file_, "SELECT folded, rank FROM " + table + " ORDER BY folded");
    std::uint64_t count = 0;
    for (SqliteRows rows = all.query(); rows.next();) {
        if (++count % kRowsBetweenQuestions == 0 && !goesOn()) {
            return false;
        }
        const std::string_view text = rows.text(0);
        const auto differ = std::mismatch(text.begin(), text.end(), previous.begin(), previous.end());
        closeTo(static_cast<std::size_t>(differ.first - text.begin()));
        const std::int64_t rank = rows.integer(1);
        for (std::size_t at = open.empty() ? 0 : open.back().size; at < text.size();) {
            at += characterSize(text, at);
            open.push_back({at, rank, 0});
        }
        open.back().first = std::min(open.back().first, rank);
        ++open.back().entries;
        previous = text;
    }
    closeTo(0);
    SqliteStatement insert(file_, "INSERT INTO " + table + " VALUES (?, ?, ?)");
    for (const auto& [text, beginning] : crowded) {
        insert.execute(std::string_view(text), -beginning.first, beginning.entries);
    }
    return true;
}

void CatalogueWriter::writeRetired()
{
    SqliteStatement present(file_, "SELECT 1 FROM gathered.entry WHERE item_id = ?");
    SqliteStatement retire(file_, "INSERT OR IGNORE INTO retired VALUES (?, ?)");
    ids_.forEachFormer([&](std::int64_t number, std::string_view key) {
        SqliteRows rows = present.query(number);
        if (!rows.next()) {
            retire.execute(number, key);
        }
    });
    file_.run("CREATE INDEX retired_id_key ON retired (id_key)");
}

void CatalogueWriter::writeOrigin()
{
    SqliteStatement(file_, "INSERT INTO origin SELECT ?, count(*), ?, ?, ? FROM product")
        .execute(std::string_view(source_), std::string_view(lineage_.empty() ? ids_.lineage() : lineage_), ids_.next(),
                 std::string_view(options_.language));
    if (entries_) {
        SqliteStatement(file_, "UPDATE origin SET entries = ?").execute(*entries_);
    }
    file_.run(("PRAGMA application_id = " + std::to_string(kCatalogueApplicationId) +
               "; PRAGMA user_version = " + std::to_string(kCatalogueVersion) + "; COMMIT")
                  .c_str());
}

} // namespace orvan
