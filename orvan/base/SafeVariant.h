// SafeVariant: a std::variant that stays in order when copying it fails, for instance because memory runs out.
//
// The copy constructor of libstdc++'s std::variant has a fault where every alternative is a small plain type or a
// std::string: if the copying of the string throws, it destroys an alternative that was never made. This class copies
// by assignment, which has no such fault: a copy that fails throws, and nothing else happens.
// Thread: any; it is a plain value.
#pragma once

#include <type_traits>
#include <variant>

namespace orvan {

template <class... Types>
class SafeVariant : public std::variant<Types...> {
    using Base = std::variant<Types...>;
    static_assert(std::is_nothrow_default_constructible_v<Base>, "the copy begins as the first alternative");
    static_assert((std::is_nothrow_move_constructible_v<Types> && ...), "the copied alternative is moved into place");

public:
    using Base::Base;
    using Base::operator=;

    SafeVariant() = default;
    SafeVariant(const SafeVariant& other) : Base() { Base::operator=(other); }
    SafeVariant(SafeVariant&&) noexcept = default;
    SafeVariant& operator=(const SafeVariant&) = default;
    SafeVariant& operator=(SafeVariant&&) noexcept = default;
    ~SafeVariant() = default;
};

} // namespace orvan
