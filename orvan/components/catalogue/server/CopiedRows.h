// What a local copy reads of a server's rows. Thread: that of the connection.
#pragma once

#include "orvan/components/catalogue/server/LocalCopy.h"
#include "orvan/components/catalogue/server/ServerSchema.h"

namespace orvan {

/// The next entries behind a number.
inline constexpr const char* kNextEntries =
    "SELECT id, name, key, part_num, unit_price, note, barcode FROM orvan.product"
    " WHERE id > $1::bigint ORDER BY id LIMIT $2::bigint";
/// The entries that have changed since a revision.
inline constexpr const char* kChangedEntries = "SELECT id, name, key, part_num, unit_price, note, barcode"
                                               " FROM orvan.product WHERE revision > $1 ORDER BY revision, id";

/// The entry of a row of those queries; valid until the next row.
[[nodiscard]] inline CatalogueEntry copiedEntry(const ServerRows& rows)
{
    return {.name = rows.text(1),
            .key = rows.text(2),
            .partNum = rows.text(3),
            .unitPrice = rows.isNull(4) ? std::nullopt : std::optional(Currency::fromScaled(rows.integer(4))),
            .note = rows.text(5),
            .barcode = rows.text(6),
            .number = static_cast<std::int32_t>(rows.integer(0))};
}

[[nodiscard]] inline CopyState copyStateOf(const ServerState& server)
{
    return {.lineage = server.lineage,
            .revision = server.revision,
            .source = server.source,
            .language = server.language,
            .stamp = server.stamp};
}

/// Whether the server, which is in the state `now`, can tell what has changed since the copy. One that was set back to
/// an earlier state, or has lost changes, may have made others of the same numbers since.
[[nodiscard]] inline bool canContinue(ServerConnection& server, const CopyState& copy, const CopyState& now)
{
    return copy.lineage == now.lineage &&
           (copy.revision == now.revision ? copy.stamp == now.stamp
                                          : copy.revision < now.revision &&
                                                (copy.revision == 0 || serverKnows(server, copy.revision, copy.stamp)));
}

/// Calls `put` with each entry that has changed since a revision, and `remove` with the number of each that is gone, as
/// they all stand at one time. Returns the state of that time.
template <class Put, class Remove>
CopyState changesSince(ServerConnection& server, std::int64_t revision, const Put& put, const Remove& remove)
{
    CopyState state;
    server.transaction("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY", [&] {
        state = copyStateOf(serverState(server));
        {
            ServerRows rows = server.query(kChangedEntries, revision);
            while (rows.next()) {
                put(copiedEntry(rows));
            }
        }
        ServerRows gone = server.query("SELECT id FROM orvan.gone WHERE revision > $1", revision);
        while (gone.next()) {
            remove(static_cast<std::int32_t>(gone.integer(0)));
        }
    });
    return state;
}

} // namespace orvan
