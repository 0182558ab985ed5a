// KeptChoices: what the user has said about price lists, kept in the desk's settings, so that the next list of the same
// shape is understood without help. Two lists have the same shape if their headers are the same.
// Thread: the user-interface thread.
#pragma once

#include "orvan/components/catalogue/CatalogueImport.h"

#include <QString>

#include <string>
#include <vector>

namespace orvan::desk {

/// The shape of a list with these names of columns; empty for a list without names.
[[nodiscard]] QString shapeOf(const std::vector<std::string>& header);

/// What was said about a list of that shape; options without any choice if there was no such list.
[[nodiscard]] CatalogueImportOptions keptChoices(const QString& shape);

/// Keeps the choices. Where nothing was chosen, what was kept is forgotten.
void keepChoices(const QString& shape, const CatalogueImportOptions& choices);

} // namespace orvan::desk
