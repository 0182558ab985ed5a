// Watched: what the wrappers of this folder have in common: they make each call a watched one, and pass it on.
//
// Thread: that of the wrapped object.
#pragma once

#include "orvan/outside/CallWatch.h"

#include <string_view>
#include <utility>

namespace orvan::outside {

template <class Pointer>
class Watched {
public:
    Watched(Pointer inner, CallWatch& watch) : inner_(std::move(inner)), watch_(watch) {}

protected:
    auto& inner() const { return *inner_; }
    CallWatch& watch() const { return watch_; }

    /// `work` passes the call on and returns the result; see watchedCall.
    template <class Work, class ToParts, class FromParts>
    auto call(std::string_view name, CallArguments arguments, const Work& work, const ToParts& toParts,
              const FromParts& fromParts) const
    {
        return watchedCall(watch_, name, arguments, work, toParts, fromParts);
    }
    /// A call whose answer is one value.
    template <class Value, class Work>
    Value ask(std::string_view name, CallArguments arguments, const Work& work) const
    {
        return call(
            name, arguments, [&]() -> Value { return work(); }, [](const Value& value) { return callValues(value); },
            [](const CallValues& answer) { return partOf<Value>(answer); });
    }
    /// A call without an answer.
    template <class Work>
    void tell(std::string_view name, CallArguments arguments, const Work& work) const
    {
        watchedCall(watch_, name, arguments, work);
    }

private:
    Pointer inner_;
    CallWatch& watch_;
};

} // namespace orvan::outside
