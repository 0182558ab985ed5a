// Rows: the table of a test, its columns named where the loop over it binds them.
#pragma once

#include <initializer_list>
#include <tuple>

namespace orvan::test {

template <class... Columns>
using Rows = std::initializer_list<std::tuple<Columns...>>;

} // namespace orvan::test
