#include "orvan/components/catalogue/server/ServerSchema.h"

#include "orvan/components/catalogue/server/ServerSchemaSteps.h"

namespace orvan {

namespace {

constexpr std::int64_t kVersion = kServerSchemaSteps.size();

[[noreturn]] void refuse(const ServerConnection& server, const UserText& reason)
{
    throw RuntimeError(ErrorNumber::invalidFileFormat, {}, userText("%1: %2", server.uri().shown(), reason));
}

void refuseNewer(const ServerConnection& server, std::int64_t version)
{
    if (version > kVersion) {
        refuse(server, userText("a newer version of this program has set it up"));
    }
}

bool isThere(ServerConnection& server)
{
    return server.number(
               "SELECT count(*) FROM pg_catalog.pg_tables WHERE schemaname = 'orvan' AND tablename = 'state'") > 0;
}

} // namespace

ServerState serverState(ServerConnection& server)
{
    constexpr std::string_view kNoRight = "42501", kNoTable = "42P01", kNoSchema = "3F000";
    try {
        ServerRows rows = server.query("SELECT version, revision, lineage, next_number, language, source,"
                                       " (SELECT stamp FROM orvan.change AS last WHERE last.revision = state.revision)"
                                       " FROM orvan.state");
        if (!rows.next()) {
            refuse(server, userText("its catalogue is damaged (%1)", "orvan.state"));
        }
        refuseNewer(server, rows.integer(0));
        return {.version = rows.integer(0),
                .revision = rows.integer(1),
                .stamp = std::string(rows.text(6)),
                .lineage = std::string(rows.text(2)),
                .nextNumber = rows.integer(3),
                .language = std::string(rows.text(4)),
                .source = std::string(rows.text(5))};
    } catch (const ServerError& error) {
        if (error.state() == kNoTable || error.state() == kNoSchema) {
            refuse(server, userText("this database has no catalogue; orvan-catalogue setup-server makes one"));
        }
        if (error.state() == kNoRight) {
            throw RuntimeError(
                ErrorNumber::pathFileAccess, {},
                userText("%1: %2", server.uri().shown(),
                         userText("the user may not read the catalogue, and needs the role %1", "orvan_reader")));
        }
        throw;
    }
}

bool serverKnows(ServerConnection& server, std::int64_t revision, std::string_view stamp)
{
    return server.number("SELECT count(*) FROM orvan.change WHERE revision = $1 AND stamp = $2", revision,
                         ServerConnection::Value(stamp)) == 1;
}

ServerSetUp setUpServer(ServerConnection& server)
{
    {
        ServerRows encoding = server.query("SELECT current_setting('server_encoding')");
        if (encoding.next() && encoding.text(0) != "UTF8") {
            refuse(server, userText("the database has the encoding %1, but a catalogue needs %2",
                                    std::string(encoding.text(0)), "UTF8"));
        }
    }
    const bool made = !isThere(server);
    std::int64_t version = made ? 0 : serverState(server).version;
    if (version == kVersion) {
        return ServerSetUp::unchanged;
    }
    server.transaction("BEGIN", [&] {
        server.run("SET LOCAL search_path = ''");
        if (!made) {
            // Nobody else changes the schema or the entries until this transaction ends.
            version = server.number("SELECT version FROM orvan.state FOR UPDATE");
        }
        for (; version < kVersion; ++version) {
            server.run(kServerSchemaSteps[static_cast<std::size_t>(version)]);
        }
        server.execute("UPDATE orvan.state SET version = $1", kVersion);
        server.run(kServerRoles);
        server.run(kServerGrants);
    });
    return made ? ServerSetUp::made : ServerSetUp::changed;
}

void grantServerRole(ServerConnection& server, ServerRole role, std::string_view user)
{
    std::string statement;
    {
        ServerRows made =
            server.query("SELECT format('GRANT %I TO %I', $1::text, $2::text)",
                         ServerConnection::Value(role == ServerRole::reader ? "orvan_reader" : "orvan_importer"),
                         ServerConnection::Value(user));
        if (made.next()) {
            statement = made.text(0);
        }
    }
    server.run(statement.c_str());
}

} // namespace orvan
