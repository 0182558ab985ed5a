// Patched: wrappers around implementations of the contracts, in which a test replaces single operations.
//
// A wrapper passes each operation on to the object that it wraps. Where the test has set a function for an operation,
// the wrapper calls this function instead, and gives it the wrapped object as `own`. Ownership: a wrapper shares the
// object that it wraps. Thread: that of the wrapped object.
#pragma once

#include "orvan/core/ProductMgr.h"
#include "orvan/core/Trace.h"
#include "orvan/lookup/ProductLkpMgr.h"
#include "orvan/ui/LocaleService.h"
#include "orvan/ui/MessageBox.h"
#include "orvan/ui/SettingsStore.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace orvan::testkit {

struct RecordPatches {
    /// What is stored, or read, in the place of a value; `property` is the name without "Set".
    std::function<std::string(std::string_view property, std::string_view text)> storedText = {};
    std::function<Currency(std::string_view property, Currency amount)> storedAmount = {};
    std::function<std::string(std::string_view property, const std::string& text)> readText = {};
    /// Called after each amount that was set, and before each question whether one is valid ("IsValidQty").
    std::function<void(ProductRecord& own, std::string_view what, Currency amount)> called = {};
};

class PatchedRecord final : public ProductRecord {
public:
    /// Asked at each call for the record that it goes to.
    using Own = std::function<std::shared_ptr<ProductRecord>()>;

    explicit PatchedRecord(Own own, RecordPatches patches = {}) : own_(std::move(own)), patches_(std::move(patches)) {}

    std::string Name() const override { return read("Name", own_()->Name()); }
    void SetName(std::string_view name) override { own_()->SetName(stored("Name", name)); }
    std::string Key() const override { return read("Key", own_()->Key()); }
    void SetKey(std::string_view key) override { own_()->SetKey(stored("Key", key)); }
    std::string PartNum() const override { return read("PartNum", own_()->PartNum()); }
    void SetPartNum(std::string_view partNum) override { own_()->SetPartNum(stored("PartNum", partNum)); }
    Currency UnitPrice() const override { return own_()->UnitPrice(); }
    void SetUnitPrice(Currency value) override { set("UnitPrice", &ProductRecord::SetUnitPrice, value); }
    Currency Qty() const override { return own_()->Qty(); }
    void SetQty(Currency value) override { set("Qty", &ProductRecord::SetQty, value); }
    Currency DiscPrcnt() const override { return own_()->DiscPrcnt(); }
    void SetDiscPrcnt(Currency value) override { set("DiscPrcnt", &ProductRecord::SetDiscPrcnt, value); }
    Currency ExtPrice() const override { return own_()->ExtPrice(); }
    void SetExtPrice(Currency value) override { set("ExtPrice", &ProductRecord::SetExtPrice, value); }
    std::string Note() const override { return read("Note", own_()->Note()); }
    void SetNote(std::string_view note) override { own_()->SetNote(stored("Note", note)); }
    bool IsValidUnitPrice(Currency value) const override
    {
        return asked("IsValidUnitPrice", value).IsValidUnitPrice(value);
    }
    bool IsValidQty(Currency value) const override { return asked("IsValidQty", value).IsValidQty(value); }
    bool IsValidDiscPrcnt(Currency value) const override
    {
        return asked("IsValidDiscPrcnt", value).IsValidDiscPrcnt(value);
    }

private:
    std::string stored(std::string_view property, std::string_view text) const
    {
        return patches_.storedText ? patches_.storedText(property, text) : std::string(text);
    }
    std::string read(std::string_view property, const std::string& text) const
    {
        return patches_.readText ? patches_.readText(property, text) : text;
    }
    void set(std::string_view property, void (ProductRecord::*setter)(Currency), Currency value)
    {
        const auto own = own_();
        ((*own).*setter)(patches_.storedAmount ? patches_.storedAmount(property, value) : value);
        if (patches_.called) {
            patches_.called(*own, property, value);
        }
    }
    ProductRecord& asked(std::string_view question, Currency value) const
    {
        const auto own = own_();
        if (patches_.called) {
            patches_.called(*own, question, value);
        }
        return *own; // the list, too, holds it
    }

    Own own_;
    RecordPatches patches_;
};

