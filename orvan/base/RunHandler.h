// runHandler: runs an event's handler, which may destroy the object that it is a member of.
//
// Thread: the handler's.
#pragma once

#include <functional>
#include <utility>

namespace orvan {

/// Runs a copy of the handler, so that the running code stays valid when the member is destroyed. Returns Result() if
/// no handler is set.
template <class Result, class... Parameters, class... Arguments>
Result runHandler(const std::function<Result(Parameters...)>& handler, Arguments&&... arguments)
{
    if (const auto copy = handler) {
        return copy(std::forward<Arguments>(arguments)...);
    }
    return Result();
}

} // namespace orvan
