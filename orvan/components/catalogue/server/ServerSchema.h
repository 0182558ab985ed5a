// ServerSchema: makes a server's database a catalogue, and tells whether it is one.
//
// What stands in the schema is described in orvan/components/catalogue/server/ServerSchemaSteps.h. Two roles are made:
// orvan_reader, for desks, and orvan_importer, for those who import price lists or change entries by SQL.
//
// Thread: that of the connection. Errors: ServerError; 321 where the database is no catalogue, or one of a newer form.
#pragma once

#include "orvan/catalogue_export.h"
#include "orvan/components/catalogue/server/ServerConnection.h"

#include <cstdint>
#include <string>

namespace orvan {

/// Each change of entries notifies with this name.
inline constexpr const char* kServerChannel = "orvan";

struct ServerState {
    std::int64_t version = 0;    ///< Of the schema.
    std::int64_t revision = 0;   ///< Of the last change.
    std::string stamp = {};      ///< Of the revision; another server's change with the same number has another one.
    std::string lineage;         ///< Another one means that nothing is known of the entries' numbers.
    std::int64_t nextNumber = 1; ///< The number of the next new entry, if no entry has it already.
    std::string language;        ///< The language whose order the lists shall have.
    std::string source;          ///< The name of the list that was imported last.
};

[[nodiscard]] ORVAN_CATALOGUE_INTERNAL ServerState serverState(ServerConnection& server);
/// Whether a change with this stamp led to the revision. If not, a copy of that revision is none of this catalogue: the
/// server was restored from a backup, or is another one; or the copy is older than what the server remembers.
[[nodiscard]] bool serverKnows(ServerConnection& server, std::int64_t revision, std::string_view stamp);

enum class ServerSetUp { made, changed, unchanged };
/// Makes schema and roles, or brings those of an earlier version to the present form. All or nothing.
ORVAN_CATALOGUE_INTERNAL ServerSetUp setUpServer(ServerConnection& server);

enum class ServerRole { reader, importer };
/// Gives a user of the server the role.
ORVAN_CATALOGUE_INTERNAL void grantServerRole(ServerConnection& server, ServerRole role, std::string_view user);

} // namespace orvan
