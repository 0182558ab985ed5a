#include "orvan/components/catalogue/server/FirstCopy.h"

#include "orvan/base/RuntimeError.h"

#include <algorithm>
#include <limits>
#include <system_error>

namespace orvan {

namespace {

constexpr std::int64_t kBeforeAll = std::int64_t{std::numeric_limits<std::int32_t>::min()} - 1;

// Written to the disk at the end of each block; a power failure may cost the file, and with it what has come so far.
constexpr const char* kTables = "PRAGMA synchronous = NORMAL;"
                                "CREATE TABLE IF NOT EXISTS entry (item_id INTEGER PRIMARY KEY, name TEXT, key TEXT,"
                                " part_num TEXT, unit_price INTEGER, note TEXT, barcode TEXT);"
                                "CREATE TABLE IF NOT EXISTS brought (single INTEGER PRIMARY KEY, lineage TEXT,"
                                " revision INTEGER, source TEXT, language TEXT, stamp TEXT, last INTEGER);";

/// Runs the action as one transaction of the file.
template <class Action>
void together(SqliteFile& file, Action&& action)
{
    file.run("BEGIN");
    try {
        action();
    } catch (...) {
        file.run("ROLLBACK");
        throw;
    }
    file.run("COMMIT");
}

void removeFile(const std::filesystem::path& path)
{
    std::error_code ignored;
    for (const char* const ending : {"", "-journal"}) {
        std::filesystem::remove(std::filesystem::path(path) += ending, ignored);
    }
}

} // namespace

FirstCopy::FirstCopy(const std::filesystem::path& folder, std::int64_t block)
    : path_(folder / "arriving.sqlite"), block_(block)
{
    try {
        open();
    } catch (const RuntimeError& error) {
        if (error.number() != ErrorNumber::invalidFileFormat) {
            throw;
        }
        beginAnew(); // the file is damaged
    }
}

FirstCopy::~FirstCopy() = default;

void FirstCopy::open()
{
    file_ = std::make_unique<SqliteFile>(path_, SqliteFile::Access::create);
    std::error_code error;
    if (std::filesystem::file_size(path_, error) == 0) {
        file_->addChecksums();
    }
    file_->run(kTables);
    put_ = std::make_unique<SqliteStatement>(*file_, "REPLACE INTO entry VALUES (?, ?, ?, ?, ?, ?, ?)");
    state_ = {};
    last_ = kBeforeAll;
    SqliteStatement brought(*file_, "SELECT lineage, revision, source, language, stamp, last FROM brought");
    SqliteRows rows = brought.query();
    if (rows.next()) {
        state_ = {.lineage = std::string(rows.text(0)),
                  .revision = rows.integer(1),
                  .source = std::string(rows.text(2)),
                  .language = std::string(rows.text(3)),
                  .stamp = std::string(rows.text(4))};
        last_ = rows.integer(5);
    }
}

void FirstCopy::beginAnew()
{
    put_.reset();
    file_.reset();
    removeFile(path_);
    open();
}

void FirstCopy::keepState(std::int64_t last)
{
    last_ = last;
    SqliteStatement(*file_, "REPLACE INTO brought VALUES (1, ?, ?, ?, ?, ?, ?)")
        .execute(std::string_view(state_.lineage), state_.revision, std::string_view(state_.source),
                 std::string_view(state_.language), std::string_view(state_.stamp), last);
}

void FirstCopy::put(const CatalogueEntry& entry)
{
    const auto put = [&](auto price) {
        put_->execute(std::int64_t{*entry.number}, entry.name, entry.key, entry.partNum, price, entry.note,
                      entry.barcode);
    };
    entry.unitPrice ? put(entry.unitPrice->scaled()) : put(nullptr);
}

void FirstCopy::bring(ServerConnection& server, const Progress& progress)
{
    if (const CopyState now = copyStateOf(serverState(server)); !canContinue(server, state_, now)) {
        if (!state_.lineage.empty()) {
            beginAnew();
        }
        state_ = now;
        keepState(kBeforeAll);
    }
    bringBlocks(server, progress);
    bringChanges(server);
}

void FirstCopy::bringBlocks(ServerConnection& server, const Progress& progress)
{
    const double all =
        static_cast<double>(std::max<std::int64_t>(1, server.number("SELECT count(*) FROM orvan.product")));
    std::int64_t count = file_->number("SELECT count(*) FROM entry");
    for (std::int64_t come = block_; come == block_;) {
        progress(std::min(1.0, static_cast<double>(count) / all));
        come = 0;
        together(*file_, [&] {
            std::int64_t last = last_;
            ServerRows rows = server.query(kNextEntries, last_, block_);
            for (; rows.next(); ++come) {
                put(copiedEntry(rows));
                last = rows.integer(0);
            }
            keepState(last);
        });
        count += come;
    }
}

void FirstCopy::bringChanges(ServerConnection& server)
{
    together(*file_, [&] {
        SqliteStatement remove(*file_, "DELETE FROM entry WHERE item_id = ?");
        const CopyState now = changesSince(
            server, state_.revision, [&](const CatalogueEntry& entry) { put(entry); },
            [&](std::int32_t number) { remove.execute(std::int64_t{number}); });
        if (now.lineage != state_.lineage || now.revision < state_.revision) {
            throw RuntimeError(
                ErrorNumber::pathFileAccess, {},
                userText("%1: %2", server.uri().shown(), userText("the catalogue was exchanged while it was copied")));
        }
        state_ = now;
        keepState(last_);
    });
}

bool FirstCopy::make(const LocalCopy& copy, const LocalCopy::Progress& progress)
{
    constexpr std::int64_t kRowsBetweenQuestions = 1'000;
    const auto update = copy.anew(state_.language);
    {
        std::int64_t count = 0;
        SqliteStatement all(*file_, "SELECT item_id, name, key, part_num, unit_price, note, barcode FROM entry");
        for (SqliteRows rows = all.query(); rows.next();) {
            if (++count % kRowsBetweenQuestions == 0 && !progress(0, 1)) {
                return false;
            }
            update->put(storedEntry(rows));
        }
    }
    if (!update->commit(state_, progress)) {
        return false;
    }
    put_.reset();
    file_.reset();
    removeFile(path_);
    return true;
}

} // namespace orvan
