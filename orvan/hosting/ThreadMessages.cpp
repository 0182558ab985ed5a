#include "orvan/hosting/ThreadMessages.h"

namespace orvan {

namespace {

/// A plain pointer, which is never destroyed, so that a static host can still leave the list when its
/// thread has ended.
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
    return newest ? newest->messageBox_.show(message) : ui::MessageResult::ok;
}

} // namespace orvan
