#include "ServerCommands.h"

#include "CommandLine.h"
#include "Interruption.h"

#include "apps/shared/TerminalText.h"
#include "orvan/base/Currency.h"
#include "orvan/components/catalogue/server/ServerSchema.h"

#include <iostream>
#include <utility>

namespace orvan::tool {

using shared::terminalText;

const char kServerHelp[] =
    R"(setup-server  Makes the database at URI a catalogue, or brings one of an earlier version to the present form. URI
            names a user who may create schemas, and, the first time, roles.
  --reader USER       let the server's user USER read the catalogue, as desks do
  --importer USER     let USER also import price lists, and change entries by SQL
)";

std::optional<ServerUri> serverUri(const std::string& word)
{
    if (!ServerUri::isUri(word)) {
        return std::nullopt;
    }
    ServerUri uri(word);
    if (uri.hasPassword()) {
        throw WrongUse{"everybody on this computer can see a password in a command; keep it in ~/.pgpass or in a "
                       "service file, and name " +
                       uri.shown()};
    }
    return uri;
}

ServerConnectionOptions connectionOptions()
{
    return {.goOn = [] { return interrupted == 0; }, .application = "orvan-catalogue"};
}

int serverStatistics(const ServerUri& uri)
{
    ServerConnection server(uri, connectionOptions());
    const ServerState state = serverState(server);
    ServerRows rows = server.query("SELECT count(*), count(*) - count(unit_price), coalesce(min(unit_price), 0),"
                                   " coalesce(max(unit_price), 0), pg_total_relation_size('orvan.product')"
                                   " FROM orvan.product");
    if (rows.next()) {
        std::cout << "Entries         " << rows.integer(0) << "\nWithout price   " << rows.integer(1)
                  << "\nLowest price    " << Currency::fromScaled(rows.integer(2)).toText() << "\nHighest price   "
                  << Currency::fromScaled(rows.integer(3)).toText() << "\nBytes           " << rows.integer(4)
                  << "\nRevision        " << state.revision << "\nLast list       " << terminalText(state.source)
                  << '\n';
    }
    return kDone;
}

int setUpServer(const std::vector<std::string>& words)
{
    std::vector<std::pair<ServerRole, std::string>> users;
    const auto rest = positional(words, [&](const std::string& option, const auto& value) {
        if (option != "--reader" && option != "--importer") {
            throw WrongUse{"setup-server has no option " + option};
        }
        users.emplace_back(option == "--reader" ? ServerRole::reader : ServerRole::importer, value());
    });
    const std::optional<ServerUri> uri = rest.size() == 1 ? serverUri(rest[0]) : std::nullopt;
    if (!uri) {
        throw WrongUse{"setup-server needs one argument, a URI such as postgresql://user@host/database"};
    }
    endInOrderAtSignals();
    ServerConnection server(*uri, connectionOptions());
    const ServerSetUp done = orvan::setUpServer(server);
    std::cout << terminalText(uri->shown())
              << (done == ServerSetUp::made      ? " is a catalogue now\n"
                  : done == ServerSetUp::changed ? " has the present form now\n"
                                                 : " is a catalogue of the present form already\n");
    for (const auto& [role, user] : users) {
        grantServerRole(server, role, user);
        std::cout << terminalText(user) << (role == ServerRole::reader ? " may read it\n" : " may import into it\n");
    }
    return kDone;
}

} // namespace orvan::tool
