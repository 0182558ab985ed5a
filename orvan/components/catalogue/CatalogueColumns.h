// CatalogueColumns: which field of an imported row is which, by the names in the header. Thread: any.
#pragma once

#include "orvan/components/catalogue/CatalogueImport.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvan {

/// Places in a record, from 0.
struct CatalogueColumns {
    std::optional<std::size_t> itemId, name, key, partNum, unitPrice, note;
};

/// Raises 321, `source` at its beginning, for a required or named column that the header does not have.
CatalogueColumns findColumns(const std::vector<std::string_view>& header,
                             const CatalogueImportOptions::ColumnNames& names, const std::string& source);

} // namespace orvan
