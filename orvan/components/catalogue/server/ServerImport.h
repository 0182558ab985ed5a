// importToServer: brings the entries of a price list to the catalogue on a server.
//
// The list is read as importCatalogue reads it (orvan/components/catalogue/CatalogueImport.h). Its entries are copied
// to a table of this import's own, and change the catalogue in one transaction: desks and other importers see all of
// it or nothing, whatever ends the import. An entry that the catalogue knows is found by its key, as
// orvan/components/catalogue/CatalogueIds.h says, and keeps its number; it is changed only if something in it differs.
// Entries that the list does not have stay, unless the options say otherwise.
//
// While another import, or somebody else, changes the catalogue, this one waits for the end of that transaction.
//
// Thread: any; the options' functions are called in the same thread. Errors: those of importCatalogue, ServerError, and
// 6 when all numbers of 32 bits are used up.
#pragma once

#include "orvan/catalogue_export.h"
#include "orvan/components/catalogue/CatalogueImport.h"
#include "orvan/components/catalogue/server/ServerUri.h"

#include <cstdint>
#include <filesystem>
#include <functional>

namespace orvan {

struct ServerImportOptions {
    bool removeMissing = false; ///< Whether entries that the list does not have are removed.
    /// Whether to try temporary tables. Without them, and where the server does not allow them, a table of the schema
    /// is used, whose rows nobody else sees; it grows by the list, until the server cleans it.
    bool temporaryTables = true;
    std::function<void()> waits = {}; ///< Called before the import waits for another transaction.
};

struct ServerImportResult {
    CatalogueImportResult list; ///< What was read. It names no former catalogue.
    std::int64_t added = 0;
    std::int64_t changed = 0;
    std::int64_t removed = 0;
    std::int64_t revision = 0; ///< Of the catalogue after the import.
};

ORVAN_CATALOGUE_INTERNAL ServerImportResult importToServer(const std::filesystem::path& source, const ServerUri& uri,
                                                           const CatalogueImportOptions& options = {},
                                                           const ServerImportOptions& serverOptions = {});

} // namespace orvan
