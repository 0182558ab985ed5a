// catalogueFactory: the catalogue look-up that comes with the library, as a component class to register.
//
// A host registers it under kProductLkpMgrClassName (orvan/lookup/ProductLkpMgr.h), or brings a look-up
// of its own. importCatalogue (orvan/components/catalogue/CatalogueImport.h) makes the file. A host may replace the
// file at any time: the next list or entry is read from the new one.
//
// Thread: each object belongs to the thread that created it; the factory may be called from any.
#pragma once

#include "orvan/base/UserText.h"
#include "orvan/catalogue_export.h"
#include "orvan/ui/ComponentFactory.h"

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace orvan {

/// How a local copy of a server's catalogue stands.
struct CatalogueCopyState {
    std::string server;         ///< The URI without its password.
    std::filesystem::path copy; ///< The file in which look-ups search; missing until the first copy is complete.
    std::optional<int> percent; ///< Of a copy of all entries that is being made; empty if none is.
    bool brought = false;       ///< This object brings the changes; otherwise another program of the user does.
    UserText problem;           ///< Why no changes come at present; empty if they do.
    /// When the copy was last found to be what the server has.
    std::optional<std::chrono::system_clock::time_point> checked;
};

struct CatalogueOptions {
    /// If empty, the catalogue has no entries. It may also be the URI of a catalogue on a PostgreSQL server, such as
    /// "postgresql://user@host/database": look-ups then search in a local copy, and a thread brings the changes. The
    /// URI may have a password, which is never shown; better places for it are ~/.pgpass and service files.
    std::filesystem::path file = {};
    std::size_t mostMatches = 250; ///< A filtered list has this many rows at most: the best matches.
    std::size_t mostListed = 1000; ///< The whole list has this many rows at most: the first ones.
    /// Whether a completion begins with the characters as they were typed, and not as the catalogue spells them; as up
    /// to version 2.1.30. The box's text, and with it the trace, then stays what it is where a text is typed whole.
    bool completionAsTyped = false;
    /// Called with the reason when the file cannot be used, in the thread that uses the catalogue; the editor then
    /// works as with a catalogue without entries. The same reason is not reported twice in a row, however many
    /// sessions meet it. If this is empty, one line is written to the standard error stream instead.
    std::function<void(const UserText& reason)> report = {};
    /// The folder in which copies of servers' catalogues are kept, each in a folder of its own; if empty, a folder of
    /// the library's in the user's data folder.
    std::filesystem::path copies = {};
    /// Called when the state of a server's copy has changed, and after each question to the server; in the thread that
    /// brings the changes.
    std::function<void(const CatalogueCopyState&)> copyChanged = {};
};

/// Returns the factory that creates catalogue look-ups; the factory may be called from any thread. Neither the factory
/// nor the objects that it makes fail because of the file: see CatalogueOptions::report. A look-up that
/// fails finds no entries; the next one tries the file again. For a server's catalogue, changes are brought as long as
/// the factory or one of its objects lives.
[[nodiscard]] ORVAN_CATALOGUE_EXPORT std::function<std::shared_ptr<ui::Component>()>
catalogueFactory(CatalogueOptions options);

} // namespace orvan