struct ProductMgrPatches {
    std::function<std::int32_t(ProductMgr& own)> count = {};
    std::function<Currency(ProductMgr& own)> total = {};
    std::function<void(ProductMgr& own, std::int32_t& index, std::int32_t offset, bool& found)> seek = {};
    std::function<std::shared_ptr<ProductRecord>(ProductMgr& own)> add = {};
    std::function<std::shared_ptr<ProductRecord>(ProductMgr& own, std::int32_t index)> get = {};
    std::function<void(ProductMgr& own, std::int32_t index)> remove = {};
    std::function<void(ProductMgr& own, std::int32_t from, std::int32_t to)> move = {};
    std::function<void(ProductMgr& own, std::string_view sProducts, bool flag)> load = {};
    std::function<std::string(ProductMgr& own)> save = {};
    std::function<void(ProductMgr& own)> check = {};
};

class PatchedProductMgr final : public ProductMgr {
public:
    PatchedProductMgr(std::shared_ptr<ProductMgr> own, ProductMgrPatches patches)
        : own_(std::move(own)), patches_(std::move(patches))
    {
    }

    std::int32_t GetProductCount() override { return patches_.count ? patches_.count(*own_) : own_->GetProductCount(); }
    Currency GetTotalValue() override { return patches_.total ? patches_.total(*own_) : own_->GetTotalValue(); }
    void SeekIndex(std::int32_t& lIndex, std::int32_t lOffset, bool& found) override
    {
        patches_.seek ? patches_.seek(*own_, lIndex, lOffset, found) : own_->SeekIndex(lIndex, lOffset, found);
    }
    std::shared_ptr<ProductRecord> AddNewProduct() override
    {
        return patches_.add ? patches_.add(*own_) : own_->AddNewProduct();
    }
    std::shared_ptr<ProductRecord> GetProduct(std::int32_t lIndex) override
    {
        return patches_.get ? patches_.get(*own_, lIndex) : own_->GetProduct(lIndex);
    }
    void DeleteProduct(std::int32_t lIndex) override
    {
        patches_.remove ? patches_.remove(*own_, lIndex) : own_->DeleteProduct(lIndex);
    }
    void MoveProduct(std::int32_t from, std::int32_t to) override
    {
        patches_.move ? patches_.move(*own_, from, to) : own_->MoveProduct(from, to);
    }
    void SetProductsString(std::string_view sProducts, const std::string& recordSeparator,
                           const std::string& fieldSeparator, bool flag) override
    {
        patches_.load ? patches_.load(*own_, sProducts, flag)
                      : own_->SetProductsString(sProducts, recordSeparator, fieldSeparator, flag);
    }
    std::string GetProductsString(const std::string& recordSeparator, const std::string& fieldSeparator) override
    {
        return patches_.save ? patches_.save(*own_) : own_->GetProductsString(recordSeparator, fieldSeparator);
    }
    std::int32_t GetMaxDataSize() override { return own_->GetMaxDataSize(); }
    void CheckDataSize(const std::string& recordSeparator, const std::string& fieldSeparator) override
    {
        patches_.check ? patches_.check(*own_) : own_->CheckDataSize(recordSeparator, fieldSeparator);
    }

private:
    std::shared_ptr<ProductMgr> own_;
    ProductMgrPatches patches_;
};

struct LookUpPatches {
    std::function<LookUpList(ProductLkpMgr& own, bool names, std::string_view text, bool all)> list = {};
    std::function<void(ProductLkpMgr& own, std::int32_t itemId)> seek = {};
    std::function<bool(ProductLkpMgr& own)> isEof = {};
    std::function<LookUpValue(ProductLkpMgr& own, std::int32_t column)> field = {};
    std::function<std::optional<LookUpSummary>(ProductLkpMgr& own, std::int64_t itemId)> summary = {};
    std::optional<std::size_t> mostMatches = {};
};

class PatchedLookUp final : public ProductLkpMgr {
public:
    PatchedLookUp(std::shared_ptr<ProductLkpMgr> own, LookUpPatches patches)
        : own_(std::move(own)), patches_(std::move(patches))
    {
    }

