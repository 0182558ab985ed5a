// CatalogueVersion: one version of a catalogue, open for searching. It may consist of several files
// (CatalogueLayers.h).
//
// An import gives the catalogue's name to another file; this object goes on with the file that it has opened. Some
// programs write into the open file instead (`cp`, some network folders); then its entries are gone.
// Thread: one at a time. Errors: those of SqliteFile.h.
#pragma once

#include "orvan/components/catalogue/CatalogueLists.h"
#include "orvan/components/catalogue/CatalogueWords.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/stat.h>

namespace orvan {

class CatalogueVersion {
public:
    explicit CatalogueVersion(const std::filesystem::path& file);
    CatalogueVersion(const CatalogueVersion&) = delete;
    CatalogueVersion& operator=(const CatalogueVersion&) = delete;

    /// Whether the file that is open is the one that has the catalogue's name now, or nothing has that name.
    [[nodiscard]] bool isPresent() const;
    /// Whether another program has written into the open file.
    [[nodiscard]] bool isOverwritten() const;
    /// Whether the same numbers mean the same entries in both.
    [[nodiscard]] bool isOfSameLineage(const CatalogueVersion& other) const;

    std::vector<LookUpRow> matches(LookUpText text, std::string_view typed, std::size_t most, bool asTyped);
    /// The whole list. If a search found nothing that begins so, `missed` is its text, and the list begins with the
    /// entries that have its words, and with near misses.
    std::vector<LookUpRow> all(LookUpText text, std::size_t most, const std::optional<std::string>& missed);
    /// The entry's columns, of which Catalogue.h tells; empty where there is no such entry.
    std::vector<LookUpValue> entry(std::int64_t itemId);

private:
    CatalogueLists& lists(LookUpText text) { return text == LookUpText::name ? *names_ : *partNums_; }
    void addFound(LookUpText text, std::string_view typed, std::size_t most, std::vector<ListedRow>& rows);

    const std::filesystem::path path_;
    struct stat opened_ = {}; // set before the file is opened: if it is replaced meanwhile, this is noticed later
    CatalogueLayers layers_;
    std::string lineage_;
    std::unique_ptr<CatalogueLists> names_, partNums_;
    std::optional<CatalogueWords> words_;                 ///< None in a catalogue of the first form.
    std::vector<std::unique_ptr<SqliteStatement>> entry_; ///< One for each layer.
};

} // namespace orvan
