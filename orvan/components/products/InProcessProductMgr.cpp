#include "orvan/components/products/InProcessProductMgr.h"

#include "orvan/base/Int128.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/components/products/ProductsString.h"
#include "orvan/core/ProductMgr.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace orvan {

namespace {

class ListedProduct;

/// The rules and the total of one list, and which of its records have changed since the list was last written. The
/// records themselves keep it up to date. All records that were ever in the list share the ledger, so that a record may
/// outlive the list and the manager.
struct Ledger {
    explicit Ledger(std::shared_ptr<const ProductRules> validation) : rules(std::move(validation)) {}

    std::shared_ptr<const ProductRules> rules;
    Int128 total = 0; // sum of the extended prices; in 128 bits it stays right even while it exceeds a Currency

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
        listed_ = false;
    }

private:
    static bool accepts(const std::function<bool(Currency)>& rule, Currency value) { return !rule || rule(value); }

    // An equal value is no change, because leaving a box saves its field even if it was not edited.
    void set(std::string& field, std::string_view value)
    {
        if (field != value) {
            field = std::string(value);
            noteChange();
        }
    }

    void set(Currency& field, Currency value) noexcept
    {
        if (field != value) {
            field = value;
            noteChange();
        }
    }

    void noteChange() noexcept
    {
        if (listed_ && !changed_) {
            changed_ = true;
            ledger_->noteChange(this);
        }
    }

    std::shared_ptr<Ledger> ledger_;
    ProductValues fields_;
    bool changed_ = false; ///< Since the list was last written.
    bool listed_ = true;
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
    std::shared_ptr<ProductRecord> GetProduct(std::int32_t lIndex) override { return at(lIndex)->product; }
    void DeleteProduct(std::int32_t lIndex) override;
    void MoveProduct(std::int32_t from, std::int32_t to) override;
    void SetProductsString(std::string_view sProducts, const std::string& recordSep, const std::string& fieldSep,
                           bool flag) override;
    std::string GetProductsString(const std::string& recordSep, const std::string& fieldSep) override;
    std::int32_t GetMaxDataSize() override { return maxDataSize_; }

private:
    /// A record, and the place of its text in the text of the list.
    struct Entry {
        std::shared_ptr<ListedProduct> product;
        std::size_t begin = 0, size = 0; ///< In bytes; no size: the text does not have the record as it is.
    };
    using Products = std::vector<Entry>;

    Products::iterator at(std::int32_t lIndex);
    /// The entry of the record whose change was noted; the end if it has left the list.
    Products::iterator entryOf(const ListedProduct* product);
    void write(Entry& entry);
    void forgetChanged();
    void writeAll();

    std::int32_t maxDataSize_;
    std::shared_ptr<Ledger> ledger_; // belongs to the records in products_
    Products products_;
    // The list as it was last written. A long list is written again after each product that the user has edited; then
    // only the text of that product is made anew.
    std::string text_;
    ProductsSeparators textSeparators_;
    bool inOrder_ = false;         // whether the text has the records that are in the list, in their order
    std::size_t expectedSize_ = 0; // the size of the last products string that was read or written
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
    products_.push_back({.product = std::make_shared<ListedProduct>(ledger_, std::move(fields))});
    inOrder_ = false;
    return products_.back().product;
}

void InProcessProductMgr::DeleteProduct(std::int32_t lIndex)
{
    const auto product = at(lIndex);
    product->product->leaveList();
    products_.erase(product);
    inOrder_ = false;
}

void InProcessProductMgr::MoveProduct(std::int32_t from, std::int32_t to)
{
    const auto product = at(from);
    const auto place = at(to);
    inOrder_ = false;
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
        products.push_back({.product = std::make_shared<ListedProduct>(ledger, reader)});
    }
    ledger_.swap(ledger);
    products_.swap(products);
    inOrder_ = false;
    expectedSize_ = sProducts.size();
}

