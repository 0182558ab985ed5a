// The components that come with the library, registered under the class names it asks for.
#pragma once

#include "orvan/catalogue_export.h"
#include "orvan/components/catalogue/CatalogueFactory.h"
#include "orvan/components/products/InProcessProductMgr.h"
#include "orvan/components/trace/TraceLog.h"

namespace orvan {

class ComponentRegistry;

struct DefaultComponentOptions {
    ProductMgrOptions productMgr = {}; ///< The size limit and the rules of the product manager.
    CatalogueOptions catalogue = {};   ///< The catalogue's file and limits; without a file it has no entries.
    TraceLogOptions trace = {};
};

/// Registers the in-process product manager, the catalogue look-up and the trace log. The trace log
/// shows its messages in the message box of the thread that uses it (orvan/hosting/ThreadMessages.h).
ORVAN_CATALOGUE_EXPORT void registerDefaultComponents(ComponentRegistry& registry,
                                                      const DefaultComponentOptions& options = {});

} // namespace orvan
