// CatalogueColumns: finds the fields of an imported row by the names in the file's header. Thread: any.
#pragma once

#include "orvan/components/catalogue/CatalogueImport.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvan {

/// The places of the fields in a record, counted from 0.
struct CatalogueColumns {
    std::optional<std::size_t> itemId, name, key, partNum, unitPrice, note;
};

/// The name in the form in which names are compared: "Part-No." and "PART NO" give the same.
[[nodiscard]] std::string simplifiedColumnName(std::string_view name);

/// The simplified names under which price lists usually have a column.
[[nodiscard]] const std::vector<std::string_view>&
usualColumnNames(std::optional<std::size_t> CatalogueColumns::*column);

/// Raises 321 for a required or named column that the header does not have; the description begins with `source`.
CatalogueColumns findColumns(const std::vector<std::string_view>& header,
                             const CatalogueImportOptions::ColumnNames& names, const std::string& source);

} // namespace orvan
