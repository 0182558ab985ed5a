// ThreadMessages: which message box the messages of a thread's trace object go to.
//
// A thread keeps its trace object to its end, longer than any host, so the object must not hold on to
// a host's message box. It asks here instead: while a ThreadMessages lives, the messages of its
// thread go to the message box it was given; of several, to the one made last. Hosts of a thread may end
// in any order. Ownership: the message box outlives the object. Thread: destroyed in the thread that
// made it.
#pragma once

#include "orvan/ui/MessageBox.h"

namespace orvan {

class ThreadMessages {
public:
    explicit ThreadMessages(ui::MessageBox& messageBox);
    ThreadMessages(const ThreadMessages&) = delete;
    ThreadMessages& operator=(const ThreadMessages&) = delete;
    ~ThreadMessages();

    /// The message box of the newest one shows the message; without one it is dropped.
    static ui::MessageResult show(const ui::Message& message);

private:
    ui::MessageBox& messageBox_;
    ThreadMessages* older_; ///< The next of the thread's living ones, newest first.
};

} // namespace orvan
