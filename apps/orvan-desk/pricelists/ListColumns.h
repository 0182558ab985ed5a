// ListColumns: which column of a price list has what, as the dialog shows and changes it. Thread: any.
#pragma once

#include "orvan/components/catalogue/CatalogueColumns.h"

#include <cstddef>
#include <optional>

namespace orvan::desk {

/// What a column has, as a place in columnKinds().
[[nodiscard]] inline std::optional<std::size_t> kindOf(const CatalogueColumns& columns, int column)
{
    for (std::size_t kind = 0; kind < kColumnKinds; ++kind) {
        if (columns.*columnKinds()[kind].place == static_cast<std::size_t>(column)) {
            return kind;
        }
    }
    return std::nullopt;
}

/// The columns by their numbers, so that the list is read as it is shown.
[[nodiscard]] inline CatalogueImportOptions::ColumnNames numbered(const CatalogueColumns& columns)
{
    CatalogueImportOptions::ColumnNames names;
    for (const ColumnKind& kind : columnKinds()) {
        const std::optional<std::size_t> place = columns.*kind.place;
        names.*kind.given = place ? "#" + std::to_string(*place + 1) : std::string(kNoColumn);
    }
    return names;
}

} // namespace orvan::desk
