// The components that come with the library, registered under the class names it asks for.
#pragma once

#include "components/TraceLog.h"
#include "core/InProcessProductMgr.h"
#include "ui/MessageBox.h"

namespace orvan {

class ComponentRegistry;

struct DefaultComponentOptions {
    ProductMgrOptions productMgr; ///< Size limit and rules of the product manager.
    TraceLogOptions trace;
};

/// Registers the in-process product manager and the trace log. The trace log shows its messages in
/// the message box of the thread that asks (ThreadMessages).
void registerDefaultComponents(ComponentRegistry& registry, const DefaultComponentOptions& options = {});

/// While it lives, messages of this thread's trace object go to the given message box.
///
/// A thread keeps its trace object to its end, longer than any host: the object must not hold on to
/// a host's message box. Without a ThreadMessages a message is dropped.
class ThreadMessages {
public:
    explicit ThreadMessages(ui::MessageBox& messageBox);
    ThreadMessages(const ThreadMessages&) = delete;
    ThreadMessages& operator=(const ThreadMessages&) = delete;
    ~ThreadMessages();

private:
    ui::MessageBox* previous_;
};

} // namespace orvan
