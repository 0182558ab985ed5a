// ServerCommands: what orvan-catalogue does with a catalogue on a server.
#pragma once

#include "orvan/components/catalogue/server/ServerConnection.h"
#include "orvan/components/catalogue/server/ServerImport.h"

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

int serverStatistics(const ServerUri& uri);
/// Takes the words behind the command, and returns the exit status. Throws WrongUse and RuntimeError.
int setUpServer(const std::vector<std::string>& words);

} // namespace orvan::tool
