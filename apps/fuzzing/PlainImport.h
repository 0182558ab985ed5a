// PlainImport: what a price list's entries are, read in the plainest way, to compare the import with.
#pragma once

#include "apps/fuzzing/PlainPriceList.h"
#include "orvan/components/catalogue/CatalogueImport.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvan::fuzz {

struct PlainEntry {
    std::string name, key, partNum, note;
    std::optional<std::int64_t> unitPrice;
};

/// What the plain reader finds in a list.
struct PlainImport {
    bool readable = false;
    char decimal = '.';
    bool ambiguous = false;
    bool plainPrices = true;                   ///< It knows what all prices mean.
    std::vector<std::uint64_t> refused;        ///< The lines.
    std::map<std::string, PlainEntry> entries; ///< By their own ids, or else by their rows.
};

/// The places of the columns that the plain reader knows: by their English names.
struct PlainColumns {
    explicit PlainColumns(const std::vector<std::string>& header);

    std::optional<std::size_t> id, name, key, partNum, price, note;
};

[[nodiscard]] bool isPlainUtf8(std::string_view text);

/// Reads the list that has these records. `decimal` is 0 where the prices are to tell the decimal separator.
[[nodiscard]] PlainImport readPlainly(const std::vector<PlainRecord>& records, char decimal);

/// Whether the plain reader can say what is imported. It knows neither repeated headers nor totals.
[[nodiscard]] bool isComparable(const PlainImport& expected, const std::vector<PlainRecord>& records);

/// Names the columns for the import as the plain reader finds them.
[[nodiscard]] CatalogueImportOptions::ColumnNames named(const PlainColumns& columns);

} // namespace orvan::fuzz
