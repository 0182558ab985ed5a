// ScopedHandlers: sets event handlers, and clears them again when it is destroyed.
//
//     handlers_.set(button.onClick, [this] { cmdNew_Click(); });   // handlers_ is a member
//
// An object that handles the events of a longer-lived one keeps its handlers in such a member: none of
// them can then run after the object is gone. A slot is the variable that holds a handler, such as
// button.onClick; the slots must outlive this object. Thread: the slots'.
#pragma once

#include <functional>
#include <utility>
#include <vector>

namespace orvan {

class ScopedHandlers {
public:
    ScopedHandlers() = default;
    ScopedHandlers(const ScopedHandlers&) = delete;
    ScopedHandlers& operator=(const ScopedHandlers&) = delete;
    ~ScopedHandlers() { clear(); }

    template <class Signature, class Handler>
    void set(std::function<Signature>& slot, Handler&& handler)
    {
        clearing_.push_back([&slot] { slot = nullptr; });
        slot = std::forward<Handler>(handler);
    }

    /// Clears the slots now.
    void clear()
    {
        for (const auto& clearSlot : std::exchange(clearing_, {})) {
            clearSlot();
        }
    }

    /// Forgets the slots without clearing them, because they have been destroyed already.
    void forget() { clearing_.clear(); }

private:
    std::vector<std::function<void()>> clearing_;
};

} // namespace orvan
