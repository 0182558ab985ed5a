// ThreadMessages: decides which message box shows the messages of a thread's trace object.
//
// A thread keeps its trace object until the thread ends, longer than any host lives, so the trace object must not keep
// a reference to a host's message box. It uses this class instead: while a ThreadMessages lives, the messages of its
// thread go to the message box that it was given; if there are several, to that of the newest. The hosts of a thread
// may end in any order. Ownership: the message box outlives the object. Thread: to be destroyed in the thread that
// made it.
#pragma once

#include "orvan/core_export.h"
#include "orvan/ui/MessageBox.h"

namespace orvan {

class ORVAN_CORE_EXPORT ThreadMessages {
public:
    explicit ThreadMessages(ui::MessageBox& messageBox);
    ThreadMessages(const ThreadMessages&) = delete;
    ThreadMessages& operator=(const ThreadMessages&) = delete;
    ~ThreadMessages();

    /// Shows the message in the message box of the thread's newest object; if there is none, the message is dropped.
    /// Raises a RuntimeError, whatever the message box throws.
    static ui::MessageResult show(const ui::Message& message);

private:
    ui::MessageBox& messageBox_;
    ThreadMessages* older_; ///< The thread's next older object that still lives.
};

} // namespace orvan
