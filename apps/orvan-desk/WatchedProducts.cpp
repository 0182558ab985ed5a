#include "WatchedProducts.h"

#include "apps/orvan-desk/undo/ProductsJournal.h"
#include "orvan/components/products/InProcessProductMgr.h"
#include "orvan/components/products/ProductsString.h"
#include "orvan/core/ProductMgr.h"
#include "orvan/hosting/QtHost.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace orvan::desk {

namespace {

std::weak_ptr<JournalledProductMgr> newest;

std::shared_ptr<ProductMgr> makeManager()
{
    static const auto factory = productMgrFactory();
    return std::dynamic_pointer_cast<ProductMgr>(factory());
}

/// A manager of the desk. The list view hands its products to the one that it shows; others that it makes only help it
/// to reckon.
std::shared_ptr<JournalledProductMgr> makeWatched()
{
    return journalled(makeManager(), [](const std::shared_ptr<JournalledProductMgr>& manager) { newest = manager; });
}

/// Each record as a text.
std::vector<std::string> recordsOf(const std::string& products)
{
    const ProductsSeparators separators;
    std::vector<std::string> records;
    ProductsReader reader(products, separators);
    ProductValues fields;
    while (reader.more()) {
        reader.next(fields);
        appendProduct(records.emplace_back(), fields, separators);
    }
    return records;
}

} // namespace

void watchProducts()
{
    qtHost().components().registerClass(std::string(kProductMgrClassName), makeWatched);
}

std::string watchedProducts()
{
    const auto manager = newest.lock();
    return manager ? manager->GetProductsString(kRecordSeparator, kFieldSeparator) : std::string();
}

std::vector<ListChange> takeWatchedChanges()
{
    const auto manager = newest.lock();
    return manager ? manager->takeChanges() : std::vector<ListChange>();
}

void applyToWatched(const ListChange& change, bool backwards)
{
    if (const auto manager = newest.lock()) {
        manager->apply(change, backwards);
    }
}

ProductCounts countWatchedProducts()
{
    ProductCounts counts;
    const auto manager = newest.lock();
    counts.products = manager ? manager->GetProductCount() : 0;
    const auto add = [](ProductsWithout& to, std::int32_t position) {
        ++to.count;
        if (to.first.size() < ProductsWithout::kMostPositions) {
            to.first.push_back(position);
        }
    };
    for (std::int32_t at = 1; at <= counts.products; ++at) {
        const auto product = manager->GetProduct(at);
        if (product->UnitPrice() == Currency()) {
            add(counts.price, at);
        }
        if (product->Name().find_first_not_of(" \t\r\n") == std::string::npos) {
            add(counts.name, at);
        }
    }
    return counts;
}

void checkProducts(const std::string& products)
{
    const auto manager = makeManager();
    manager->SetProductsString(products, kRecordSeparator, kFieldSeparator, false);
    static_cast<void>(manager->GetProductsString(kRecordSeparator, kFieldSeparator));
}

std::size_t differingProducts(const std::string& one, const std::string& other)
{
    const std::vector<std::string> a = recordsOf(one), b = recordsOf(other);
    const std::size_t both = std::min(a.size(), b.size());
    std::size_t differing = std::max(a.size(), b.size()) - both;
    for (std::size_t i = 0; i < both; ++i) {
        differing += a[i] == b[i] ? 0 : 1;
    }
    return differing;
}

} // namespace orvan::desk
