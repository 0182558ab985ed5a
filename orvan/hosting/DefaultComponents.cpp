#include "orvan/hosting/DefaultComponents.h"

#include "orvan/core/ProductMgr.h"
#include "orvan/core/modInit.h"
#include "orvan/hosting/ComponentRegistry.h"
#include "orvan/hosting/ThreadMessages.h"
#include "orvan/lookup/ProductLkpMgr.h"

#include <string>

namespace orvan {

namespace {

class ThreadMessageBox final : public ui::MessageBox {
public:
    ui::MessageResult show(const ui::Message& message) override { return ThreadMessages::show(message); }
};

} // namespace

void registerDefaultComponents(ComponentRegistry& registry, const DefaultComponentOptions& options)
{
    static ThreadMessageBox messages; // may be shared, because it finds the thread's message box for each message
    asRuntimeError([&] {
        registry.registerClass(std::string(kProductMgrClassName), productMgrFactory(options.productMgr));
        registry.registerClass(std::string(kProductLkpMgrClassName), catalogueFactory(options.catalogue));
        registry.registerClass(std::string(kTraceClassName), traceLogFactory(options.trace, messages));
    });
}

} // namespace orvan
