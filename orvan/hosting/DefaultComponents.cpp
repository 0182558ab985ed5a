#include "orvan/hosting/DefaultComponents.h"

#include "orvan/core/ProductMgr.h"
#include "orvan/core/modInit.h"
#include "orvan/hosting/ComponentRegistry.h"

#include <string>

namespace orvan {

namespace {

/// Without a destructor, so that a static host can still leave the list when its thread has ended.
thread_local ThreadMessages* newest = nullptr;

class ThreadMessageBox final : public ui::MessageBox {
public:
    ui::MessageResult show(const ui::Message& message) override { return ThreadMessages::show(message); }
};

} // namespace

ThreadMessages::ThreadMessages(ui::MessageBox& messageBox) : messageBox_(messageBox), older_(newest)
{
    newest = this;
}

ThreadMessages::~ThreadMessages()
{
    ThreadMessages** link = &newest;
    while (*link != this) {
        link = &(*link)->older_;
    }
    *link = older_;
}

ui::MessageResult ThreadMessages::show(const ui::Message& message)
{
    return newest ? newest->messageBox_.show(message) : ui::MessageResult::ok;
}

void registerDefaultComponents(ComponentRegistry& registry, const DefaultComponentOptions& options)
{
    static ThreadMessageBox messages; // no state of its own: every thread's box is found when asked
    registry.registerClass(std::string(kProductMgrClassName), productMgrFactory(options.productMgr));
    registry.registerClass(std::string(kProductLkpMgrClassName), catalogueFactory(options.catalogue));
    registry.registerClass(std::string(kTraceClassName), traceLogFactory(options.trace, messages));
}

} // namespace orvan
