// Lifetime: tells code that has waited whether the object it belongs to still exists.
//
//     const LifetimeWatch watch = lifetime_.watch();   // lifetime_ is a member
//     box.show(...);                                   // anything may happen meanwhile
//     if (watch.ended()) { return; }                   // `this` must not be touched any more
//
// A handler that shows a message box, or calls code of the host, may come back after its own object
// has been destroyed. Thread: the watched object's.
#pragma once

#include <memory>

namespace orvan {

/// Stays valid when the watched object is gone.
class LifetimeWatch {
public:
    explicit LifetimeWatch(const std::shared_ptr<const char>& lifetime) : lifetime_(lifetime) {}

    /// True once the object has been destroyed.
    [[nodiscard]] bool ended() const noexcept { return lifetime_.expired(); }

private:
    std::weak_ptr<const char> lifetime_;
};

/// A member of the object to be watched.
class Lifetime {
public:
    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;

    [[nodiscard]] LifetimeWatch watch() const { return LifetimeWatch(lifetime_); }

private:
    std::shared_ptr<const char> lifetime_ = std::make_shared<const char>();
};

} // namespace orvan
