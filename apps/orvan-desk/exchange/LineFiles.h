// LineFiles: the lines of a quote as a file that spreadsheets read and write (CSV).
//
// What is written: a line with the captions of the columns, then one line for each product; UTF-8, with a byte order
// mark if there is anything but ASCII, because spreadsheets take a file without one for the system's own encoding.
// Texts that a spreadsheet would take for formulas are guarded (orvan/core/SpreadsheetCell.h).
//
// The files are read by the reader of price lists (orvan/components/catalogue/CsvReader.h), in any of its encodings
// (orvan/components/catalogue/lists/Encoding.h), and amounts may have a currency. Lines without any text are skipped. A
// missing quantity counts as 1, any other missing amount as 0, and a missing extended price is computed. A line is
// refused for one of these reasons: it has more or fewer fields than the first line; its text is not UTF-8; one of its
// amounts cannot be read, or is one that no product may have. Thread: any. Errors: 75 and 321 with the reason in
// the description, which begins with the file's name.
#pragma once

#include "LineFields.h"

#include "orvan/components/catalogue/CatalogueImport.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvan {
class ProductRecord;
}

namespace orvan::desk {

[[nodiscard]] std::string linesToCsv(const std::vector<ProductValues>& lines, LineFormat format);

using LineColumns = std::vector<std::optional<LineField>>; ///< For each column of the file, what it has.

struct LineReading {
    static constexpr std::size_t kMostColumns = 64;

    char delimiter = 0;                      ///< If 0, it is found in the first line.
    char decimalSeparator = 0;               ///< '.' or ','; if 0, it is found in the amounts.
    char usualDecimal = '.';                 ///< Where the amounts do not tell.
    std::optional<bool> hasHeader = {};      ///< Whether the first line has the columns' names; if empty, by these.
    std::optional<LineColumns> columns = {}; ///< If empty: by the header, or in the order in which they are written.
    std::size_t mostShown = 50;              ///< How many lines can be shown.
    std::size_t mostRefused = 100;           ///< How many refused lines are described; all are counted.
};

struct ShownLine {
    std::uint64_t line = 0;         ///< Where it begins in the file, from 1.
    std::vector<std::string> cells; ///< As understood; of a refused line and of other columns, as they stand there.
    bool refused = false;
};

struct LinesRead {
    LineFormat format;
    bool hasHeader = false;
    LineColumns columns;
    std::vector<std::string> captions; ///< The columns' names in the file; empty if it has none.
    std::vector<ProductValues> lines;
    std::vector<ShownLine> shown;
    std::vector<RefusedRow> refused;
    std::uint64_t refusedCount = 0;
};

/// `rules` decides which amounts a product can have.
[[nodiscard]] LinesRead readLines(std::string_view bytes, const std::string& fileName, const LineReading& how,
                                  const ProductRecord& rules);

} // namespace orvan::desk
