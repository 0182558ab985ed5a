// importCatalogue: makes a catalogue file from a CSV or TSV file.
//
// All or nothing: a file with a single row that cannot be taken changes nothing, nor does one that fails or is
// cancelled. The catalogue is written beside the one there is and takes its place at the end
// (orvan/components/catalogue/FileReplacement.h), so that desks go on with the old one and never see half of the new
// one; each finds the new one with its next look-up. Memory stays the same however long the file is.
//
// The file: CSV as orvan/components/catalogue/CsvReader.h says, UTF-8 with or without a byte order mark. The first
// record names the columns, in any order; others are ignored. Letters' case, blanks and punctuation of a name do not
// count:
//
//   item id      id, item id, product id, article id           optional: rows are numbered from 1
//   name         name, product name, product, article, title   required
//   key          key, product key, item key                    optional
//   part number  part number, part no, part, SKU, item number, article number ...   required
//   unit price   unit price, price, list price                 required
//   note         note, remark, comment, description ...        optional
//
// A row is refused for: fields more or fewer than the header's, an item id that is no whole number of 32 bits
// or was there before, a price that is none (orvan/components/catalogue/PriceText.h; an empty one is no price), text
// that is not UTF-8, neither name nor part number, a quote that is not closed or has text behind it.
//
// The decimal separator is found by the first price that can be read in one way only. Where there is none,
// prices such as "1,234" end the import: a guess could be wrong by a factor of thousand.
//
// Thread: any; `progress` is called in it. Errors: 75 for a file that cannot be read or written, 321 for one
// that cannot be understood, both with the file and the reason; 5 for an unusable option.
#pragma once

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
    int indexesBuilt = 0; ///< They are built when all is read; that takes about as long as reading.
    int indexesTotal = 0; ///< 0 while reading.
};

struct CatalogueImportOptions {
    char delimiter = 0;        ///< 0: found in the first line.
    char decimalSeparator = 0; ///< '.' or ','; 0: found in the prices.
    /// The header's names of the columns; empty: found by the names above.
    struct ColumnNames {
        std::string itemId = {};
        std::string name = {};
        std::string key = {};
        std::string partNum = {};
        std::string unitPrice = {};
        std::string note = {};
    } columns = {};
    std::size_t mostRefused = 100; ///< Refused rows that are described; all of them are counted.
    /// Told every thousand rows and some milliseconds; false cancels. What it throws ends the import.
    std::function<bool(const CatalogueImportProgress&)> progress = {};
};

struct RefusedRow {
    std::uint64_t line = 0; ///< From 1, where the row begins.
    std::string reason;
};

struct CatalogueImportResult {
    enum class Outcome {
        imported,
        refused,   ///< Because of rows.
        ambiguous, ///< The prices can be read in two ways; name the decimal separator.
        cancelled
    };

    Outcome outcome = Outcome::imported;
    std::uint64_t rows = 0;         ///< Read, the header and refused ones excluded.
    std::uint64_t refusedCount = 0; ///< At least one when refused.
    std::vector<RefusedRow> refused;
    std::string ambiguousPrice; ///< One of them, when ambiguous.
    char delimiter = 0;         ///< What was found or named.
    char decimalSeparator = 0;
};

CatalogueImportResult importCatalogue(const std::filesystem::path& source, const std::filesystem::path& catalogue,
                                      const CatalogueImportOptions& options = {});

} // namespace orvan
