// The components that come with the library, registered under the class names it asks for.
#pragma once

#include "orvan/components/catalogue/CatalogueFactory.h"
#include "orvan/components/products/InProcessProductMgr.h"
#include "orvan/components/trace/TraceLog.h"

namespace orvan {

class ComponentRegistry;

struct DefaultComponentOptions {
    ProductMgrOptions productMgr = {}; ///< Size limit and rules of the product manager.
    CatalogueOptions catalogue = {};   ///< File of the catalogue look-up, and its limits; no file: no entries.
    TraceLogOptions trace = {};
};

/// Registers the in-process product manager, the catalogue look-up and the trace log. The trace log
/// shows its messages in the message box of the thread that asks (orvan/hosting/ThreadMessages.h).
void registerDefaultComponents(ComponentRegistry& registry, const DefaultComponentOptions& options = {});

} // namespace orvan
