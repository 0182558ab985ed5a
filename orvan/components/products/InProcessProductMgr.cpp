#include "orvan/components/products/InProcessProductMgr.h"

#include "orvan/base/Int128.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/components/products/ProductsString.h"
#include "orvan/core/ProductMgr.h"

#include <algorithm>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace orvan {

namespace {

/// The rules and the total of one list. The records themselves keep the total up to date. All records that were ever
/// in the list share the ledger, so that a record may outlive the list and the manager.
struct Ledger {
    explicit Ledger(std::shared_ptr<const ProductRules> validation) : rules(std::move(validation)) {}

    std::shared_ptr<const ProductRules> rules;
    Int128 total = 0; // sum of the extended prices; in 128 bits it stays right even while it exceeds a Currency
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

    /// Appends the record in the form that it has in the products string.
    void appendLine(std::string& text, ProductsSeparators separators)
    {
        if (lineKept_) {
            text += line_;
            return;
        }
        const std::size_t begin = text.size();
        appendProduct(text, fields_, separators);
        line_.assign(text, begin);
        lineKept_ = true;
    }

    void dropLine() noexcept { lineKept_ = false; }

    // Both have the processor fetch into its cache what appendLine will read: first the record, then its kept line.
    void fetchRecord() const { __builtin_prefetch(&line_); }
    void fetchLine() const { __builtin_prefetch(line_.data()); }

    /// Called when the record is taken out of the list.
    void leaveList() noexcept
    {
        ledger_->total -= fields_.extPrice.scaled();
        listed_ = false;
    }

private:
    static bool accepts(const std::function<bool(Currency)>& rule, Currency value) { return !rule || rule(value); }

    // An equal value does not drop the kept line, because leaving a box saves its field even if it was not edited.
    void set(std::string& field, std::string_view value)
    {
        if (field != value) {
            field = std::string(value);
            dropLine();
        }
    }

    void set(Currency& field, Currency value) noexcept
    {
        if (field != value) {
            field = value;
            dropLine();
        }
    }

    // The kept line comes first, because writing a long list again reads nothing else of most records.
    std::string line_;
    bool lineKept_ = false;
    bool listed_ = true;
    std::shared_ptr<Ledger> ledger_;
    ProductValues fields_;
};

class InProcessProductMgr final : public ProductMgr {
public:
    InProcessProductMgr(std::int32_t maxDataSize, std::shared_ptr<const ProductRules> rules)
        : maxDataSize_(maxDataSize), ledger_(std::make_shared<Ledger>(std::move(rules)))
    {
    }

    std::int32_t GetProductCount() override { return static_cast<std::int32_t>(products_.size()); }
    Currency GetTotalValue() override;
    void SeekIndex(std::int32_t& lIndex, std::int32_t lOffset, bool& found) override;
    std::shared_ptr<ProductRecord> AddNewProduct() override;
    std::shared_ptr<ProductRecord> GetProduct(std::int32_t lIndex) override { return *at(lIndex); }
    void DeleteProduct(std::int32_t lIndex) override;
    void MoveProduct(std::int32_t from, std::int32_t to) override;
    void SetProductsString(std::string_view sProducts, const std::string& recordSep, const std::string& fieldSep,
                           bool flag) override;
    std::string GetProductsString(const std::string& recordSep, const std::string& fieldSep) override;
    std::int32_t GetMaxDataSize() override { return maxDataSize_; }

private:
    using Products = std::vector<std::shared_ptr<ListedProduct>>;

    Products::iterator at(std::int32_t lIndex);

