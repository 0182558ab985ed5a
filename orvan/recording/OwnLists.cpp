#include "orvan/recording/OwnLists.h"

#include <utility>

namespace orvan::recording {

class OwnLists::Manager final : public ProductMgr {
public:
    Manager(std::shared_ptr<ProductMgr> inner, std::shared_ptr<std::weak_ptr<ProductMgr>> shown)
        : inner_(std::move(inner)), shown_(std::move(shown))
    {
    }

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
        inner_->SetProductsString(sProducts, recordSeparator, fieldSeparator, flag);
        *shown_ = inner_;
    }
    std::string GetProductsString(const std::string& recordSeparator, const std::string& fieldSeparator) override
    {
        return inner_->GetProductsString(recordSeparator, fieldSeparator);
    }
    std::int32_t GetMaxDataSize() override { return inner_->GetMaxDataSize(); }
    void CheckDataSize(const std::string& recordSeparator, const std::string& fieldSeparator) override
    {
        inner_->CheckDataSize(recordSeparator, fieldSeparator);
    }

private:
    std::shared_ptr<ProductMgr> inner_;
    std::shared_ptr<std::weak_ptr<ProductMgr>> shown_;
};

OwnLists::OwnLists(ui::ComponentFactory& inner) : inner_(inner), shown_(std::make_shared<std::weak_ptr<ProductMgr>>())
{
}

std::shared_ptr<ui::Component> OwnLists::create(std::string_view className)
{
    std::shared_ptr<ui::Component> object = inner_.create(className);
    if (className == kProductMgrClassName) {
        if (auto manager = std::dynamic_pointer_cast<ProductMgr>(object)) {
            return std::make_shared<Manager>(std::move(manager), shown_);
        }
    }
    return object;
}

std::string OwnLists::products() const
{
    const auto manager = shown_->lock();
    return manager ? manager->GetProductsString(kRecordSeparator, kFieldSeparator) : std::string();
}

void OwnLists::setProducts(std::string_view products)
{
    if (const auto manager = shown_->lock()) {
        manager->SetProductsString(products, kRecordSeparator, kFieldSeparator, false);
    }
}

} // namespace orvan::recording
