// The components that come with the library, registered under the class names it asks for.
#pragma once

#include "orvan/components/catalogue/Catalogue.h"
#include "orvan/components/products/InProcessProductMgr.h"
#include "orvan/components/trace/TraceLog.h"
#include "orvan/ui/MessageBox.h"

namespace orvan {

class ComponentRegistry;

struct DefaultComponentOptions {
    ProductMgrOptions productMgr = {}; ///< Size limit and rules of the product manager.
    CatalogueOptions catalogue = {};   ///< File of the catalogue look-up, and its limits; no file: no entries.
    TraceLogOptions trace = {};
};

/// Registers the in-process product manager, the catalogue look-up and the trace log. The trace log
/// shows its messages in the message box of the thread that asks (ThreadMessages).
void registerDefaultComponents(ComponentRegistry& registry, const DefaultComponentOptions& options = {});

/// While it lives, messages of this thread's trace object go to the given message box; of several,
/// to the one made last.
///
/// A thread keeps its trace object to its end, longer than any host: the object must not hold on to
/// a host's message box. Hosts of a thread may end in any order.
class ThreadMessages {
public:
    explicit ThreadMessages(ui::MessageBox& messageBox);
    ThreadMessages(const ThreadMessages&) = delete;
    ThreadMessages& operator=(const ThreadMessages&) = delete;
    ~ThreadMessages();

    /// The newest one's message box shows the message; without one it is dropped.
    static ui::MessageResult show(const ui::Message& message);

private:
    ui::MessageBox& messageBox_;
    ThreadMessages* older_; ///< Those of the thread that live, newest first.
};

} // namespace orvan
