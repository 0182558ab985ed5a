#include "ServerCommands.h"

#include "CommandLine.h"
#include "Interruption.h"

#include "apps/shared/TerminalText.h"
#include "orvan/base/Currency.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/server/ServerSchema.h"

#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <iostream>
#include <mutex>
#include <utility>

#include <unistd.h>

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

namespace {

/// What the thread that brings the copy's changes tells.
struct ToldState {
    std::mutex mutex;
    std::condition_variable told;
    CatalogueCopyState state;
};

/// Another program that brings the changes asks the server once a minute at least.
constexpr std::chrono::minutes kFresh(2);

/// Waits until the copy is what the server has, or cannot be brought. Returns the last state.
CatalogueCopyState awaitCopy(ToldState& told)
{
    const auto begin = std::chrono::system_clock::now();
    std::unique_lock lock(told.mutex);
    for (std::optional<int> shown; interrupted == 0;) {
        const CatalogueCopyState& state = told.state;
        const auto since = state.brought ? begin : begin - kFresh;
        if (!state.problem.empty() || (state.checked && *state.checked >= since && !state.copy.empty())) {
            return state;
        }
        if (state.percent && state.percent != shown && ::isatty(STDERR_FILENO) != 0) {
            shown = state.percent;
            std::cerr << "\rCopying the catalogue: " << *shown << " % " << std::flush;
        }
        told.told.wait_for(lock, std::chrono::milliseconds(100)); // a signal does not notify
    }
    throw RuntimeError(ErrorNumber::pathFileAccess); // main says why
}

} // namespace

std::shared_ptr<ProductLkpMgr> openServerCopy(CatalogueOptions options)
{
    const auto told = std::make_shared<ToldState>();
    options.copyChanged = [told](const CatalogueCopyState& state) {
        const std::lock_guard lock(told->mutex);
        told->state = state;
        told->told.notify_all();
    };
    const auto factory = catalogueFactory(options);
    const CatalogueCopyState state = awaitCopy(*told);
    std::error_code error;
    if (!state.problem.empty()) {
        if (state.copy.empty() || !std::filesystem::exists(state.copy, error)) {
            throw RuntimeError(ErrorNumber::pathFileAccess, {}, state.problem);
        }
        std::cerr << "orvan-catalogue: " << terminalText(state.problem.english())
                  << "; the copy of an earlier time is searched\n";
    }
    return std::dynamic_pointer_cast<ProductLkpMgr>(factory());
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