    LookUpList GetPartNumList(std::string_view sText, bool all) override
    {
        return patches_.list ? patches_.list(*own_, false, sText, all) : own_->GetPartNumList(sText, all);
    }
    LookUpList GetProductNameList(std::string_view sText, bool all) override
    {
        return patches_.list ? patches_.list(*own_, true, sText, all) : own_->GetProductNameList(sText, all);
    }
    void SeekItem(std::int32_t itemId) override
    {
        patches_.seek ? patches_.seek(*own_, itemId) : own_->SeekItem(itemId);
    }
    bool IsEOF() override { return patches_.isEof ? patches_.isEof(*own_) : own_->IsEOF(); }
    LookUpValue GetFieldValue(std::int32_t column) override
    {
        return patches_.field ? patches_.field(*own_, column) : own_->GetFieldValue(column);
    }
    std::optional<LookUpSummary> summary(std::int64_t itemId) override
    {
        return patches_.summary ? patches_.summary(*own_, itemId) : own_->summary(itemId);
    }
    std::size_t mostMatches() const override { return patches_.mostMatches.value_or(own_->mostMatches()); }

private:
    std::shared_ptr<ProductLkpMgr> own_;
    LookUpPatches patches_;
};

struct TracePatches {
    std::function<std::int32_t(Trace& own)> number = {};
    std::function<void(Trace& own)> error = {};
    std::function<void(Trace& own, std::string_view label)> enter = {};
    std::function<void(Trace& own, std::string_view label)> exit = {};
    std::optional<std::int32_t> appError = {};
    std::function<void(Trace& own, std::int32_t window)> show = {};
};

class PatchedTrace final : public Trace {
public:
    PatchedTrace(std::shared_ptr<Trace> own, TracePatches patches) : own_(std::move(own)), patches_(std::move(patches))
    {
    }

    std::int32_t LastErrorNumber() override
    {
        return patches_.number ? patches_.number(*own_) : own_->LastErrorNumber();
    }
    void TraceError(std::string_view sText) override
    {
        patches_.error ? patches_.error(*own_) : own_->TraceError(sText);
    }
    void TraceEnter(std::string_view label) override
    {
        patches_.enter ? patches_.enter(*own_, label) : own_->TraceEnter(label);
    }
    void TraceExit(std::string_view label) override
    {
        patches_.exit ? patches_.exit(*own_, label) : own_->TraceExit(label);
    }
    std::int32_t AppErrorNumber() override { return patches_.appError.value_or(own_->AppErrorNumber()); }
    void ShowLastError(std::int32_t hWnd) override
    {
        patches_.show ? patches_.show(*own_, hWnd) : own_->ShowLastError(hWnd);
    }

private:
    std::shared_ptr<Trace> own_;
    TracePatches patches_;
};

struct LocalePatches {
    std::function<std::int32_t(ui::LocaleService& own, ui::LocaleItem item, std::span<char> buffer)> item = {};
    std::function<void(ui::LocaleService& own, std::string& text, Currency value, int digits)> currency = {};
    std::function<void(ui::LocaleService& own, std::string& text, Currency value, int digits)> number = {};
    std::function<Currency(ui::LocaleService& own, std::string_view text)> read = {};
    std::function<char32_t(ui::LocaleService& own, char32_t character)> fold = {};
};

class PatchedLocale final : public ui::LocaleService {
public:
    PatchedLocale(std::shared_ptr<ui::LocaleService> own, LocalePatches patches)
        : own_(std::move(own)), patches_(std::move(patches))
    {
    }

    std::int32_t getLocaleInfo(std::int32_t localeId, ui::LocaleItem item, std::span<char> buffer) override
    {
        return patches_.item ? patches_.item(*own_, item, buffer) : own_->getLocaleInfo(localeId, item, buffer);
    }
    void appendCurrency(std::string& text, Currency value, int digits) override
    {
        patches_.currency ? patches_.currency(*own_, text, value, digits) : own_->appendCurrency(text, value, digits);
    }
    void appendNumber(std::string& text, Currency value, int digits) override
    {
        patches_.number ? patches_.number(*own_, text, value, digits) : own_->appendNumber(text, value, digits);
    }
    Currency textToCurrency(std::string_view text) override
    {
        return patches_.read ? patches_.read(*own_, text) : own_->textToCurrency(text);
    }
    char32_t foldCase(char32_t character) override
    {
        return patches_.fold ? patches_.fold(*own_, character) : own_->foldCase(character);
    }

private:
    std::shared_ptr<ui::LocaleService> own_;
    LocalePatches patches_;
};

} // namespace orvan::testkit
