#include "orvan/hosting/ThreadMessages.h"

#include "orvan/base/RuntimeError.h"

namespace orvan {

namespace {

/// The head of the thread's list of objects, newest first. It is a plain pointer, which needs no destruction, so that a
/// host with static storage can still remove itself from the list while the program ends.
thread_local ThreadMessages* newest = nullptr;

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
    return asRuntimeError([&] { return newest ? newest->messageBox_.show(message) : ui::MessageResult::ok; });
}

} // namespace orvan
