// FaultyProductMgr: forwards to another manager and fails at its nth call, or moves the index.
#pragma once

#include "orvan/base/RuntimeError.h"
#include "orvan/core/ProductMgr.h"

#include <optional>

namespace orvan::test {

/// What faulty managers made by one factory share, so that a test can arm them from outside.
struct Faults {
    int failAtCall = 0;                           ///< 1: the next call; 0: never.
    std::int32_t seekMovesBy = 0;                 ///< Added to every index that a seek has found.
    std::int32_t notFoundFrom = 0;                ///< Seeks at this index or beyond find nothing; 0: all are found.
    std::optional<std::int32_t> maxDataSize = {}; ///< In place of the manager's own limit.
    bool restoringFails = false;                  ///< A list cannot be put back.
    int managersAlive = 0;
};

class FaultyProductMgr final : public ProductMgr {
public:
    FaultyProductMgr(std::shared_ptr<ProductMgr> inner, Faults& faults) : inner_(std::move(inner)), faults_(faults)
    {
        ++faults_.managersAlive;
    }
    ~FaultyProductMgr() override { --faults_.managersAlive; }

    std::int32_t GetProductCount() override { return call().GetProductCount(); }
    Currency GetTotalValue() override { return call().GetTotalValue(); }
    void SeekIndex(std::int32_t& lIndex, std::int32_t lOffset, bool& found) override
    {
        call().SeekIndex(lIndex, lOffset, found);
        found = found && (faults_.notFoundFrom == 0 || lIndex < faults_.notFoundFrom);
        lIndex += found ? faults_.seekMovesBy : 0;
    }
    std::shared_ptr<ProductRecord> AddNewProduct() override { return call().AddNewProduct(); }
    std::shared_ptr<ProductRecord> GetProduct(std::int32_t lIndex) override { return call().GetProduct(lIndex); }
    void DeleteProduct(std::int32_t lIndex) override { call().DeleteProduct(lIndex); }
    void MoveProduct(std::int32_t from, std::int32_t to) override { call().MoveProduct(from, to); }
    void SetProductsString(std::string_view sProducts, const std::string& recordSeparator,
                           const std::string& fieldSeparator, bool flag) override
    {
        if (faults_.restoringFails && flag) {
            throw RuntimeError(1000, "FaultyProductMgr", "scripted failure");
        }
        call().SetProductsString(sProducts, recordSeparator, fieldSeparator, flag);
    }
    std::string GetProductsString(const std::string& recordSeparator, const std::string& fieldSeparator) override
    {
        std::string sProducts = call().GetProductsString(recordSeparator, fieldSeparator);
        if (faults_.maxDataSize && static_cast<std::int64_t>(sProducts.size()) > *faults_.maxDataSize) {
            throw RuntimeError(ErrorNumber::outOfStringSpace, "FaultyProductMgr", "too large");
        }
        return sProducts;
    }
    std::int32_t GetMaxDataSize() override
    {
        const std::int32_t own = call().GetMaxDataSize();
        return faults_.maxDataSize.value_or(own);
    }

private:
    ProductMgr& call()
    {
        if (faults_.failAtCall > 0 && --faults_.failAtCall == 0) {
            throw RuntimeError(1000, "FaultyProductMgr", "scripted failure");
        }
        return *inner_;
    }

    std::shared_ptr<ProductMgr> inner_;
    Faults& faults_;
};

} // namespace orvan::test
