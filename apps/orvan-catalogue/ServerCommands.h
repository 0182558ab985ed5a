// ServerCommands: what orvan-catalogue does with a catalogue on a server.
#pragma once

#include "orvan/components/catalogue/CatalogueFactory.h"
#include "orvan/components/catalogue/server/ServerConnection.h"
#include "orvan/components/catalogue/server/ServerImport.h"
#include "orvan/lookup/ProductLkpMgr.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvan::tool {

/// What --help says about it.
extern const char kServerHelp[];

/// The server that a word of the command line names; empty if it names a file. Throws WrongUse for a password.
std::optional<ServerUri> serverUri(const std::string& word);
/// How this program connects: a signal ends what it waits for.
ServerConnectionOptions connectionOptions();

/// Brings the local copy of the server's catalogue that the options name up to date, and opens it. If the server cannot
/// be reached, says so and opens the copy as it is.
std::shared_ptr<ProductLkpMgr> openServerCopy(CatalogueOptions options);
int serverStatistics(const ServerUri& uri);
/// Takes the words behind the command, and returns the exit status. Throws WrongUse and RuntimeError.
int setUpServer(const std::vector<std::string>& words);

} // namespace orvan::tool
