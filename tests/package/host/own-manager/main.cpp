// A host's own product manager, written from the contract's header alone, and the conformance suites of the installed
// package that test it. This manager writes its products string in another form than the library's manager: each text
// and amount stands behind its length, and there are no separators.

#include <orvan/base/RuntimeError.h>
#include <orvan/testing/ProductRecordConformance.h>

#include <algorithm>

namespace {

using orvan::Currency;

struct Product final : orvan::ProductRecord {
    std::string name, key, partNum, note;
    Currency unitPrice, qty = Currency::fromInteger(1), discPrcnt, extPrice;

    std::string Name() const override { return name; }
    void SetName(std::string_view text) override { name = text; }
    std::string Key() const override { return key; }
    void SetKey(std::string_view text) override { key = text; }
    std::string PartNum() const override { return partNum; }
    void SetPartNum(std::string_view text) override { partNum = text; }
    Currency UnitPrice() const override { return unitPrice; }
    void SetUnitPrice(Currency amount) override { unitPrice = amount; }
    Currency Qty() const override { return qty; }
    void SetQty(Currency amount) override { qty = amount; }
    Currency DiscPrcnt() const override { return discPrcnt; }
    void SetDiscPrcnt(Currency amount) override { discPrcnt = amount; }
    Currency ExtPrice() const override { return extPrice; }
    void SetExtPrice(Currency amount) override { extPrice = amount; }
    std::string Note() const override { return note; }
    void SetNote(std::string_view text) override { note = text; }
    bool IsValidUnitPrice(Currency amount) const override { return amount >= Currency(); }
    bool IsValidQty(Currency amount) const override { return amount >= Currency(); }
    bool IsValidDiscPrcnt(Currency amount) const override { return amount >= Currency(); }
};

class OrderLines final : public orvan::ProductMgr {
public:
    std::int32_t GetProductCount() override { return static_cast<std::int32_t>(lines_.size()); }
    Currency GetTotalValue() override
    {
        Currency total;
        for (const auto& line : lines_) {
            total = total + line->extPrice; // raises 6 beyond the range
        }
        return total;
    }
    void SeekIndex(std::int32_t& lIndex, std::int32_t lOffset, bool& found) override
    {
        const std::int32_t sought = lIndex + lOffset;
        found = sought >= 1 && sought <= GetProductCount();
        lIndex = found ? sought : lIndex;
    }
    std::shared_ptr<orvan::ProductRecord> AddNewProduct() override
    {
        return lines_.emplace_back(std::make_shared<Product>());
    }
    std::shared_ptr<orvan::ProductRecord> GetProduct(std::int32_t lIndex) override { return *at(lIndex); }
    void DeleteProduct(std::int32_t lIndex) override { lines_.erase(at(lIndex)); }
    void MoveProduct(std::int32_t from, std::int32_t to) override { std::iter_swap(at(from), at(to)); }
    void SetProductsString(std::string_view sProducts, const std::string&, const std::string&, bool) override
    {
        Lines lines;
        while (!sProducts.empty()) {
            const auto line = lines.emplace_back(std::make_shared<Product>());
            for (std::string* text : {&line->name, &line->key, &line->partNum, &line->note}) {
                *text = next(sProducts);
            }
            for (Currency* amount : {&line->unitPrice, &line->qty, &line->discPrcnt, &line->extPrice}) {
                *amount = Currency::fromText(next(sProducts));
            }
        }
        lines_.swap(lines);
    }
    std::string GetProductsString(const std::string&, const std::string&) override
    {
        std::string sProducts;
        for (const auto& line : lines_) {
            for (const std::string& text : {line->name, line->key, line->partNum, line->note, line->unitPrice.toText(),
                                            line->qty.toText(), line->discPrcnt.toText(), line->extPrice.toText()}) {
                sProducts += std::to_string(text.size()) + "," + text;
            }
        }
        if (sProducts.size() > static_cast<std::size_t>(GetMaxDataSize())) {
            throw orvan::RuntimeError(orvan::ErrorNumber::outOfStringSpace, "OrderLines", "The order is too large");
        }
        return sProducts;
    }
    std::int32_t GetMaxDataSize() override { return 100'000; }

private:
    using Lines = std::vector<std::shared_ptr<Product>>;

    Lines::iterator at(std::int32_t lIndex)
    {
        static_cast<void>(lines_.at(static_cast<std::size_t>(lIndex) - 1)); // what it throws counts as error 9
        return lines_.begin() + (lIndex - 1);
    }
    static std::string next(std::string_view& rest)
    {
        const std::size_t comma = rest.find(',');
        const std::size_t size = std::stoul(std::string(rest.substr(0, comma)));
        const std::string text(rest.substr(comma + 1, size));
        if (comma == rest.npos || text.size() != size) {
            throw orvan::RuntimeError(orvan::ErrorNumber::invalidFileFormat, "OrderLines", "The order is cut short");
        }
        rest.remove_prefix(comma + 1 + size);
        return text;
    }

    Lines lines_;
};

const auto kMakeLines = [] { return std::make_shared<OrderLines>(); };
const auto kManagerTests = orvan::conformance::addProductMgrTests("OrderLines", kMakeLines);
const auto kRecordTests = orvan::conformance::addProductRecordTests("OrderLines", kMakeLines);

} // namespace
