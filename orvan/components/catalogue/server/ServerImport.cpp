#include "orvan/components/catalogue/server/ServerImport.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CatalogueIds.h"
#include "orvan/components/catalogue/ImportRun.h"
#include "orvan/components/catalogue/lists/ListPreview.h"
#include "orvan/components/catalogue/server/ServerImportSteps.h"
#include "orvan/components/catalogue/server/ServerSchema.h"

#include <string>
#include <utility>
#include <vector>

namespace orvan {

namespace {

using Kind = ServerFailure::Kind;

/// Appends a text as COPY takes it, with what stands between it and the next one.
void appendCopied(std::string& row, std::string_view text, char behind = '\t')
{
    for (const char c : text) {
        switch (c) {
        case '\\': row += "\\\\"; break;
        case '\t': row += "\\t"; break;
        case '\n': row += "\\n"; break;
        case '\r': row += "\\r"; break;
        default: row += c;
        }
    }
    row += behind;
}

constexpr std::string_view kNull = "\\N\t";

void setRow(std::string& row, const CatalogueEntry& entry, std::uint64_t line)
{
    row = std::to_string(line) + '\t';
    if (const std::string ownId = comparedId(entry.ownId); ownId.empty()) {
        row += kNull;
    } else {
        appendCopied(row, ownId);
    }
    appendCopied(row, entry.name);
    appendCopied(row, entry.key);
    appendCopied(row, trimmed(entry.partNum));
    appendCopied(row, trimmed(entry.barcode));
    row += entry.unitPrice ? std::to_string(entry.unitPrice->scaled()) + '\t' : std::string(kNull);
    appendCopied(row, entry.note, '\n');
}

/// PostgreSQL keeps no text with a character 0.
UserText whyUnfit(const CatalogueEntry& entry)
{
    for (const std::string_view text : {entry.ownId, entry.name, entry.key, entry.partNum, entry.barcode, entry.note}) {
        if (text.find('\0') != text.npos) {
            return userText("a text has a character 0, which the server cannot keep");
        }
    }
    return {};
}

class ServerImportRun {
public:
    ServerImportRun(ImportRun& list, const ServerUri& uri, const CatalogueImportOptions& options,
                    const ServerImportOptions& serverOptions)
        : list_(list), options_(options), serverOptions_(serverOptions),
          server_(uri, {.goOn = [this] { return goesOn(); }, .application = "orvan-catalogue import"})
    {
    }

    /// Returns false when the catalogue stays as it was.
    bool write(ServerImportResult& result)
    {
        static_cast<void>(serverState(server_));
        requireRight();
        bool done = false;
        server_.run("BEGIN; SET LOCAL search_path = ''; SET LOCAL statement_timeout = 0; SET LOCAL lock_timeout = 0;"
                    " SET LOCAL idle_in_transaction_session_timeout = 0");
        setIfKnown("jit", "off"); // which takes longer to compile a statement than it then saves
        // PostgreSQL expects far fewer rows of some steps than they have, and would join them with the entries one by
        // one (a nested loop), which takes hours for a long list.
        setIfKnown("enable_nestloop", "off");
        try {
            makeTables();
            done = copy() && refuseTwice() && change(result);
        } catch (...) {
            server_.rollBack();
            throw;
        }
        if (!done) {
            server_.rollBack();
            return false;
        }
        commit();
        return true;
    }

private:
    static constexpr int kAllSteps = static_cast<int>(kServerImportNumbering.size()) + 6;

    bool goesOn() { return committing_ || list_.builds(step_, step_ == 0 ? 0 : kAllSteps); }
    void requireRight();
    /// Sets what PostgreSQL knows, and other servers may not, until the end of the transaction.
    void setIfKnown(std::string_view name, std::string_view value)
    {
        server_.execute("SELECT set_config(name, $2, true) FROM pg_settings WHERE name = $1",
                        ServerConnection::Value(name), ServerConnection::Value(value));
    }
    void makeTables();
    bool copy();
    bool refuseTwice();
    void lockState();
    void numberNewEntries();
    bool change(ServerImportResult& result);
    void commit();
    std::string sql(std::string_view text) const;
    /// Runs a step of the change, and returns how many rows it has changed.
    template <class... Values>
    std::int64_t step(const char* text, const Values&... values)
    {
        ++step_;
        return server_.execute(sql(text).c_str(), values...);
    }

