// FaultyProductMgr: passes calls on to another manager. At its nth call it fails, or lets the test act as a host would;
// it can also move the index. FaultyRecord fails or lets the test act in the calls to a record.
#pragma once

#include "orvan/base/RuntimeError.h"
#include "orvan/core/ProductMgr.h"

#include <functional>
#include <optional>
#include <set>

namespace orvan::test {

/// What faulty managers made by one factory share, so that a test can arm them from outside.
struct Faults {
    int failAtCall = 0;                           ///< 1: the next call; 0: never.
    std::function<void()> act = {};               ///< Runs at that call, which then does not fail.
    bool recordsCount = false;                    ///< Calls to records are counted, too.
    std::string recordCalls = {};                 ///< What was called on each FaultyRecord, blanks between.
    int goneInACall = 0;                          ///< Objects that were destroyed while a call to them ran.
    int nothingAtGetProduct = 0;                  ///< 1: the next GetProduct returns nothing; 0: none.
    std::int32_t seekMovesBy = 0;                 ///< Added to every index that a seek has found.
    std::int32_t notFoundFrom = 0;                ///< Seeks at this index or beyond find nothing; 0: all are found.
    std::optional<std::int32_t> maxDataSize = {}; ///< In place of the manager's own limit.
    bool restoringFails = false;                  ///< A list cannot be put back.
    int managersAlive = 0;
    std::set<const void*> alive = {};

    void called(const void* object)
    {
        if (failAtCall == 0 || --failAtCall != 0) {
            return;
        }
        if (!act) {
            throw RuntimeError(1000, "FaultyProductMgr", "scripted failure");
        }
        act();
        goneInACall += alive.contains(object) ? 0 : 1;
    }
};

class FaultyRecord final : public ProductRecord {
public:
    FaultyRecord(std::shared_ptr<ProductRecord> inner, Faults& faults) : inner_(std::move(inner)), faults_(faults)
    {
        faults_.alive.insert(this);
    }
    ~FaultyRecord() override { faults_.alive.erase(this); }

    std::string Name() const override { return call("Name").Name(); }
    void SetName(std::string_view name) override { call("SetName").SetName(name); }
    std::string Key() const override { return call("Key").Key(); }
    void SetKey(std::string_view key) override { call("SetKey").SetKey(key); }
    std::string PartNum() const override { return call("PartNum").PartNum(); }
    void SetPartNum(std::string_view partNum) override { call("SetPartNum").SetPartNum(partNum); }
    Currency UnitPrice() const override { return call("UnitPrice").UnitPrice(); }
    void SetUnitPrice(Currency unitPrice) override { call("SetUnitPrice").SetUnitPrice(unitPrice); }
    Currency Qty() const override { return call("Qty").Qty(); }
    void SetQty(Currency qty) override { call("SetQty").SetQty(qty); }
    Currency DiscPrcnt() const override { return call("DiscPrcnt").DiscPrcnt(); }
    void SetDiscPrcnt(Currency discPrcnt) override { call("SetDiscPrcnt").SetDiscPrcnt(discPrcnt); }
    Currency ExtPrice() const override { return call("ExtPrice").ExtPrice(); }
    void SetExtPrice(Currency extPrice) override { call("SetExtPrice").SetExtPrice(extPrice); }
    std::string Note() const override { return call("Note").Note(); }
    void SetNote(std::string_view note) override { call("SetNote").SetNote(note); }
    bool IsValidUnitPrice(Currency cyValue) const override { return call("IsValid").IsValidUnitPrice(cyValue); }
    bool IsValidQty(Currency cyValue) const override { return call("IsValid").IsValidQty(cyValue); }
    bool IsValidDiscPrcnt(Currency cyValue) const override { return call("IsValid").IsValidDiscPrcnt(cyValue); }

private:
    ProductRecord& call(const char* operation) const
    {
        const auto inner = inner_; // the test may act, and by that destroy this object
        faults_.recordCalls.append(faults_.recordCalls.empty() ? "" : " ").append(operation);
        faults_.called(this);
        return *inner;
    }

    std::shared_ptr<ProductRecord> inner_;
    Faults& faults_;
};

class FaultyProductMgr final : public ProductMgr {
public:
    FaultyProductMgr(std::shared_ptr<ProductMgr> inner, Faults& faults) : inner_(std::move(inner)), faults_(faults)
    {
        ++faults_.managersAlive;
        faults_.alive.insert(this);
    }
    ~FaultyProductMgr() override
    {
        --faults_.managersAlive;
        faults_.alive.erase(this);
    }

    std::int32_t GetProductCount() override { return call().GetProductCount(); }
    Currency GetTotalValue() override { return call().GetTotalValue(); }
    void SeekIndex(std::int32_t& lIndex, std::int32_t lOffset, bool& found) override
    {
        call().SeekIndex(lIndex, lOffset, found);
        found = found && (faults_.notFoundFrom == 0 || lIndex < faults_.notFoundFrom);
        lIndex += found ? faults_.seekMovesBy : 0;
    }
    std::shared_ptr<ProductRecord> AddNewProduct() override { return counted(call().AddNewProduct()); }
    std::shared_ptr<ProductRecord> GetProduct(std::int32_t lIndex) override
    {
        auto record = call().GetProduct(lIndex);
        if (faults_.nothingAtGetProduct > 0 && --faults_.nothingAtGetProduct == 0) {
            return nullptr;
        }
        return counted(std::move(record));
    }
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
    std::shared_ptr<ProductRecord> counted(std::shared_ptr<ProductRecord> record)
    {
        return faults_.recordsCount ? std::make_shared<FaultyRecord>(std::move(record), faults_) : record;
    }
    ProductMgr& call()
    {
        ProductMgr& inner = *inner_;
        faults_.called(this);
        return inner;
    }

    std::shared_ptr<ProductMgr> inner_;
    Faults& faults_;
};

} // namespace orvan::test
