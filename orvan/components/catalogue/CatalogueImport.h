// importCatalogue: makes a catalogue file from a CSV or TSV file.
//
// An import is complete or has no effect: if a single row is refused, or the import fails or is cancelled, the old
// catalogue stays. The new catalogue is written beside the old one and takes its place at the end
// (orvan/files/NewFile.h). Programs that use the old one never see half of the new one; each
// finds the new one with its next look-up. The memory that is needed does not depend on the length of the file.
//
// The file: CSV as orvan/components/catalogue/CsvReader.h says, UTF-8 with or without a byte order mark. The first
// record names the columns, which may be in any order; columns with other names are ignored. Capitals, blanks and
// punctuation in a name do not matter:
//
//   item id      id, item id, product id, article id           optional: rows are numbered from 1
//   name         name, product name, product, article, title   required
//   key          key, product key, item key                    optional
//   part number  part number, part no, part, SKU, item number, article number ...   required
//   unit price   unit price, price, list price                 required
//   note         note, remark, comment, description ...        optional
//
// A row is refused if it has more or fewer fields than the header; an item id that is not a whole number of 32 bits or
// that another row has; a text in the price's field that is not a price (orvan/components/catalogue/PriceText.h; the
// field may be empty); text that is not UTF-8; neither a name nor a part number; a quote that is not closed, or that
// is closed before the field ends.
//
// The first price that can be read in one way only tells the decimal separator. If no price does, and there are prices
// such as "1,234", the import ends without a result: a guess could be wrong by a factor of a thousand.
//
// Thread: any; `progress` is called in the same thread. Errors: 75 for a file that cannot be read or written, 321 for a
// file that cannot be understood, both with the file and the reason in the description; 5 for an option out of range.
#pragma once

#include "orvan/base/UserText.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace orvan {

struct CatalogueImportProgress {
    std::uint64_t bytesRead = 0;
    std::uint64_t bytesTotal = 0;
    std::uint64_t rows = 0;
    int indexesBuilt = 0; ///< The indexes are built after reading, which takes about as long again.
    int indexesTotal = 0; ///< 0 while reading.
};

struct CatalogueImportOptions {
    char delimiter = 0;        ///< If 0, it is found in the first line.
    char decimalSeparator = 0; ///< '.' or ','; if 0, it is found in the prices.
    /// The names that the columns have in the header. A column whose name is empty here is found by the names above.
    struct ColumnNames {
        std::string itemId = {};
        std::string name = {};
        std::string key = {};
        std::string partNum = {};
        std::string unitPrice = {};
        std::string note = {};
    } columns = {};
    /// What the catalogue keeps as the name of its source; if empty, the source file's own name.
    std::string sourceName = {};
    /// The language in whose order the lists are shown, such as "sv"; the order of most languages if empty or unknown.
    std::string language = {};
    /// Whether the replaced catalogue is kept until the next import. CatalogueImportResult::former then names its file.
    bool keepFormer = false;
    std::size_t mostRefused = 100; ///< How many refused rows are described; all are counted.
    /// Called every thousand rows while reading, and every few milliseconds while the indexes are built. Returning
    /// false cancels the import; an exception ends it and is passed on.
    std::function<bool(const CatalogueImportProgress&)> progress = {};
};

struct RefusedRow {
    std::uint64_t line = 0; ///< The line in which the row begins, from 1.
    UserText reason;
};

struct CatalogueImportResult {
    enum class Outcome {
        imported,
        refused,   ///< At least one row was refused.
        ambiguous, ///< The prices can be read in two ways; the caller has to name the decimal separator.
        cancelled
    };

    Outcome outcome = Outcome::imported;
    std::uint64_t rows = 0;         ///< Rows that were read, without the header and refused rows.
    std::uint64_t refusedCount = 0; ///< At least one when the outcome is `refused`.
    std::vector<RefusedRow> refused;
    std::string ambiguousPrice; ///< One such price when the outcome is `ambiguous`.
    char delimiter = 0;         ///< The delimiter that was found or named.
    char decimalSeparator = 0;
    std::filesystem::path former = {}; ///< Where the replaced catalogue is kept; empty if none is kept.
};

CatalogueImportResult importCatalogue(const std::filesystem::path& source, const std::filesystem::path& catalogue,
                                      const CatalogueImportOptions& options = {});

} // namespace orvan
