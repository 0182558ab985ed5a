// catalogueFactory: the catalogue look-up that comes with the library, as a component class to register.
//
// A host registers it under kProductLkpMgrClassName (orvan/lookup/ProductLkpMgr.h), or brings a look-up
// of its own. importCatalogue (orvan/components/catalogue/CatalogueImport.h) makes the file. A host may replace the
// file at any time: the next list or entry is read from the new one.
//
// Thread: each object belongs to the thread that created it; the factory may be called from any.
#pragma once

#include "orvan/ui/ComponentFactory.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <string_view>

namespace orvan {

struct CatalogueOptions {
    std::filesystem::path file = {}; ///< Empty: a catalogue without entries.
    std::size_t mostMatches = 250;   ///< Rows of a filtered list; the best ones.
    std::size_t mostListed = 1000;   ///< Rows of the whole list; the first ones.
    /// Told why the file cannot be used; the editor then works as with a catalogue without entries. The
    /// same reason is not told twice in a row, however many sessions meet it. Called in the thread that
    /// asks the catalogue. Empty: one line on the standard error stream.
    std::function<void(std::string_view)> report = {};
};

/// What a component factory calls to create a catalogue look-up; may be called from any thread. It never
/// fails because of the file, and neither do the objects it makes: see CatalogueOptions::report. A session
/// whose catalogue fails goes on without entries; the next one tries the file again.
[[nodiscard]] std::function<std::shared_ptr<ui::Component>()> catalogueFactory(CatalogueOptions options);

} // namespace orvan
