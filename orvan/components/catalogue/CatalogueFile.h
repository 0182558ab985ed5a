// CatalogueFile: the file format of a product catalogue.
//
// An SQLite database with one table, `product`, whose columns are those of an entry in the order of
// GetFieldValue: item id, folded name, folded part number, name, key, part number, unit price (a whole
// number of ten-thousandths; a value that another program wrote is not converted), note. Two indexes over the
// names and two over the part numbers, by exact and by folded text, hold all that a list shows, so that
// a list is read from consecutive pages. A second table, `origin`, has one row, which tells where the entries come
// from; catalogues of earlier programs do not have it, and those programs do not look at it. The format's version is
// the user version in SQLite's file header.
//
// A finished file, which programs may have open, is never written to: a new file takes its place (CatalogueImport.h).
// Thread: one at a time.
// Errors: those of orvan/components/catalogue/SqliteFile.h; 321 also for a file that is no catalogue or a newer one.
#pragma once

#include "orvan/base/Currency.h"
#include "orvan/components/catalogue/SqliteFile.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace orvan {

struct CatalogueEntry {
    std::int32_t itemId = 0;
    /// The list's own id of the entry, which may be any text; empty if it has none. It is the entry's key.
    std::string_view ownId = {};
    std::string_view name = {};
    std::string_view key = {};
    std::string_view partNum = {};
    std::optional<Currency> unitPrice = {}; ///< Without one, the file has Null, which the editor takes for 0.
    std::string_view note = {};
    std::string_view barcode = {}; ///< EAN, GTIN, UPC or another; with the blanks and dashes that the list has.
};

/// Whether the file's header is that of a catalogue, damaged or not.
[[nodiscard]] bool isCatalogue(const std::filesystem::path& file);

/// Opens a finished catalogue.
[[nodiscard]] SqliteFile openCatalogue(const std::filesystem::path& file);

struct CatalogueOrigin {
    std::string source;       ///< The name of the price list; empty for a catalogue of an earlier program.
    std::int64_t entries = 0; ///< How many entries the catalogue holds.
};
[[nodiscard]] CatalogueOrigin catalogueOrigin(SqliteFile& catalogue);

struct CatalogueStatistics {
    std::int64_t entries = 0;
    std::int64_t withoutPrice = 0;
    Currency lowestPrice, highestPrice; ///< Both 0 if no entry has a price.
    std::int64_t bytes = 0;             ///< Size of the file.
};
/// Reads every entry, so it takes time in a large catalogue.
CatalogueStatistics catalogueStatistics(SqliteFile& catalogue);

/// Fills an empty file that nobody else uses. It writes without a journal, because an unfinished file is thrown away.
class CatalogueWriter {
public:
    explicit CatalogueWriter(const std::filesystem::path& file);
    CatalogueWriter(const CatalogueWriter&) = delete;
    CatalogueWriter& operator=(const CatalogueWriter&) = delete;

    /// Returns false, and adds nothing, when there is already an entry with this id.
    bool add(const CatalogueEntry& entry);
    /// Records where the entries come from.
    void setOrigin(const CatalogueOrigin& origin);
    /// Builds the indexes and marks the file as a catalogue. Calls `goOn` now and then with the number of indexes
    /// built so far and the number of all indexes. If `goOn` returns false, this stops and returns false, and the file
    /// is useless.
    bool finish(const std::function<bool(int built, int all)>& goOn);

private:
    SqliteFile file_;
    SqliteStatement insert_;
    std::string nameFolded_; // Scratch buffers; members so that their capacity is reused.
    std::string partNumFolded_;
};

} // namespace orvan
