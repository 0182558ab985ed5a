// ListSteps: tells whether one thing that a user does can have made one products string of another. Thread: any.
#pragma once

#include "orvan/core/ProductMgr.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace orvan::sweeps {

/// The products of a products string, in order.
inline std::vector<std::string> productsOf(std::string_view sProducts)
{
    std::vector<std::string> products;
    for (std::size_t end = 0; (end = sProducts.find(kRecordSeparator)) != std::string_view::npos;) {
        products.emplace_back(sProducts.substr(0, end));
        sProducts.remove_prefix(end + 1);
    }
    if (!products.empty()) {
        products.erase(products.begin()); // the count
    }
    return products;
}

/// Whether one thing that a user does can have made one list of the other: at most one product was changed or removed,
/// and at most one was added behind it; or two neighbours were exchanged.
inline bool isOneStep(std::string_view before, std::string_view after)
{
    std::vector<std::string> was = productsOf(before);
    std::vector<std::string> is = productsOf(after);
    while (!was.empty() && !is.empty() && was.back() == is.back()) {
        was.pop_back();
        is.pop_back();
    }
    const auto [first, other] = std::mismatch(was.begin(), was.end(), is.begin(), is.end());
    was.erase(was.begin(), first);
    is.erase(is.begin(), other);
    return (was.size() <= 1 && is.size() <= was.size() + 1) ||
           (was.size() == 2 && is.size() == 2 && was[0] == is[1] && was[1] == is[0]);
}

/// Whether two lists have the same products, in whatever order.
inline bool isSameProducts(std::string_view before, std::string_view after)
{
    std::vector<std::string> was = productsOf(before);
    std::vector<std::string> is = productsOf(after);
    std::sort(was.begin(), was.end());
    std::sort(is.begin(), is.end());
    return was == is;
}

} // namespace orvan::sweeps
