// CatalogueIds: gives the entries of an import their numbers, so that an entry keeps its number from import to import.
//
// An entry's key is the list's own id, else the part number, else the name. A key that the former catalogue knows gets
// its number again, also if it was missing from lists between; a new key gets a number that no entry has had. An own
// id that is a number of 32 bits is its entry's number where that one has not been used for another key. Where several
// entries have the same key, those with the same name keep their numbers, the others get theirs in the list's order.
//
// Thread: one at a time. Errors: a former catalogue that is damaged or cannot be read is left out: the numbers then
// begin anew, and with them the lineage.
#pragma once

#include "orvan/components/catalogue/CatalogueFile.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace orvan {

/// An own id in the form in which ids are compared: without blanks around it, and a number without leading zeros.
[[nodiscard]] std::string comparedId(std::string_view ownId);

class CatalogueIds {
public:
    /// `former` is the catalogue that is replaced; without one, numbers begin with 1. Raises 321 for a catalogue that a
    /// newer version of the program has made.
    explicit CatalogueIds(const std::optional<std::filesystem::path>& former);
    ~CatalogueIds();
    CatalogueIds(const CatalogueIds&) = delete;
    CatalogueIds& operator=(const CatalogueIds&) = delete;

    /// Calls `take` with one number after the other until it takes one, which it does if no entry of this import has
    /// it. `ownId` is in the compared form.
    void number(std::string_view ownId, const CatalogueEntry& entry, const std::function<bool(std::int32_t)>& take);

    /// Calls `retire` with each number and key that the former catalogue knows.
    void forEachFormer(const std::function<void(std::int64_t number, std::string_view key)>& retire);

    /// The number that the next new key gets, and the name that all catalogues with the same numbers share.
    std::int64_t next() const { return next_; }
    const std::string& lineage() const { return lineage_; }

private:
    struct Former;

    template <class Action>
    auto withFormer(Action&& action) -> decltype(action());
    void beginAnew();

    std::unique_ptr<Former> former_;
    std::int64_t next_ = 1;
    std::string lineage_;
};

} // namespace orvan
