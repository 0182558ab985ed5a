// Sheet: the rows of a workbook's sheet, and the texts that its sheets share.
//
// A number is given as it is stored, whatever its format: a date as the number of its day, 12 % as 0.12, with up to 15
// digits, as spreadsheets show them. A cell without content is blank. Bounds: a row has at most 1,000 columns and a
// megabyte of text, and the shared texts, which have to be kept in memory, have 256 megabytes. Thread: one at a time.
// Errors: 321.
#pragma once

#include "orvan/components/catalogue/lists/xlsx/Package.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace orvan::xlsx {

class SharedTexts {
public:
    void read(Package& package, const std::string& part);
    /// Refuses a number that no text has.
    [[nodiscard]] std::string_view at(std::string_view number) const;

private:
    std::string all_;
    std::vector<std::size_t> ends_;
};

class Sheet {
public:
    /// `package` and `texts` outlive the sheet.
    Sheet(Package& package, const std::string& part, const SharedTexts& texts);

    bool next();
    const std::vector<std::string_view>& cells() const { return cells_; }
    bool isNumber(std::size_t cell) const { return row_.numbers[cell]; }
    std::uint64_t line() const { return row_.line; }

private:
    struct Row {
        std::uint64_t line = 0;
        std::string text = {};              ///< Of all cells, one behind the other.
        std::vector<std::size_t> ends = {}; ///< Where each cell's text ends.
        std::vector<bool> numbers = {};
    };

    void begin(std::string_view name, const XML_Char** attributes);
    void end(std::string_view name);
    void beginRow(std::string_view reference);
    void beginCell(const XML_Char** attributes);
    void endCell();

    const SharedTexts& texts_;
    std::deque<Row> rows_; ///< Parsed, and not given yet.
    Row row_;
    std::vector<std::string_view> cells_;
    std::uint64_t line_ = 0;
    std::size_t column_ = 0; ///< Of the present cell, from 0.
    std::string type_, value_;
    bool inRow_ = false;
    bool inValue_ = false;
    int phonetic_ = 0; ///< Within how many elements whose text says how another text is pronounced.
    bool more_ = true;
    Part part_; // last: its events use all of these
};

} // namespace orvan::xlsx
