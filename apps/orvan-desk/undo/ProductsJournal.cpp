#include "apps/orvan-desk/undo/ProductsJournal.h"

#include "orvan/base/RuntimeError.h"

#include <utility>

namespace orvan::desk {

namespace {

using Kind = ListChange::Kind;

/// The changes of one list. The record that is being edited is compared with what it was before as soon as something
/// else happens, so that an edit of many fields is one change.
class Journal {
public:
    explicit Journal(ProductMgr& manager) : manager_(manager) {}

    /// The record at `position` is about to be written.
    void touch(const std::shared_ptr<ProductRecord>& record, std::int32_t position)
    {
        if (record != touched_) {
            settle();
            before_ = valuesOf(*record);
            touched_ = record;
            position_ = position;
        }
    }

    void note(ListChange change)
    {
        settle();
        // A product that goes far is moved step by step: that is one change.
        if (change.kind == Kind::move && !changes_.empty() && changes_.back().kind == Kind::move &&
            changes_.back().to == change.position) {
            changes_.back().to = change.to;
        } else {
            changes_.push_back(std::move(change));
        }
    }

    void settle()
    {
        const auto record = std::exchange(touched_, nullptr);
        const std::int32_t position = record ? positionOf(record) : 0;
        if (position < 1) {
            return; // the product is not in the list any more
        }
        ProductValues after = valuesOf(*record);
        if (before_ == after) {
            return;
        }
        if (!changes_.empty() && changes_.back().kind == Kind::insert && changes_.back().position == position) {
            changes_.back().after = std::move(after); // what makes a new product is a part of adding it
        } else {
            changes_.push_back(
                {.kind = Kind::edit, .position = position, .before = std::move(before_), .after = std::move(after)});
        }
    }

    void clear()
    {
        touched_.reset();
        changes_.clear();
    }

    std::vector<ListChange> take()
    {
        settle();
        return std::exchange(changes_, {});
    }

private:
    std::int32_t positionOf(const std::shared_ptr<ProductRecord>& record)
    {
        const std::int32_t count = manager_.GetProductCount();
        const auto isAt = [&](std::int32_t position) { return manager_.GetProduct(position) == record; };
        if (position_ >= 1 && position_ <= count && isAt(position_)) {
            return position_;
        }
        for (std::int32_t position = count; position >= 1; --position) { // new products are the last ones
            if (isAt(position)) {
                return position;
            }
        }
        return 0;
    }

    ProductMgr& manager_;
    std::vector<ListChange> changes_;
    std::shared_ptr<ProductRecord> touched_; ///< Has been written, and not yet been compared.
    ProductValues before_;
    std::int32_t position_ = 0;
};

/// A record that tells the journal before it is written.
class JournalledRecord final : public InPlaceRecord {
public:
    JournalledRecord(std::shared_ptr<InPlaceRecord> inner, std::weak_ptr<Journal> journal, std::int32_t position)
        : inner_(std::move(inner)), journal_(std::move(journal)), position_(position)
    {
    }

    std::string Name() const override { return inner_->Name(); }
    void SetName(std::string_view name) override { touched().SetName(name); }
    std::string Key() const override { return inner_->Key(); }
    void SetKey(std::string_view key) override { touched().SetKey(key); }
    std::string PartNum() const override { return inner_->PartNum(); }
    void SetPartNum(std::string_view partNum) override { touched().SetPartNum(partNum); }
    Currency UnitPrice() const override { return inner_->UnitPrice(); }
    void SetUnitPrice(Currency unitPrice) override { touched().SetUnitPrice(unitPrice); }
    Currency Qty() const override { return inner_->Qty(); }
    void SetQty(Currency qty) override { touched().SetQty(qty); }
    Currency DiscPrcnt() const override { return inner_->DiscPrcnt(); }
    void SetDiscPrcnt(Currency discPrcnt) override { touched().SetDiscPrcnt(discPrcnt); }
    Currency ExtPrice() const override { return inner_->ExtPrice(); }
    void SetExtPrice(Currency extPrice) override { touched().SetExtPrice(extPrice); }
    std::string Note() const override { return inner_->Note(); }
    void SetNote(std::string_view note) override { touched().SetNote(note); }
    bool IsValidUnitPrice(Currency cyValue) const override { return inner_->IsValidUnitPrice(cyValue); }
    bool IsValidQty(Currency cyValue) const override { return inner_->IsValidQty(cyValue); }
    bool IsValidDiscPrcnt(Currency cyValue) const override { return inner_->IsValidDiscPrcnt(cyValue); }
    ProductFields fields() const noexcept override { return inner_->fields(); }
    std::uint64_t stamp() const noexcept override { return inner_->stamp(); }

private:
    ProductRecord& touched()
    {
        if (const auto journal = journal_.lock()) {
            journal->touch(inner_, position_);
        }
        return *inner_;
    }

