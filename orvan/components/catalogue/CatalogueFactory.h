// catalogueFactory: the catalogue look-up that comes with the library, as a component class to register.
//
// A host registers it under kProductLkpMgrClassName (orvan/lookup/ProductLkpMgr.h), or brings a look-up
// of its own. importCatalogue (orvan/components/catalogue/CatalogueImport.h) makes the file. A host may replace the
// file at any time: the next list or entry is read from the new one.
//
// Thread: each object belongs to the thread that created it; the factory may be called from any.
#pragma once

#include "orvan/base/UserText.h"
#include "orvan/ui/ComponentFactory.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <string_view>

namespace orvan {

struct CatalogueOptions {
    std::filesystem::path file = {}; ///< If empty, the catalogue has no entries.
    std::size_t mostMatches = 250;   ///< A filtered list has this many rows at most: the best matches.
    std::size_t mostListed = 1000;   ///< The whole list has this many rows at most: the first ones.
    /// Whether a completion begins with the characters as they were typed, and not as the catalogue spells them; as up
    /// to version 2.1.30. The box's text, and with it the trace, then stays what it is where a text is typed whole.
    bool completionAsTyped = false;
    /// Called with the reason when the file cannot be used, in the thread that uses the catalogue; the editor then
    /// works as with a catalogue without entries. The same reason is not reported twice in a row, however many
    /// sessions meet it. If this is empty, one line is written to the standard error stream instead.
    std::function<void(const UserText& reason)> report = {};
};

/// Returns the factory that creates catalogue look-ups; the factory may be called from any thread. Neither the factory
/// nor the objects that it makes fail because of the file: see CatalogueOptions::report. A look-up that
/// fails finds no entries; the next one tries the file again.
[[nodiscard]] std::function<std::shared_ptr<ui::Component>()> catalogueFactory(CatalogueOptions options);

} // namespace orvan
