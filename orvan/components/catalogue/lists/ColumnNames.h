// ColumnNames: the names that price lists give their columns, in the languages of ListWords.h, and in the exports of
// shop, stock and bookkeeping programs. Thread: any.
#pragma once

#include "orvan/components/catalogue/CatalogueColumns.h"

namespace orvan {

/// Names that mean another column where that one has no better name: "description" is the name if there is no other
/// name, and the note otherwise.
[[nodiscard]] const std::vector<std::string_view>& vagueColumnNames(ColumnPlace column);

/// Whether any column has this simplified name among its usual names or its vague ones.
[[nodiscard]] bool isUsualColumnName(std::string_view simplifiedName);

/// Whether a word of a column's name says nothing about what the column has: a currency, "net", "in".
[[nodiscard]] bool isColumnAddition(std::string_view simplifiedWord);

} // namespace orvan
