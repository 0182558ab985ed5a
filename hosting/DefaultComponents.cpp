#include "hosting/DefaultComponents.h"

#include "core/ProductMgr.h"
#include "core/modInit.h"
#include "hosting/ComponentRegistry.h"

#include <string>

namespace orvan {

namespace {

thread_local ui::MessageBox* threadMessageBox = nullptr;

class ThreadMessageBox final : public ui::MessageBox {
public:
    ui::MessageResult show(const ui::Message& message) override
    {
        return threadMessageBox ? threadMessageBox->show(message) : ui::MessageResult::ok;
    }
};

} // namespace

ThreadMessages::ThreadMessages(ui::MessageBox& messageBox) : previous_(threadMessageBox)
{
    threadMessageBox = &messageBox;
}

ThreadMessages::~ThreadMessages()
{
    threadMessageBox = previous_;
}

void registerDefaultComponents(ComponentRegistry& registry, const DefaultComponentOptions& options)
{
    static ThreadMessageBox messages; // no state of its own: every thread's box is found when asked
    registry.registerClass(std::string(kProductMgrClassName), productMgrFactory(options.productMgr));
    registry.registerClass(std::string(kTraceClassName), traceLogFactory(options.trace, messages));
}

} // namespace orvan
