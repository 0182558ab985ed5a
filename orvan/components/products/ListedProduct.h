// ListedProduct: a record of the in-process product manager, and the ledger in which a list's records keep its total,
// its size and what has changed.
//
// Ownership: the records of a list share its ledger. Thread: that of the manager.
#pragma once

#include "orvan/base/Int128.h"
#include "orvan/components/products/InProcessProductMgr.h"
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

class ListedProduct final : public ProductRecord {
public:
    ListedProduct(std::shared_ptr<Ledger> ledger, ProductValues fields)
        : ledger_(std::move(ledger)), fields_(std::move(fields))
    {
        ledger_->total += fields_.extPrice.scaled();
    }
    ListedProduct(std::shared_ptr<Ledger> ledger, ProductsReader& reader) : ledger_(std::move(ledger))
    {
        reader.next(fields_);
        ledger_->total += fields_.extPrice.scaled();
    }

    std::string Name() const override { return fields_.name; }
    void SetName(std::string_view name) override { set(fields_.name, name); }
    std::string Key() const override { return fields_.key; }
    void SetKey(std::string_view key) override { set(fields_.key, key); }
    std::string PartNum() const override { return fields_.partNum; }
    void SetPartNum(std::string_view partNum) override { set(fields_.partNum, partNum); }
    Currency UnitPrice() const override { return fields_.unitPrice; }
    void SetUnitPrice(Currency unitPrice) override { set(fields_.unitPrice, unitPrice); }
    Currency Qty() const override { return fields_.qty; }
    void SetQty(Currency qty) override { set(fields_.qty, qty); }
    Currency DiscPrcnt() const override { return fields_.discPrcnt; }
    void SetDiscPrcnt(Currency discPrcnt) override { set(fields_.discPrcnt, discPrcnt); }
    Currency ExtPrice() const override { return fields_.extPrice; }
    std::string Note() const override { return fields_.note; }
    void SetNote(std::string_view note) override { set(fields_.note, note); }

    void SetExtPrice(Currency extPrice) override
    {
        if (listed_) {
            ledger_->total += Int128{extPrice.scaled()} - fields_.extPrice.scaled();
        }
        set(fields_.extPrice, extPrice);
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

    const ProductValues& fields() const noexcept { return fields_; }
    bool changed() const noexcept { return changed_; }
    /// Called when the list has been written with the record as it is.
    void setWritten() noexcept { changed_ = false; }

    /// Called when the record is taken out of the list.
    void leaveList() noexcept
    {
        ledger_->total -= fields_.extPrice.scaled();
        ledger_->recordBytes -= productSize(fields_, ledger_->separators);
        listed_ = false;
    }

private:
    static bool accepts(const std::function<bool(Currency)>& rule, Currency value) { return !rule || rule(value); }

    // An equal value is no change, because leaving a box saves its field even if it was not edited.
    void set(std::string& field, std::string_view value)
    {
        if (field != value) {
            std::string text(value);
            noteChange(field, text);
            field.swap(text);
        }
    }

    void set(Currency& field, Currency value) noexcept
    {
        if (field != value) {
            noteChange(field, value);
            field = value;
        }
    }

    template <class Field>
    void noteChange(const Field& former, const Field& present) noexcept
    {
        if (!listed_) {
            return;
        }
        ledger_->recordBytes += fieldSize(present, ledger_->separators);
        ledger_->recordBytes -= fieldSize(former, ledger_->separators);
        if (!changed_) {
            changed_ = true;
            ledger_->noteChange(this);
        }
    }

    std::shared_ptr<Ledger> ledger_;
    ProductValues fields_;
    bool changed_ = false; ///< Since the list was last written.
    bool listed_ = true;
};

} // namespace orvan
