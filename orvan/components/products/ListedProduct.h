// ListedProduct: a record of the in-process product manager, and the ledger in which a list's records keep its total,
// its size and what has changed.
//
// Ownership: the records of a list share its ledger. Thread: that of the manager.
#pragma once

#include "orvan/base/Int128.h"
#include "orvan/components/products/InProcessProductMgr.h"
#include "orvan/components/products/PackedTexts.h"
#include "orvan/components/products/ProductsString.h"
#include "orvan/core/ProductMgr.h"

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace orvan {

class ListedProduct;

/// The rules and the total of one list, the size of its records, and which of them have changed since the list was last
/// written. The records themselves keep it up to date. All records that were ever in the list share the ledger, so that
/// a record may outlive the list and the manager.
struct Ledger {
    Ledger(std::shared_ptr<const ProductRules> validation, ProductsSeparators measured)
        : rules(std::move(validation)), separators(measured)
    {
    }

    std::shared_ptr<const ProductRules> rules;
    Int128 total = 0; // sum of the extended prices; in 128 bits it stays right even while it exceeds a Currency
    // How many bytes all records of the list take in a products string that is written with these separators. The
    // number of records, with which such a string begins, is not included.
    ProductsSeparators separators;
    std::size_t recordBytes = 0;

    // Usually one or two records change before the list is written again, and the ledger notes which. If more than
    // kMostNoted have changed, the manager looks at every record of the list instead.
    static constexpr std::size_t kMostNoted = 8;
    std::array<const ListedProduct*, kMostNoted> changed{}; // the first `changes` of them; may have left the list
    std::size_t changes = 0;
    void noteChange(const ListedProduct* product) noexcept
    {
        if (changes < kMostNoted) {
            changed[changes] = product;
        }
        ++changes;
    }
};

class ListedProduct final : public InPlaceRecord {
public:
    ListedProduct(std::shared_ptr<Ledger> ledger, const ProductValues& values)
        : ledger_(std::move(ledger)), texts_({values.name, values.key, values.partNum, values.note}),
          unitPrice_(values.unitPrice), qty_(values.qty), discPrcnt_(values.discPrcnt), extPrice_(values.extPrice)
    {
        ledger_->total += extPrice_.scaled();
    }

    std::string Name() const override { return std::string(texts_[kName]); }
    void SetName(std::string_view name) override { set(kName, name); }
    std::string Key() const override { return std::string(texts_[kKey]); }
    void SetKey(std::string_view key) override { set(kKey, key); }
    std::string PartNum() const override { return std::string(texts_[kPartNum]); }
    void SetPartNum(std::string_view partNum) override { set(kPartNum, partNum); }
    Currency UnitPrice() const override { return unitPrice_; }
    void SetUnitPrice(Currency unitPrice) override { set(unitPrice_, unitPrice); }
    Currency Qty() const override { return qty_; }
    void SetQty(Currency qty) override { set(qty_, qty); }
    Currency DiscPrcnt() const override { return discPrcnt_; }
    void SetDiscPrcnt(Currency discPrcnt) override { set(discPrcnt_, discPrcnt); }
    Currency ExtPrice() const override { return extPrice_; }
    std::string Note() const override { return std::string(texts_[kNote]); }
    void SetNote(std::string_view note) override { set(kNote, note); }

    void SetExtPrice(Currency extPrice) override
    {
        if (listed_) {
            ledger_->total += Int128{extPrice.scaled()} - extPrice_.scaled();
        }
        set(extPrice_, extPrice);
    }

    bool IsValidUnitPrice(Currency cyValue) const override
    {
        return accepts(ledger_->rules->isValidUnitPrice, cyValue);
    }
    bool IsValidQty(Currency cyValue) const override { return accepts(ledger_->rules->isValidQty, cyValue); }
    bool IsValidDiscPrcnt(Currency cyValue) const override
    {
        return accepts(ledger_->rules->isValidDiscPrcnt, cyValue);
    }

    ProductFields fields() const noexcept override
    {
        return {texts_[kName], texts_[kKey], texts_[kPartNum], unitPrice_, qty_, discPrcnt_, extPrice_, texts_[kNote]};
    }
    std::uint64_t stamp() const noexcept override { return stamp_; }
    bool changed() const noexcept { return changed_; }
    /// Called when the list has been written with the record as it is.
    void setWritten() noexcept { changed_ = false; }

    /// Called when the record is taken out of the list.
    void leaveList() noexcept
    {
        ledger_->total -= extPrice_.scaled();
        ledger_->recordBytes -= productSize(fields(), ledger_->separators);
        listed_ = false;
    }

private:
    enum Text : std::size_t { kName, kKey, kPartNum, kNote };

    static bool accepts(const std::function<bool(Currency)>& rule, Currency value) { return !rule || rule(value); }

    // An equal value is no change, because leaving a box saves its field even if it was not edited.
    void set(Text text, std::string_view value)
    {
        const std::string_view former = texts_[text];
        if (former != value) {
            const std::size_t wider = fieldSize(value, ledger_->separators) - fieldSize(former, ledger_->separators);
            texts_.set(text, value);
            stamp_ = newRecordStamp();
            noteChange(wider);
        }
    }

    void set(Currency& field, Currency value) noexcept
    {
        if (field != value) {
            const std::size_t wider = fieldSize(value, ledger_->separators) - fieldSize(field, ledger_->separators);
            field = value;
            stamp_ = newRecordStamp();
            noteChange(wider);
        }
    }

    /// `wider` is the number of bytes by which the record's text has grown, modulo 2^64 where it has shrunk.
    void noteChange(std::size_t wider) noexcept
    {
        if (!listed_) {
            return;
        }
        ledger_->recordBytes += wider;
        if (!changed_) {
            changed_ = true;
            ledger_->noteChange(this);
        }
    }

    std::shared_ptr<Ledger> ledger_;
    PackedTexts texts_;
    Currency unitPrice_;
    Currency qty_;
    Currency discPrcnt_;
    Currency extPrice_;
    std::uint64_t stamp_ = newRecordStamp();
    bool changed_ = false; ///< Since the list was last written.
    bool listed_ = true;
};

} // namespace orvan
