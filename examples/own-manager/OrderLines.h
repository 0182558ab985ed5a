// OrderLines: this host's own product manager, which keeps its lines as the host's other programs read them.
//
// Its products string is a table as spreadsheets read it: one line of text for each product, with tabs between the
// fields. Line breaks, tabs and backslashes in texts are written \n, \t and \\. The host's own rule is that nobody
// gives a discount of more than 20 %. Errors: as orvan/core/ProductMgr.h says. Thread: the one that made it.
#pragma once

#include <orvan/base/RuntimeError.h>
#include <orvan/core/ProductMgr.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

//! [record]
struct OrderLine final : orvan::ProductRecord {
    using Currency = orvan::Currency;

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
    bool IsValidDiscPrcnt(Currency amount) const override
    {
        return amount >= Currency() && amount <= Currency::fromInteger(20);
    }
};
//! [record]

//! [manager]
class OrderLines final : public orvan::ProductMgr {
public:
    std::int32_t GetProductCount() override { return static_cast<std::int32_t>(lines_.size()); }
    orvan::Currency GetTotalValue() override
    {
        orvan::Currency total; // an order has few lines; a manager of long lists keeps the total up to date
        for (const auto& line : lines_) {
            total = total + line->extPrice; // raises 6 beyond the range
        }
        return total;
    }
    void SeekIndex(std::int32_t& lIndex, std::int32_t lOffset, bool& found) override
    {
        const std::int64_t sought = std::int64_t{lIndex} + lOffset;
        found = sought >= 1 && sought <= GetProductCount();
        lIndex = found ? static_cast<std::int32_t>(sought) : lIndex;
    }
    std::shared_ptr<orvan::ProductRecord> AddNewProduct() override
    {
        return lines_.emplace_back(std::make_shared<OrderLine>());
    }
    std::shared_ptr<orvan::ProductRecord> GetProduct(std::int32_t lIndex) override { return *at(lIndex); }
    void DeleteProduct(std::int32_t lIndex) override { lines_.erase(at(lIndex)); }
    void MoveProduct(std::int32_t from, std::int32_t to) override { std::iter_swap(at(from), at(to)); }
    std::int32_t GetMaxDataSize() override { return 100'000; }
    //! [manager]

    //! [string]
    void SetProductsString(std::string_view sProducts, const std::string&, const std::string&, bool) override
    {
        std::vector<std::shared_ptr<OrderLine>> lines;
        while (!sProducts.empty()) {
            const auto line = lines.emplace_back(std::make_shared<OrderLine>());
            std::string_view rest = cut(sProducts, '\n');
            line->partNum = textOf(cut(rest, '\t'));
            line->name = textOf(cut(rest, '\t'));
            line->qty = orvan::Currency::fromText(cut(rest, '\t'));
            line->unitPrice = orvan::Currency::fromText(cut(rest, '\t'));
            line->discPrcnt = orvan::Currency::fromText(cut(rest, '\t'));
            line->extPrice = orvan::Currency::fromText(cut(rest, '\t'));
            line->key = textOf(cut(rest, '\t'));
            line->note = textOf(cut(rest, '\t'));
            if (!rest.empty()) { // what is not understood must not be lost with the next save
                throw orvan::RuntimeError(orvan::ErrorNumber::invalidFileFormat, "OrderLines", "Too many fields");
            }
        }
        lines_.swap(lines); // only now: a string that cannot be read leaves the list as it was
    }
    std::string GetProductsString(const std::string&, const std::string&) override
    {
        std::string table;
        for (const auto& line : lines_) {
            for (const std::string& field :
                 {fieldOf(line->partNum), fieldOf(line->name), line->qty.toText(), line->unitPrice.toText(),
                  line->discPrcnt.toText(), line->extPrice.toText(), fieldOf(line->key), fieldOf(line->note)}) {
                table += field + "\t";
            }
            table.back() = '\n';
        }
        if (table.size() > static_cast<std::size_t>(GetMaxDataSize())) {
            throw orvan::RuntimeError(orvan::ErrorNumber::outOfStringSpace, "OrderLines", "The order is too large");
        }
        return table;
    }
    //! [string]

private:
    std::vector<std::shared_ptr<OrderLine>>::iterator at(std::int32_t lIndex)
    {
        static_cast<void>(lines_.at(static_cast<std::size_t>(lIndex) - 1)); // what it throws counts as error 9
        return lines_.begin() + (lIndex - 1);
    }
    /// Takes the text up to the mark, and the mark, away from `rest`.
    static std::string_view cut(std::string_view& rest, char mark)
    {
        const std::size_t end = rest.find(mark);
        const std::string_view text = rest.substr(0, end);
        rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
        return text;
    }
    static std::string fieldOf(std::string_view text)
    {
        std::string field;
        for (const char character : text) {
            switch (character) {
            case '\n': field += "\\n"; break;
            case '\t': field += "\\t"; break;
            case '\\': field += "\\\\"; break;
            default: field += character;
            }
        }
        return field;
    }
    static std::string textOf(std::string_view field)
    {
        std::string text;
        for (std::size_t place = 0; place < field.size(); ++place) {
            if (field[place] != '\\' || place + 1 == field.size()) {
                text += field[place];
                continue;
            }
            const char escaped = field[++place];
            text += escaped == 'n' ? '\n' : escaped == 't' ? '\t' : escaped;
        }
        return text;
    }

    std::vector<std::shared_ptr<OrderLine>> lines_;
};
