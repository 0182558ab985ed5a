// CatalogueLists: the list of one of a catalogue's texts, names or part numbers: as a whole, and the entries whose text
// begins with what was typed.
//
// Order and matching are described in Catalogue.h. Thread: one at a time. Errors: those of SqliteFile.h.
#pragma once

#include "orvan/components/catalogue/CatalogueLayers.h"
#include "orvan/lookup/ProductLkpMgr.h"

#include <memory>
#include <string_view>
#include <vector>

namespace orvan {

class CatalogueLists {
public:
    virtual ~CatalogueLists() = default;
    /// Full matches first; the first row is completed from what was typed, which is not empty. With `asTyped` it begins
    /// with the typed characters.
    std::vector<ListedRow> matches(std::string_view typed, std::size_t most, bool asTyped);
    virtual std::vector<ListedRow> all(std::size_t most) = 0;

    /// The layers outlive the result.
    [[nodiscard]] static std::unique_ptr<CatalogueLists> of(const CatalogueLayers& layers, LookUpText text);

    /// What matches() lists, before row 0 is completed: the full matches, at least those that are spelled as typed
    /// first, and then the others; each in the list's order.
    virtual std::vector<ListedRow> found(std::string_view folded, std::size_t most) = 0;
};

} // namespace orvan
