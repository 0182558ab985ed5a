// WatchedProducts: the products of the desk's list view, read without a word in the trace.
//
// The list view reports what it is asked in the trace. A recovery copy that is made every second must not: the trace
// shows what the user did. The desk's product managers are therefore made here, and the one that was last given
// products, which is the list view's, is remembered. Thread: the user-interface thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace orvan {
struct ProductValues;
}

namespace orvan::desk {

struct ExplainedQuote; // ExplainDialog.h
struct ListChange;     // undo/ProductsJournal.h

/// Has the host's product managers made here; to be called before there is a list view.
void watchProducts();

/// The products string of the list view's manager; "" while there is none. Raises what the manager raises.
[[nodiscard]] std::string watchedProducts();

/// What has changed in the list view's list since the last call, or since it was shown; see ProductsJournal.h.
[[nodiscard]] std::vector<ListChange> takeWatchedChanges();
/// Makes a change of the list view's list again, or takes it back. The list view has to be refreshed then.
void applyToWatched(const ListChange& change, bool backwards);

/// The products of the list view, also of a list that is too large for a products string.
[[nodiscard]] std::vector<ProductValues> watchedValues();
/// The products in a products string. Raises what the manager raises.
[[nodiscard]] std::vector<ProductValues> valuesIn(const std::string& products);
/// The size of the products string of such a list, in bytes. Raises 6 where the total is beyond the range: such a list
/// cannot be shown.
[[nodiscard]] std::size_t sizeOf(const std::vector<ProductValues>& products);
/// The largest size of a products string that the list view's manager gives.
[[nodiscard]] std::size_t largestSize();

/// Products that lack something: how many, and the positions of the first ones, counted from 1.
struct ProductsWithout {
    static constexpr std::size_t kMostPositions = 5;

    std::int32_t count = 0;
    std::vector<std::int32_t> first;
};

struct ProductCounts {
    std::int32_t products = 0;
    ProductsWithout price; ///< Their unit price is 0.
    ProductsWithout name;  ///< Their name is empty or has only spaces.
    /// How much of what can be saved they take, in percent, rounded down; above 100 they cannot be saved.
    int percentFull = 0;
};

/// Counts the products of the list view, also of a list that is too large for a products string. Reads every product.
[[nodiscard]] ProductCounts countWatchedProducts();

/// Explains the total of the list view's products, and the price of the one at `position` (0: of none), with two
/// decimals shown, as the list view and the editor do. Raises what the manager raises.
[[nodiscard]] ExplainedQuote explainWatched(std::int32_t position);

/// Raises where a product manager cannot read a list, or could not give it back: such a list must not reach the list
/// view, because showing it would lose the list that is shown.
void checkProducts(const std::string& products);

/// How many products of two lists differ, position by position. Both must be readable.
[[nodiscard]] std::size_t differingProducts(const std::string& one, const std::string& other);

} // namespace orvan::desk
