// CatalogueColumns: finds the fields of an imported row by the names in the list's header. Thread: any.
#pragma once

#include "orvan/catalogue_export.h"
#include "orvan/components/catalogue/CatalogueImport.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvan {

/// The places of the fields in a record, counted from 0.
struct CatalogueColumns {
    std::optional<std::size_t> itemId, name, key, partNum, unitPrice, note, barcode;
    /// Further columns that usually have the price, taken in this order if unitPrice is empty in all rows.
    std::vector<std::size_t> otherPrices = {};
};

using ColumnPlace = std::optional<std::size_t> CatalogueColumns::*;

/// What a list may have in a column.
struct ColumnKind {
    ColumnPlace place;
    std::string CatalogueImportOptions::ColumnNames::*given;
    UserText shown;
    bool required; ///< It has to be found, unless the caller says that the list has none.
};
inline constexpr std::size_t kColumnKinds = 7;
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL const std::array<ColumnKind, kColumnKinds>& columnKinds();

/// The name in the form in which names are compared: "Part-No." and "PART NO" give the same.
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL std::string simplifiedColumnName(std::string_view name);

/// The simplified names under which price lists usually have a column.
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL const std::vector<std::string_view>& usualColumnNames(ColumnPlace column);

struct ColumnsFound {
    CatalogueColumns columns;
    std::vector<const ColumnKind*> missing; ///< The required or named columns that the header does not have.
    std::size_t named = 0;                  ///< How many columns were found by names in the header.
};
[[nodiscard]] ColumnsFound findColumns(const std::vector<std::string_view>& header,
                                       const CatalogueImportOptions::ColumnNames& names);

/// Why a column was not found.
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL UserText whyMissing(const ColumnKind& kind,
                                                           const CatalogueImportOptions::ColumnNames& names);

/// The cells in quotes, for a message.
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL std::string listed(const std::vector<std::string_view>& names);

} // namespace orvan
