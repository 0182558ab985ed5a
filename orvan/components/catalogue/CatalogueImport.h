// importCatalogue: makes a catalogue file from a price list.
//
// An import is complete or has no effect: if a single row is refused, or the import fails or is cancelled, the old
// catalogue stays. The new catalogue is written beside the old one and takes its place at the end
// (orvan/files/NewFile.h). Programs that use the old one never see half of the new one; each
// finds the new one with its next look-up. The memory that is needed does not depend on the length of the file.
//
// The list is a text file (CSV, TSV) or a workbook (.xlsx); how it is written is found out
// (orvan/components/catalogue/lists/ListForm.h), or said by the options. One row names the columns, which may be in any
// order; columns with other names are ignored. Capitals, accents, blanks and punctuation in a name do not matter. These
// are the English names; orvan/components/catalogue/lists/ColumnNames.cpp has those of the other languages:
//
//   item id      id, item id, product id, article id           optional
//   name         name, product name, product, article, title   required
//   key          key, product key, item key                    optional
//   part number  part number, part no, part, SKU, item number, article number ...   required
//   barcode      barcode, EAN, GTIN, UPC ...                   optional
//   unit price   unit price, price, list price ...             required
//   note         note, remark, comment, description ...        optional
//
// A column for the unit price that is empty in all rows is passed over if there is another one. An item id that is a
// whole number of 32 bits is kept; any other one is a key.
//
// Skipped are rows in which nothing stands, a repeated header, and a row of totals; the result names them. A row is
// refused if it has more or fewer fields than the header; an item id that another row has; a text in the price's field
// that is neither a price nor says that there is none (orvan/components/catalogue/PriceText.h); a negative price; text
// that is not in the list's encoding; neither a name nor a part number; a barcode of which a spreadsheet has cut the
// last digits ("4.01E+12"); a quote that is not closed, or that is closed before the field ends.
//
// The first price that can be read in one way only tells the decimal separator. If no price does, and there are prices
// such as "1,234", the import ends without a result: a guess could be wrong by a factor of a thousand.
//
// Thread: any; `progress` is called in the same thread. Errors: 75 for a file that cannot be read or written, 321 for a
// file that cannot be understood, both with the file and the reason in the description; 5 for an option out of range.
#pragma once

#include "orvan/base/UserText.h"
#include "orvan/catalogue_export.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvan {

struct CatalogueImportProgress {
    std::uint64_t bytesRead = 0;
    std::uint64_t bytesTotal = 0;
    std::uint64_t rows = 0;
    int indexesBuilt = 0; ///< The indexes are built after reading, which takes about as long again.
    int indexesTotal = 0; ///< 0 while reading.
};

struct RefusedRow {
    std::uint64_t line = 0; ///< The line in which the row begins, from 1.
    UserText reason;
};

/// The name of a column that the list does not have.
inline constexpr std::string_view kNoColumn = "-";

struct CatalogueImportOptions {
    char delimiter = 0;        ///< If 0, it is found in the list's beginning.
    char decimalSeparator = 0; ///< '.' or ','; if 0, it is found in the prices.
    /// The names that the columns have in the header, or "#3" for the third column. A column whose name is empty here
    /// is found by the names above; one whose name is kNoColumn is not looked for.
    struct ColumnNames {
        std::string itemId = {};
        std::string name = {};
        std::string key = {};
        std::string partNum = {};
        std::string unitPrice = {};
        std::string note = {};
        std::string barcode = {};
    } columns = {};
    /// What the catalogue keeps as the name of its source; if empty, the source file's own name.
    std::string sourceName = {};
    /// The language in whose order the lists are shown, such as "sv"; the order of most languages if empty or unknown.
    std::string language = {};
    /// Whether the replaced catalogue is kept until the next import. CatalogueImportResult::former then names its file.
    bool keepFormer = false;
    std::size_t mostRefused =
        100;                   ///< How many refused rows, and how many skipped ones, are described; all are counted.
    std::string encoding = {}; ///< As ICU knows it: "UTF-8", "windows-1252"; if empty, it is found in the list.
    /// The name of a workbook's sheet, or "#2" for the second one; if empty, the first sheet that has a header.
    std::string sheet = {};
    /// The line with the columns' names, from 1; 0 if the list has none, and the columns are given by their numbers. If
    /// there is no value, it is found by the names.
    std::optional<std::uint64_t> headerLine = {};
    std::uint64_t firstLine = 0; ///< The line in which the entries begin; if 0, the one after the header.
    /// Whether refused rows are left out and the others imported.
    bool skipBadRows = false;
    /// Called for each refused row, with its cells.
    std::function<void(const RefusedRow& row, const std::vector<std::string_view>& cells)> eachRefused = {};
    /// Called every thousand rows while reading, and every few milliseconds while the indexes are built. Returning
    /// false cancels the import; an exception ends it and is passed on.
    std::function<bool(const CatalogueImportProgress&)> progress = {};
};

struct CatalogueImportResult {
    enum class Outcome {
        imported,
        refused,   ///< At least one row was refused.
        ambiguous, ///< The prices can be read in two ways; the caller has to name the decimal separator.
        cancelled
    };

    Outcome outcome = Outcome::imported;
    std::uint64_t rows = 0;         ///< Entries, which are the rows without the header, skipped and refused ones.
    std::uint64_t refusedCount = 0; ///< At least one when the outcome is `refused`.
    std::vector<RefusedRow> refused;
    std::string ambiguousPrice; ///< One such price when the outcome is `ambiguous`.
    char delimiter = 0;         ///< The delimiter that was found or named; 0 for a workbook.
    char decimalSeparator = 0;
    std::filesystem::path former = {}; ///< Where the replaced catalogue is kept; empty if none is kept.
    std::uint64_t withoutPrice = 0;    ///< Entries that have no price.
    std::uint64_t skippedCount = 0;    ///< Rows that are no entries and are not refused.
    std::vector<RefusedRow> skipped;
    std::string encoding; ///< The encoding of a text file that was found or named; empty for a workbook.
    std::string sheet;    ///< The name of the workbook's sheet; empty for a text file.
};

ORVAN_CATALOGUE_EXPORT CatalogueImportResult importCatalogue(const std::filesystem::path& source,
                                                             const std::filesystem::path& catalogue,
                                                             const CatalogueImportOptions& options = {});

} // namespace orvan
