// HookedProductMgr: forwards to another manager, and lets the test act as a host whose code runs in it.
#pragma once

#include "orvan/core/ProductMgr.h"

#include <functional>
#include <optional>

namespace orvan::test {

/// What the managers of one test share.
struct ManagerHooks {
    std::string operation = {};             ///< The one in which `act` runs, at its next call and only there.
    std::function<void()> act = {};         ///< Runs when the operation's work is done.
    std::optional<std::int32_t> count = {}; ///< In place of the manager's own.
    bool handsOutRecords = true;
};

class HookedProductMgr final : public ProductMgr {
public:
    HookedProductMgr(std::shared_ptr<ProductMgr> inner, ManagerHooks& hooks) : inner_(std::move(inner)), hooks_(hooks)
    {
    }

    std::int32_t GetProductCount() override
    {
        return after("GetProductCount", hooks_.count.value_or(inner_->GetProductCount()));
    }
    Currency GetTotalValue() override { return after("GetTotalValue", inner_->GetTotalValue()); }
    void SeekIndex(std::int32_t& lIndex, std::int32_t lOffset, bool& found) override
    {
        inner_->SeekIndex(lIndex, lOffset, found);
        after("SeekIndex", 0);
    }
    std::shared_ptr<ProductRecord> AddNewProduct() override { return inner_->AddNewProduct(); }
    std::shared_ptr<ProductRecord> GetProduct(std::int32_t lIndex) override
    {
        const auto record = inner_->GetProduct(lIndex);
        return after("GetProduct", hooks_.handsOutRecords ? record : nullptr);
    }
    void DeleteProduct(std::int32_t lIndex) override
    {
        inner_->DeleteProduct(lIndex);
        after("DeleteProduct", 0);
    }
    void MoveProduct(std::int32_t from, std::int32_t to) override
    {
        inner_->MoveProduct(from, to);
        after("MoveProduct", 0);
    }
    void SetProductsString(std::string_view sProducts, const std::string& recordSeparator,
                           const std::string& fieldSeparator, bool flag) override
    {
        inner_->SetProductsString(sProducts, recordSeparator, fieldSeparator, flag);
        after("SetProductsString", 0);
    }
    std::string GetProductsString(const std::string& recordSeparator, const std::string& fieldSeparator) override
    {
        return after("GetProductsString", inner_->GetProductsString(recordSeparator, fieldSeparator));
    }
    std::int32_t GetMaxDataSize() override { return inner_->GetMaxDataSize(); }
    void CheckDataSize(const std::string& recordSeparator, const std::string& fieldSeparator) override
    {
        inner_->CheckDataSize(recordSeparator, fieldSeparator);
    }

private:
    /// Reads a member once the host has acted, which is an error where the host has let this manager go.
    template <class Result>
    Result after(std::string_view operation, Result result)
    {
        if (operation == hooks_.operation) {
            hooks_.operation.clear();
            hooks_.act();
            ++callsSurvived_;
        }
        return result;
    }

    std::shared_ptr<ProductMgr> inner_;
    ManagerHooks& hooks_;
    int callsSurvived_ = 0;
};

} // namespace orvan::test