    std::shared_ptr<InPlaceRecord> inner_;
    std::weak_ptr<Journal> journal_;
    std::int32_t position_; ///< Where the record was when it was asked for.
};

class Manager final : public JournalledProductMgr, public std::enable_shared_from_this<Manager> {
public:
    using Shown = std::function<void(const std::shared_ptr<JournalledProductMgr>& manager)>;

    Manager(std::shared_ptr<ProductMgr> inner, Shown shown) : inner_(std::move(inner)), shown_(std::move(shown)) {}

    std::int32_t GetProductCount() override { return inner_->GetProductCount(); }
    Currency GetTotalValue() override { return inner_->GetTotalValue(); }
    void SeekIndex(std::int32_t& lIndex, std::int32_t lOffset, bool& found) override
    {
        inner_->SeekIndex(lIndex, lOffset, found);
    }
    std::shared_ptr<ProductRecord> AddNewProduct() override
    {
        const auto record = inner_->AddNewProduct();
        const std::int32_t position = inner_->GetProductCount();
        journal_->note({.kind = Kind::insert, .position = position, .after = valuesOf(*record)});
        return wrapped(record, position);
    }
    std::shared_ptr<ProductRecord> GetProduct(std::int32_t lIndex) override
    {
        return wrapped(inner_->GetProduct(lIndex), lIndex);
    }
    void DeleteProduct(std::int32_t lIndex) override
    {
        journal_->settle(); // while the edited product is still in the list
        ListChange change{.kind = Kind::remove, .position = lIndex, .before = valuesOf(*inner_->GetProduct(lIndex))};
        inner_->DeleteProduct(lIndex);
        journal_->note(std::move(change));
    }
    void MoveProduct(std::int32_t from, std::int32_t to) override
    {
        journal_->settle();
        inner_->MoveProduct(from, to);
        journal_->note({.kind = Kind::move, .position = from, .to = to});
    }
    void SetProductsString(std::string_view sProducts, const std::string& recordSeparator,
                           const std::string& fieldSeparator, bool flag) override
    {
        shown_(shared_from_this());
        inner_->SetProductsString(sProducts, recordSeparator, fieldSeparator, flag);
        journal_->clear(); // another list, or the one from before a session of the editor: nothing is left to undo
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

    std::vector<ListChange> takeChanges() override { return journal_->take(); }

    void apply(const ListChange& change, bool backwards) override
    {
        switch (change.kind) {
        case Kind::edit:
            setValues(*inner_->GetProduct(change.position), backwards ? change.before : change.after);
            break;
        case Kind::move:
            inner_->MoveProduct(backwards ? change.to : change.position, backwards ? change.position : change.to);
            break;
        case Kind::insert:
            backwards ? inner_->DeleteProduct(change.position) : insert(change.position, change.after);
            break;
        case Kind::remove:
            backwards ? insert(change.position, change.before) : inner_->DeleteProduct(change.position);
            break;
        }
    }

private:
    std::shared_ptr<ProductRecord> wrapped(const std::shared_ptr<ProductRecord>& record, std::int32_t position)
    {
        // The desk's manager is the library's own, whose records can be read in place.
        auto inPlace = std::dynamic_pointer_cast<InPlaceRecord>(record);
        if (!inPlace) {
            throw RuntimeError(ErrorNumber::objectNotSet);
        }
        return std::make_shared<JournalledRecord>(std::move(inPlace), journal_, position);
    }

    void insert(std::int32_t position, const ProductValues& fields)
    {
        setValues(*inner_->AddNewProduct(), fields);
        inner_->MoveProduct(inner_->GetProductCount(), position);
    }

    std::shared_ptr<ProductMgr> inner_;
    Shown shown_;
    std::shared_ptr<Journal> journal_ = std::make_shared<Journal>(*inner_);
};

} // namespace

std::shared_ptr<JournalledProductMgr>
journalled(std::shared_ptr<ProductMgr> inner,
           std::function<void(const std::shared_ptr<JournalledProductMgr>& manager)> shown)
{
    return std::make_shared<Manager>(std::move(inner), std::move(shown));
}

} // namespace orvan::desk