    std::int32_t maxDataSize_;
    std::shared_ptr<Ledger> ledger_; // belongs to the records in products_
    Products products_;
    ProductsSeparators lineSeparators_; // the separators in the lines that the records keep
    std::size_t expectedSize_ = 0;      // the size of the last products string that was read or written
};

InProcessProductMgr::Products::iterator InProcessProductMgr::at(std::int32_t lIndex)
{
    if (lIndex < 1 || lIndex > GetProductCount()) {
        throw RuntimeError(ErrorNumber::subscriptOutOfRange, {},
                           userText("There is no product at position %1 of %2", lIndex, GetProductCount()));
    }
    return products_.begin() + (lIndex - 1);
}

Currency InProcessProductMgr::GetTotalValue()
{
    const Int128 total = ledger_->total;
    if (total > std::numeric_limits<std::int64_t>::max() || total < std::numeric_limits<std::int64_t>::min()) {
        throw RuntimeError(ErrorNumber::overflow, {},
                           userText("The total of the products is beyond the range of an amount"));
    }
    return Currency::fromScaled(static_cast<std::int64_t>(total));
}

void InProcessProductMgr::SeekIndex(std::int32_t& lIndex, std::int32_t lOffset, bool& found)
{
    const std::int64_t sought = std::int64_t{lIndex} + lOffset;
    found = sought >= 1 && sought <= GetProductCount();
    if (found) {
        lIndex = static_cast<std::int32_t>(sought);
    }
}

std::shared_ptr<ProductRecord> InProcessProductMgr::AddNewProduct()
{
    ProductValues fields;
    fields.qty = Currency::fromScaled(Currency::kScale);
    products_.push_back(std::make_shared<ListedProduct>(ledger_, std::move(fields)));
    return products_.back();
}

void InProcessProductMgr::DeleteProduct(std::int32_t lIndex)
{
    const auto product = at(lIndex);
    (*product)->leaveList();
    products_.erase(product);
}

void InProcessProductMgr::MoveProduct(std::int32_t from, std::int32_t to)
{
    const auto product = at(from);
    const auto place = at(to);
    if (product < place) {
        std::rotate(product, product + 1, place + 1);
    } else {
        std::rotate(place, product, product + 1);
    }
}

void InProcessProductMgr::SetProductsString(std::string_view sProducts, const std::string& recordSep,
                                            const std::string& fieldSep, bool /*flag*/)
{
    ProductsReader reader(sProducts, productsSeparators(recordSep, fieldSep));
    // The new list gets a new ledger; records of the old list that somebody still holds go on with the old ledger.
    auto ledger = std::make_shared<Ledger>(ledger_->rules);
    Products products;
    products.reserve(reader.expected());
    while (reader.more()) {
        products.push_back(std::make_shared<ListedProduct>(ledger, reader));
    }
    ledger_.swap(ledger);
    products_.swap(products);
    expectedSize_ = sProducts.size();
}

std::string InProcessProductMgr::GetProductsString(const std::string& recordSep, const std::string& fieldSep)
{
    const ProductsSeparators separators = productsSeparators(recordSep, fieldSep);
    if (separators != lineSeparators_) {
        for (const auto& product : products_) {
            product->dropLine();
        }
        lineSeparators_ = separators;
    }
    std::string text = productsStringHead(products_.size(), separators);
    text.reserve(expectedSize_ + expectedSize_ / 16);
    // Records and lines are scattered in memory. Without fetching them ahead, writing a list of 100,000 products again
    // would mostly wait for memory.
    constexpr std::size_t kAhead = 8;
    for (std::size_t i = 0; i < products_.size(); ++i) {
        if (i + 2 * kAhead < products_.size()) {
            products_[i + 2 * kAhead]->fetchRecord();
            products_[i + kAhead]->fetchLine();
        }
        products_[i]->appendLine(text, separators);
    }
    expectedSize_ = text.size();
    if (std::cmp_greater(text.size(), maxDataSize_)) {
        throw RuntimeError(
            ErrorNumber::outOfStringSpace, {},
            userText("The products take %1 bytes; at most %2 bytes can be kept", text.size(), maxDataSize_));
    }
    return text;
}

} // namespace

std::function<std::shared_ptr<ui::Component>()> productMgrFactory(ProductMgrOptions options)
{
    return [maxDataSize = options.maxDataSize, rules = std::make_shared<const ProductRules>(std::move(options.rules))]()
               -> std::shared_ptr<ui::Component> { return std::make_shared<InProcessProductMgr>(maxDataSize, rules); };
}

} // namespace orvan
