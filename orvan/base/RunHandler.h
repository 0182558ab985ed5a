// runHandler: runs an event's handler, which may destroy the object that it is a member of.
//
// Thread: the one of the handler.
#pragma once

#include <functional>
#include <utility>

namespace orvan {

/// Runs a copy of the handler, so that what runs outlives the member. Without a handler the result is Result().
template <class Result, class... Parameters, class... Arguments>
Result runHandler(const std::function<Result(Parameters...)>& handler, Arguments&&... arguments)
{
    if (const auto copy = handler) {
        return copy(std::forward<Arguments>(arguments)...);
    }
    return Result();
}

} // namespace orvan
