#include "WatchedProducts.h"

#include "orvan/components/products/InProcessProductMgr.h"
#include "orvan/components/products/ProductsString.h"
#include "orvan/core/ProductMgr.h"
#include "orvan/hosting/QtHost.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace orvan::desk {

namespace {

std::weak_ptr<ProductMgr> newest;

std::shared_ptr<ProductMgr> makeManager()
{
    static const auto factory = productMgrFactory();
    return std::dynamic_pointer_cast<ProductMgr>(factory());
}

/// A manager of the desk. The list view hands its products to the one that it shows; others that it makes only help it
/// to reckon.
class WatchedProductMgr final : public ProductMgr, public std::enable_shared_from_this<WatchedProductMgr> {
public:
    std::int32_t GetProductCount() override { return inner_->GetProductCount(); }
    Currency GetTotalValue() override { return inner_->GetTotalValue(); }
    void SeekIndex(std::int32_t& lIndex, std::int32_t lOffset, bool& found) override
    {
        inner_->SeekIndex(lIndex, lOffset, found);
    }
    std::shared_ptr<ProductRecord> AddNewProduct() override { return inner_->AddNewProduct(); }
    std::shared_ptr<ProductRecord> GetProduct(std::int32_t lIndex) override { return inner_->GetProduct(lIndex); }
    void DeleteProduct(std::int32_t lIndex) override { inner_->DeleteProduct(lIndex); }
    void MoveProduct(std::int32_t from, std::int32_t to) override { inner_->MoveProduct(from, to); }
    void SetProductsString(std::string_view sProducts, const std::string& recordSeparator,
                           const std::string& fieldSeparator, bool flag) override
    {
        newest = shared_from_this();
        inner_->SetProductsString(sProducts, recordSeparator, fieldSeparator, flag);
    }
    std::string GetProductsString(const std::string& recordSeparator, const std::string& fieldSeparator) override
    {
        return inner_->GetProductsString(recordSeparator, fieldSeparator);
    }
    std::int32_t GetMaxDataSize() override { return inner_->GetMaxDataSize(); }

private:
    std::shared_ptr<ProductMgr> inner_ = makeManager();
};

/// Each record as a text.
std::vector<std::string> recordsOf(const std::string& products)
{
    const ProductsSeparators separators;
    std::vector<std::string> records;
    ProductsReader reader(products, separators);
    ProductFields fields;
    while (reader.more()) {
        reader.next(fields);
        appendProduct(records.emplace_back(), fields, separators);
    }
    return records;
}

} // namespace

void watchProducts()
{
    qtHost().components().registerClass(std::string(kProductMgrClassName),
                                        [] { return std::make_shared<WatchedProductMgr>(); });
}

std::string watchedProducts()
{
    const auto manager = newest.lock();
    return manager ? manager->GetProductsString(kRecordSeparator, kFieldSeparator) : std::string();
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