    ImportRun& list_;
    const CatalogueImportOptions& options_;
    const ServerImportOptions& serverOptions_;
    int step_ = 0;
    bool committing_ = false;
    bool temporary_ = false;
    ServerConnection server_;
};

std::string ServerImportRun::sql(std::string_view text) const
{
    const std::pair<std::string_view, std::string_view> names[] = {
        {"{rows}", temporary_ ? "pg_temp.orvan_rows" : "orvan.incoming"},
        {"{numbers}", temporary_ ? "pg_temp.orvan_numbers" : "orvan.incoming_number"}};
    std::string result(text);
    for (const auto& [mark, name] : names) {
        for (std::size_t at = result.find(mark); at != result.npos; at = result.find(mark, at)) {
            result.replace(at, mark.size(), name);
        }
    }
    return result;
}

/// Before a long list is read for nothing.
void ServerImportRun::requireRight()
{
    if (server_.number("SELECT has_table_privilege('orvan.product', 'INSERT')::integer") == 0) {
        throw RuntimeError(
            ErrorNumber::pathFileAccess, {},
            userText("%1: %2", server_.uri().shown(),
                     userText("the user may not change the catalogue, and needs the role %1", "orvan_importer")));
    }
}

void ServerImportRun::makeTables()
{
    if (serverOptions_.temporaryTables) {
        server_.run("SAVEPOINT before_tables");
        try {
            server_.run(kServerImportTables);
            temporary_ = true;
        } catch (const ServerError& error) {
            if (error.kind() != Kind::refused) {
                throw;
            }
            server_.run("ROLLBACK TO before_tables"); // the user has no right, or the server no such tables
        }
    }
}

bool ServerImportRun::copy()
{
    bool usable = false;
    std::string row;
    server_.copyIn(sql("COPY {rows} (line, own_id, name, key, part_num, barcode, unit_price, note) FROM STDIN").c_str(),
                   [&](const ServerConnection::Put& put) {
                       usable = list_.read([&](const CatalogueEntry& entry, std::uint64_t line) {
                           UserText unfit = whyUnfit(entry);
                           if (unfit.empty()) {
                               setRow(row, entry, line);
                               put(row);
                           }
                           return unfit;
                       });
                   });
    return usable;
}

bool ServerImportRun::refuseTwice()
{
    std::vector<std::uint64_t> lines;
    {
        ServerRows rows = server_.query(sql(kServerImportTwice).c_str());
        while (rows.next()) {
            lines.push_back(static_cast<std::uint64_t>(rows.integer(0)));
        }
    }
    if (lines.empty()) {
        return true;
    }
    server_.run(sql(kServerImportRemoveTwice).c_str());
    return list_.refuseTaken(lines, whyTwice);
}

/// Waits until no other transaction changes the catalogue. From then on the others wait for this one.
void ServerImportRun::lockState()
{
    constexpr std::string_view kLocked = "55P03";
    server_.run("SAVEPOINT before_lock");
    try {
        server_.run("SELECT FROM orvan.state FOR UPDATE NOWAIT");
    } catch (const ServerError& error) {
        if (error.state() != kLocked) {
            throw;
        }
        server_.run("ROLLBACK TO before_lock");
        if (serverOptions_.waits) {
            serverOptions_.waits();
        }
        server_.run("SELECT FROM orvan.state FOR UPDATE");
    }
}

void ServerImportRun::numberNewEntries()
{
    ++step_;
    const std::int64_t fresh = server_.number(sql(kServerImportUnnumbered).c_str());
    if (fresh == 0) {
        return;
    }
    const std::int64_t used = server_.number(sql(kServerImportUsed).c_str());
    const std::int64_t numbered = server_.execute(sql(kServerImportFresh).c_str(), fresh, used);
    if (numbered < fresh) {
        throw RuntimeError(ErrorNumber::overflow);
    }
}

bool ServerImportRun::change(ServerImportResult& result)
{
    if (temporary_) {
        server_.run(sql("ANALYZE {rows}").c_str());
    }
    lockState();
    result.revision = server_.number("SELECT orvan.begin_change()");
    server_.run("SET LOCAL orvan.import = 'on'");
    for (const char* const numbering : kServerImportNumbering) {
        step(numbering);
        if (temporary_) {
            server_.run(sql("ANALYZE {numbers}").c_str());
        }
    }
    numberNewEntries();
    result.changed = step(kServerImportChange, result.revision);
    result.removed = serverOptions_.removeMissing ? step(kServerImportRemove) : 0;
    result.added = step(kServerImportAdd, result.revision);
    step(kServerImportReturn);
    step(kServerImportState, ServerConnection::Value(list_.origin()), ServerConnection::Value(options_.language));
    if (!temporary_) {
        server_.run(sql("DELETE FROM {rows}; DELETE FROM {numbers}").c_str());
    }
    return goesOn();
}

/// From here on the user cannot cancel, because nobody would know whether the server has done it.
void ServerImportRun::commit()
{
    committing_ = true;
    try {
        server_.run("COMMIT");
    } catch (const ServerError& error) {
        if (error.kind() == Kind::refused) {
            throw;
        }
        throw RuntimeError(ErrorNumber::pathFileAccess, {},
                           userText("%1. The connection ended with the import, so the list may be imported or not; "
                                    "import it again to be sure",
                                    error.userText()));
    }
}

} // namespace

ServerImportResult importToServer(const std::filesystem::path& source, const ServerUri& uri,
                                  const CatalogueImportOptions& options, const ServerImportOptions& serverOptions)
{
    ImportRun list(importSource(source, options.sourceName), options);
    ServerImportResult result;
    bool imported = false;
    if (list.findPrices()) {
        try {
            imported = ServerImportRun(list, uri, options, serverOptions).write(result);
        } catch (const ServerError& error) {
            if (error.kind() != Kind::cancelled) {
                throw;
            }
        }
    }
    if (!imported) {
        result = {};
    }
    result.list = list.end(imported);
    return result;
}

} // namespace orvan
