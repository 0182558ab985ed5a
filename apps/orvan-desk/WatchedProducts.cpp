#include "WatchedProducts.h"

#include "ExplainDialog.h"

#include "apps/orvan-desk/undo/ProductsJournal.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/components/products/InProcessProductMgr.h"
#include "orvan/components/products/ProductsString.h"
#include "orvan/core/ProductMgr.h"
#include "orvan/hosting/QtHost.h"

#include <algorithm>
#include <limits>
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

std::vector<ProductValues> valuesOfAll(ProductMgr& manager)
{
    std::vector<ProductValues> values;
    const std::int32_t count = manager.GetProductCount();
    values.reserve(static_cast<std::size_t>(count));
    for (std::int32_t at = 1; at <= count; ++at) {
        values.push_back(valuesOf(*manager.GetProduct(at)));
    }
    return values;
}

int percentFull(ProductMgr& manager)
{
    constexpr int kAll = 100;
    try {
        const auto size =
            static_cast<std::int64_t>(manager.GetProductsString(kRecordSeparator, kFieldSeparator).size());
        return static_cast<int>(kAll * size / std::max(manager.GetMaxDataSize(), 1));
    } catch (const RuntimeError& error) {
        if (error.number() != ErrorNumber::outOfStringSpace) {
            throw;
        }
        return kAll + 1;
    }
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

std::vector<ProductValues> watchedValues()
{
    const auto manager = newest.lock();
    return manager ? valuesOfAll(*manager) : std::vector<ProductValues>();
}

std::vector<ProductValues> valuesIn(const std::string& products)
{
    const auto manager = makeManager();
    manager->SetProductsString(products, kRecordSeparator, kFieldSeparator, false);
    return valuesOfAll(*manager);
}

std::size_t sizeOf(const std::vector<ProductValues>& products)
{
    // Of the class whose limit it is, but without that limit.
    static const auto factory = productMgrFactory({.maxDataSize = std::numeric_limits<std::int32_t>::max()});
    const auto manager = std::dynamic_pointer_cast<ProductMgr>(factory());
    for (const ProductValues& values : products) {
        setValues(*manager->AddNewProduct(), values);
    }
    static_cast<void>(manager->GetTotalValue());
    return manager->GetProductsString(kRecordSeparator, kFieldSeparator).size();
}

std::size_t largestSize()
{
    const auto manager = newest.lock();
    return manager ? static_cast<std::size_t>(manager->GetMaxDataSize()) : 0;
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
    counts.percentFull = manager ? percentFull(*manager) : 0;
    return counts;
}

ExplainedQuote explainWatched(std::int32_t position)
{
    ExplainedQuote explained;
    const auto manager = newest.lock();
    if (!manager) {
        explained.total = explainTotal(*makeManager());
        return explained;
    }
    if (position > 0 && position <= manager->GetProductCount()) {
        const auto record = manager->GetProduct(position);
        explained.position = position;
        explained.name = QString::fromStdString(record->Name());
        explained.price = explainExtPrice(*record);
    }
    explained.total = explainTotal(*manager);
    return explained;
}

void checkProducts(const std::string& products)
{
    const auto manager = makeManager();
    manager->SetProductsString(products, kRecordSeparator, kFieldSeparator, false);
    manager->CheckDataSize(kRecordSeparator, kFieldSeparator);
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