std::string InProcessProductMgr::GetProductsString(const std::string& recordSep, const std::string& fieldSep)
{
    const ProductsSeparators separators = productsSeparators(recordSep, fieldSep);
    if (separators != textSeparators_) {
        for (Entry& entry : products_) {
            entry.size = 0;
        }
        textSeparators_ = separators;
        inOrder_ = false;
    }
    if (!inOrder_ || ledger_->changes > Ledger::kMostNoted) {
        writeAll();
    }
    for (std::size_t i = 0; i < ledger_->changes; ++i) {
        if (const auto entry = entryOf(ledger_->changed[i]); entry != products_.end()) {
            write(*entry);
        }
    }
    ledger_->changes = 0;
    expectedSize_ = text_.size();
    if (std::cmp_greater(text_.size(), maxDataSize_)) {
        throw RuntimeError(
            ErrorNumber::outOfStringSpace, {},
            userText("The products take %1 bytes; at most %2 bytes can be kept", text_.size(), maxDataSize_));
    }
    return text_;
}

InProcessProductMgr::Products::iterator InProcessProductMgr::entryOf(const ListedProduct* product)
{
    return std::find_if(products_.begin(), products_.end(),
                        [product](const Entry& entry) { return entry.product.get() == product; });
}

/// Puts the text of one record that has changed in the place of its former text.
void InProcessProductMgr::write(Entry& entry)
{
    std::string line;
    appendProduct(line, entry.product->fields(), textSeparators_);
    text_.replace(entry.begin, entry.size, line);
    // Nothing below raises.
    const std::size_t wider = line.size() - entry.size; // modulo 2^64 where the text is shorter now
    entry.size = line.size();
    entry.product->setWritten();
    for (std::size_t i = static_cast<std::size_t>(&entry - products_.data()) + 1; wider != 0 && i < products_.size();
         ++i) {
        products_[i].begin += wider;
    }
}

/// Leaves no text of a record that has changed.
void InProcessProductMgr::forgetChanged()
{
    if (ledger_->changes > Ledger::kMostNoted) {
        for (Entry& entry : products_) {
            entry.size = entry.product->changed() ? 0 : entry.size;
        }
        return;
    }
    for (std::size_t i = 0; i < ledger_->changes; ++i) {
        if (const auto entry = entryOf(ledger_->changed[i]); entry != products_.end()) {
            entry->size = 0;
        }
    }
}

/// Makes the text anew, out of the former one where that has the records as they are.
void InProcessProductMgr::writeAll()
{
    forgetChanged();
    std::string text = productsStringHead(products_.size(), textSeparators_);
    const std::size_t first = text.size();
    text.reserve(expectedSize_ + expectedSize_ / 16);
    std::vector<std::size_t> made; // the sizes of the texts that are made here
    std::size_t from = 0, to = 0;  // what is to be copied next of the former text: texts that follow each other
    const auto copy = [&] { text.append(text_, from, to - from); };
    for (const Entry& entry : products_) {
        if (entry.size == 0) {
            copy();
            from = to = 0;
            const std::size_t begin = text.size();
            appendProduct(text, entry.product->fields(), textSeparators_);
            made.push_back(text.size() - begin);
        } else {
            if (entry.begin != to) {
                copy();
                from = entry.begin;
            }
            to = entry.begin + entry.size;
        }
    }
    copy();
    // Nothing below raises.
    text_.swap(text);
    std::size_t begin = first;
    auto size = made.cbegin();
    for (Entry& entry : products_) {
        if (entry.size == 0) {
            entry.size = *size++;
            entry.product->setWritten();
        }
        entry.begin = begin;
        begin += entry.size;
    }
    ledger_->changes = 0;
    inOrder_ = true;
}

} // namespace

std::function<std::shared_ptr<ui::Component>()> productMgrFactory(ProductMgrOptions options)
{
    return [maxDataSize = options.maxDataSize, rules = std::make_shared<const ProductRules>(std::move(options.rules))]()
               -> std::shared_ptr<ui::Component> { return std::make_shared<InProcessProductMgr>(maxDataSize, rules); };
}

} // namespace orvan
