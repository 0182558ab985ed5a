// ListForm: how a price list is written.
//
// What the options leave open is found in the list's beginning: whether it is a workbook, its sheet, its encoding and
// delimiter, and the row that has the columns' names. That row is the one, of the first ones, in which most columns are
// known by their names; so lines may stand before it, such as a title or an address. A list has no such row if no
// column is known and an amount stands where the names would. Of several delimiters or sheets that one is taken with
// which most columns are known. Thread: any. Errors: 5 for an option that does not fit the list, 75 for a list that
// cannot be read, 321 for one that is in no form that is known, with the list's name.
#pragma once

#include "orvan/components/catalogue/CatalogueColumns.h"
#include "orvan/components/catalogue/CatalogueImport.h"
#include "orvan/components/catalogue/lists/RowSource.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace orvan {

class WorkbookFile;

struct ListForm {
    std::shared_ptr<WorkbookFile> workbook; ///< Null for a text file.
    std::string encoding;                   ///< Of a text file.
    char delimiter = 0;                     ///< Of a text file.
    std::size_t sheet = 0;                  ///< Of a workbook; a place in `sheets`.
    std::vector<std::string> sheets;        ///< A workbook's sheets.
    std::uint64_t headerLine = 0;           ///< 0 if no row has the columns' names.
    std::uint64_t firstLine = 1;            ///< The first line that may have an entry.
    std::vector<std::string> header;        ///< The columns' names; empty if no row has them.
    std::size_t width = 0;                  ///< How many columns the list has.
    ColumnsFound found;
};

[[nodiscard]] ListForm foundForm(const ImportSource& source, const CatalogueImportOptions& options);

/// Opens a list that is in this form, at its beginning.
[[nodiscard]] std::unique_ptr<RowSource> openRows(const ImportSource& source, const ListForm& form);

} // namespace orvan
