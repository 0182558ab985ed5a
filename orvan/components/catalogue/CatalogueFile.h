// CatalogueFile: the file format of a product catalogue.
//
// An SQLite database. Its table `product` has the entries in the order of their names in a user's language; `rank` is
// the place in that order, from 1. The unit price is a whole number of ten-thousandths. `part_num_order` has the part
// numbers in their order. `name_start` and `part_num_start` lead from folded texts (CaseFolding.h) to the ranks; they
// also have the beginnings that very many entries share, each with the number of these entries and, as a negative
// number, the first of their ranks. A search finds both on one page. `piece` is the index of all texts (SearchText.h),
// `piece_entries` says how many entries have each piece, and `word` has the words by which typing errors are found.
// `retired` keeps the numbers and keys of entries that are no longer in the catalogue (CatalogueIds.h). `origin` has
// one row, about the catalogue as a whole.
//
// Each page has a checksum (PageChecksums.h). The form's version is the user version in SQLite's file header. Files of
// the first form, without all this, can be read, too: those have `product` with `item_id` as its key, folded names and
// part numbers in it, and two indexes over each. Other programs that write catalogues write this form.
//
// A finished file, which programs may have open, is never written to: a new file takes its place (CatalogueImport.h).
// Thread: one at a time.
// Errors: those of orvan/components/catalogue/SqliteFile.h; 321 also for a file that is no catalogue or a newer one.
#pragma once

#include "orvan/base/Currency.h"
#include "orvan/catalogue_export.h"
#include "orvan/components/catalogue/SqliteFile.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace orvan {

struct CatalogueEntry {
    /// The list's own id of the entry, which may be any text; empty if it has none. It is the entry's key.
    std::string_view ownId = {};
    std::string_view name = {};
    std::string_view key = {};
    std::string_view partNum = {};
    std::optional<Currency> unitPrice = {}; ///< Without one, the file has Null, which the editor takes for 0.
    std::string_view note = {};
    std::string_view barcode = {}; ///< EAN, GTIN, UPC or another; with the blanks and dashes that the list has.
    /// The entry's number, where a server has given it. Otherwise CatalogueIds gives one.
    std::optional<std::int32_t> number = {};
};

/// Whether the file's header is that of a catalogue, damaged or not.
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL bool isCatalogue(const std::filesystem::path& file);

/// The version of the form, from the file's header.
inline constexpr std::int64_t kFirstCatalogueVersion = 1;
inline constexpr std::int64_t kCatalogueVersion = 2;
inline constexpr std::int64_t kCatalogueApplicationId = 0x4F72764B; // "OrvK"
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL std::int64_t catalogueVersion(SqliteFile& catalogue);

/// Raises 321 if the file is a catalogue of a newer form, which this program must not replace.
void refuseNewerCatalogue(const std::filesystem::path& file);

/// Opens a finished catalogue.
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL SqliteFile openCatalogue(const std::filesystem::path& file);

/// The texts that a look-up lists.
enum class LookUpText { name, partNum };
/// How many entries with the same beginning a search sorts at most. Where more entries share a beginning, the file has
/// a row for this beginning (see above), so that the search need not sort them.
inline constexpr std::int64_t kCrowd = 2'000;

struct CatalogueOrigin {
    std::string source;       ///< The name of the price list; empty for a catalogue of an earlier program.
    std::int64_t entries = 0; ///< How many entries the catalogue holds.
    // The rest is for the look-up and the next import; a catalogue of the first form has none of it.
    std::string lineage = {};    ///< Catalogues with the same have the same numbers for the same entries.
    std::int64_t nextNumber = 1; ///< The number of the next new entry.
    std::string language = {};   ///< The language whose order the texts have.
};
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL CatalogueOrigin catalogueOrigin(SqliteFile& catalogue);

struct CatalogueStatistics {
    std::int64_t entries = 0;
    std::int64_t withoutPrice = 0;
    Currency lowestPrice, highestPrice; ///< Both 0 if no entry has a price.
    std::int64_t bytes = 0;             ///< Size of the file.
};
/// Reads every entry, so it takes time in a large catalogue.
ORVAN_CATALOGUE_INTERNAL CatalogueStatistics catalogueStatistics(SqliteFile& catalogue);

} // namespace orvan
