#include "orvan/components/products/InProcessProductMgr.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/components/products/ListedProduct.h"
#include "orvan/components/products/ProductsString.h"
#include "orvan/core/ProductMgr.h"

#include <algorithm>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace orvan {

namespace {

class InProcessProductMgr final : public ProductMgr {
public:
    InProcessProductMgr(std::int32_t maxDataSize, std::shared_ptr<const ProductRules> rules)
        : maxDataSize_(maxDataSize), ledger_(std::make_shared<Ledger>(std::move(rules), ProductsSeparators()))
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
    void CheckDataSize(const std::string& recordSep, const std::string& fieldSep) override;

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
    /// Raises 14 for a products string of that many bytes, if that is too large.
    void refuseBeyondLimit(std::size_t size) const;

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
    ProductValues values;
    values.qty = Currency::fromScaled(Currency::kScale);
    products_.push_back({.product = std::make_shared<ListedProduct>(ledger_, values)});
    ledger_->recordBytes += productSize(products_.back().product->fields(), ledger_->separators);
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
    const ProductsSeparators separators = productsSeparators(recordSep, fieldSep);
    ProductsReader reader(sProducts, separators);
    // The new list gets a new ledger; records of the old list that somebody still holds go on with the old ledger.
    auto ledger = std::make_shared<Ledger>(ledger_->rules, separators);
    Products products;
    products.reserve(reader.expected());
    ProductValues values; // outside the loop, so that its texts keep their memory
    while (reader.more()) {
        reader.next(values);
        products.push_back({.product = std::make_shared<ListedProduct>(ledger, values)});
    }
    // A list has one string only, so the records would be written with as many bytes as were read.
    ledger->recordBytes = sProducts.size() - productsStringHead(products.size(), separators).size();
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
    refuseBeyondLimit(text_.size());
    return text_;
}

void InProcessProductMgr::CheckDataSize(const std::string& recordSep, const std::string& fieldSep)
{
    const ProductsSeparators separators = productsSeparators(recordSep, fieldSep);
    if (separators != ledger_->separators) { // other characters have escapes now
        ledger_->recordBytes = 0;
        for (const Entry& entry : products_) {
            ledger_->recordBytes += productSize(entry.product->fields(), separators);
        }
        ledger_->separators = separators;
    }
    refuseBeyondLimit(productsStringHead(products_.size(), separators).size() + ledger_->recordBytes);
}

void InProcessProductMgr::refuseBeyondLimit(std::size_t size) const
{
    if (std::cmp_greater(size, maxDataSize_)) {
        throw RuntimeError(ErrorNumber::outOfStringSpace, {},
                           userText("The products take %1 bytes; at most %2 bytes can be kept", size, maxDataSize_));
    }
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
