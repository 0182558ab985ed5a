// RowSource: a price list as rows of cells, whatever the form of its file.
//
// A row is a record of a CSV file or a row of a sheet. Cells are UTF-8. Thread: one at a time.
#pragma once

#include "orvan/base/UserText.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <istream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orvan {

class RowSource {
public:
    RowSource() = default;
    RowSource(const RowSource&) = delete;
    RowSource& operator=(const RowSource&) = delete;
    virtual ~RowSource() = default;

    /// Reads the next row that is not empty. Returns false at the end.
    virtual bool next() = 0;
    /// The cells of the current row; the views are valid until the next call of next().
    virtual const std::vector<std::string_view>& cells() const = 0;
    /// Whether the cell is a number by its type, written with a decimal point and without groups. A text that looks
    /// like a number is none.
    virtual bool isNumber(std::size_t /*cell*/) const { return false; }
    /// Whether cells at the end of a row that have no content are left out.
    virtual bool endsEarly() const { return false; }
    /// Why the current row is malformed, in which case its cells are not to be used; empty if it is not.
    virtual const UserText& problem() const = 0;
    /// The number of the line, or of the sheet's row, in which the current row begins, from 1.
    virtual std::uint64_t line() const = 0;
    /// How much of the list's file has been read.
    virtual std::uint64_t bytesRead() const = 0;
};

/// A price list's bytes.
struct ImportSource {
    std::string name;        ///< How messages name the list.
    std::string origin = {}; ///< What the catalogue keeps as the name of the list that it was made from.
    std::uint64_t bytes = 0; ///< The list's size.
    /// Opens the list at its beginning. It is called several times: to see how the list is written, and to read it.
    std::function<std::unique_ptr<std::istream>()> open;
};

} // namespace orvan
