#include "orvan/outside/WatchedComponents.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/outside/Watched.h"

#include <utility>

namespace orvan::outside {

namespace {

class WatchedRecord final : public ProductRecord, Watched<std::shared_ptr<ProductRecord>> {
public:
    WatchedRecord(std::shared_ptr<ProductRecord> inner, CallWatch& watch, std::int64_t number)
        : Watched(std::move(inner), watch), number_(number)
    {
    }

    std::int64_t number() const { return number_; }

    std::string Name() const override { return text("product.Name", &ProductRecord::Name); }
    void SetName(std::string_view name) override { set("product.SetName", &ProductRecord::SetName, name); }
    std::string Key() const override { return text("product.Key", &ProductRecord::Key); }
    void SetKey(std::string_view key) override { set("product.SetKey", &ProductRecord::SetKey, key); }
    std::string PartNum() const override { return text("product.PartNum", &ProductRecord::PartNum); }
    void SetPartNum(std::string_view number) override { set("product.SetPartNum", &ProductRecord::SetPartNum, number); }
    Currency UnitPrice() const override { return amount("product.UnitPrice", &ProductRecord::UnitPrice); }
    void SetUnitPrice(Currency value) override { set("product.SetUnitPrice", &ProductRecord::SetUnitPrice, value); }
    Currency Qty() const override { return amount("product.Qty", &ProductRecord::Qty); }
    void SetQty(Currency value) override { set("product.SetQty", &ProductRecord::SetQty, value); }
    Currency DiscPrcnt() const override { return amount("product.DiscPrcnt", &ProductRecord::DiscPrcnt); }
    void SetDiscPrcnt(Currency value) override { set("product.SetDiscPrcnt", &ProductRecord::SetDiscPrcnt, value); }
    Currency ExtPrice() const override { return amount("product.ExtPrice", &ProductRecord::ExtPrice); }
    void SetExtPrice(Currency value) override { set("product.SetExtPrice", &ProductRecord::SetExtPrice, value); }
    std::string Note() const override { return text("product.Note", &ProductRecord::Note); }
    void SetNote(std::string_view note) override { set("product.SetNote", &ProductRecord::SetNote, note); }
    bool IsValidUnitPrice(Currency value) const override
    {
        return isValid("product.IsValidUnitPrice", &ProductRecord::IsValidUnitPrice, value);
    }
    bool IsValidQty(Currency value) const override
    {
        return isValid("product.IsValidQty", &ProductRecord::IsValidQty, value);
    }
    bool IsValidDiscPrcnt(Currency value) const override
    {
        return isValid("product.IsValidDiscPrcnt", &ProductRecord::IsValidDiscPrcnt, value);
    }

private:
    std::string text(std::string_view name, std::string (ProductRecord::*get)() const) const
    {
        return ask<std::string>(name, {number_}, [&] { return (inner().*get)(); });
    }
    Currency amount(std::string_view name, Currency (ProductRecord::*get)() const) const
    {
        return ask<Currency>(name, {number_}, [&] { return (inner().*get)(); });
    }
    template <class Value>
    void set(std::string_view name, void (ProductRecord::*setter)(Value), Value value) const
    {
        tell(name, {number_, value}, [&] { (inner().*setter)(value); });
    }
    bool isValid(std::string_view name, bool (ProductRecord::*rule)(Currency) const, Currency value) const
    {
        return ask<bool>(name, {number_, value}, [&] { return (inner().*rule)(value); });
    }

    std::int64_t number_;
};

class WatchedProductMgr final : public ProductMgr, Watched<std::shared_ptr<ProductMgr>> {
public:
    using Watched::Watched;

    std::int32_t GetProductCount() override
    {
        return ask<std::int32_t>("manager.GetProductCount", {}, [&] { return inner().GetProductCount(); });
    }
    Currency GetTotalValue() override
    {
        return ask<Currency>("manager.GetTotalValue", {}, [&] { return inner().GetTotalValue(); });
    }
    void SeekIndex(std::int32_t& lIndex, std::int32_t lOffset, bool& found) override
    {
        const auto [index, exists] = call(
            "manager.SeekIndex", {lIndex, lOffset, found},
            [&] {
                inner().SeekIndex(lIndex, lOffset, found);
                return std::pair(lIndex, found);
            },
            [](const auto& result) { return callValues(result.first, result.second); },
            [](const CallValues& answer) {
                return std::pair(partOf<std::int32_t>(answer, 0), partOf<bool>(answer, 1));
            });
        lIndex = index;
        found = exists;
    }
    std::shared_ptr<ProductRecord> AddNewProduct() override
    {
        return record("manager.AddNewProduct", {}, [&] { return inner().AddNewProduct(); });
    }
    std::shared_ptr<ProductRecord> GetProduct(std::int32_t lIndex) override
    {
        return record("manager.GetProduct", {lIndex}, [&] { return inner().GetProduct(lIndex); });
    }
    void DeleteProduct(std::int32_t lIndex) override
    {
        tell("manager.DeleteProduct", {lIndex}, [&] { inner().DeleteProduct(lIndex); });
    }
    void MoveProduct(std::int32_t from, std::int32_t to) override
    {
        tell("manager.MoveProduct", {from, to}, [&] { inner().MoveProduct(from, to); });
    }
    void SetProductsString(std::string_view sProducts, const std::string& recordSeparator,
                           const std::string& fieldSeparator, bool flag) override
    {
        tell("manager.SetProductsString", {sProducts, recordSeparator, fieldSeparator, flag},
             [&] { inner().SetProductsString(sProducts, recordSeparator, fieldSeparator, flag); });
    }
    std::string GetProductsString(const std::string& recordSeparator, const std::string& fieldSeparator) override
    {
        return ask<std::string>("manager.GetProductsString", {recordSeparator, fieldSeparator},
                                [&] { return inner().GetProductsString(recordSeparator, fieldSeparator); });
    }
    std::int32_t GetMaxDataSize() override
    {
        return ask<std::int32_t>("manager.GetMaxDataSize", {}, [&] { return inner().GetMaxDataSize(); });
    }
    void CheckDataSize(const std::string& recordSeparator, const std::string& fieldSeparator) override
    {
        tell("manager.CheckDataSize", {recordSeparator, fieldSeparator},
             [&] { inner().CheckDataSize(recordSeparator, fieldSeparator); });
    }

private:
    /// A call whose answer is a record, or none: its number, or nothing.
    template <class Work>
    std::shared_ptr<ProductRecord> record(std::string_view name, CallArguments arguments, const Work& work) const
    {
        return call(
            name, arguments,
            [&]() -> std::shared_ptr<WatchedRecord> {
                auto given = work();
                return given ? std::make_shared<WatchedRecord>(std::move(given), watch(), watch().nextObject())
                             : nullptr;
            },
            [](const auto& result) { return result ? callValues(result->number()) : CallValues(); },
            [this](const CallValues& answer) {
                return answer.empty() ? nullptr
                                      : std::make_shared<WatchedRecord>(nullptr, watch(), partOf<std::int64_t>(answer));
            });
    }
};

class WatchedLookUp final : public ProductLkpMgr, Watched<std::shared_ptr<ProductLkpMgr>> {
public:
    using Watched::Watched;

    LookUpList GetPartNumList(std::string_view sText, bool all) override
    {
        return list("catalogue.GetPartNumList", {sText, all}, [&] { return inner().GetPartNumList(sText, all); });
    }
    LookUpList GetProductNameList(std::string_view sText, bool all) override
    {
        return list("catalogue.GetProductNameList", {sText, all},
                    [&] { return inner().GetProductNameList(sText, all); });
    }
    void SeekItem(std::int32_t itemId) override
    {
        tell("catalogue.SeekItem", {itemId}, [&] { inner().SeekItem(itemId); });
    }
    bool IsEOF() override
    {
        return ask<bool>("catalogue.IsEOF", {}, [&] { return inner().IsEOF(); });
    }
    LookUpValue GetFieldValue(std::int32_t column) override
    {
        return call(
            "catalogue.GetFieldValue", {column}, [&] { return inner().GetFieldValue(column); },
            [](const LookUpValue& value) { return CallValues{value}; },
            [](const CallValues& answer) { return answer.empty() ? LookUpValue() : answer.front(); });
    }
    std::optional<LookUpSummary> summary(std::int64_t itemId) override
    {
        return call(
            "catalogue.summary", {itemId}, [&] { return inner().summary(itemId); },
            [](const std::optional<LookUpSummary>& found) {
                return found ? CallValues{found->partNum, found->name, found->unitPrice} : CallValues();
            },
            [](const CallValues& answer) {
                return answer.size() < 3 ? std::nullopt : std::optional(LookUpSummary{answer[0], answer[1], answer[2]});
            });
    }
    std::size_t mostMatches() const override
    {
        return ask<std::size_t>("catalogue.mostMatches", {}, [&] { return inner().mostMatches(); });
    }

private:
    /// The answer of a call that has a list: a word, which tells an empty list from none, then id and text of each row.
    template <class Work>
    LookUpList list(std::string_view name, CallArguments arguments, const Work& work) const
    {
        return call(name, arguments, work, partsOf, listOf);
    }
    static CallValues partsOf(const LookUpList& list)
    {
        CallValues parts;
        if (list) {
            parts.reserve(1 + 2 * list->size());
            parts.emplace_back(std::string("list"));
            for (const LookUpRow& row : *list) {
                parts.emplace_back(row.itemId);
                parts.emplace_back(row.text);
            }
        }
        return parts;
    }
    static LookUpList listOf(const CallValues& parts)
    {
        LookUpList list;
        if (!parts.empty()) {
            list.emplace();
            for (std::size_t at = 1; at + 1 < parts.size(); at += 2) {
                list->push_back({partOf<std::int64_t>(parts, at), partOf<std::string>(parts, at + 1)});
            }
        }
        return list;
    }
};

class WatchedTrace final : public Trace, Watched<std::shared_ptr<Trace>> {
public:
    using Watched::Watched;

    std::int32_t LastErrorNumber() override
    {
        return ask<std::int32_t>("trace.LastErrorNumber", {}, [&] { return inner().LastErrorNumber(); });
    }
    void TraceError(std::string_view sText) override
    {
        const RuntimeError error = currentError();
        tell("trace.TraceError", {error.number(), error.text(), sText}, [&] { inner().TraceError(sText); });
    }
    void TraceEnter(std::string_view label) override
    {
        tell("trace.TraceEnter", {label}, [&] { inner().TraceEnter(label); });
    }
    void TraceExit(std::string_view label) override
    {
        tell("trace.TraceExit", {label}, [&] { inner().TraceExit(label); });
    }
    std::int32_t AppErrorNumber() override
    {
        return ask<std::int32_t>("trace.AppErrorNumber", {}, [&] { return inner().AppErrorNumber(); });
    }
    void ShowLastError(std::int32_t hWnd) override
    {
        tell("trace.ShowLastError", {}, [&] { inner().ShowLastError(hWnd); });
    }
};

/// The wrapper if the object has the interface; otherwise null.
template <class Interface>
std::shared_ptr<ui::Component> watchedIf(const std::shared_ptr<ui::Component>& object, CallWatch& watch)
{
    auto inner = std::dynamic_pointer_cast<Interface>(object);
    return inner ? watched(std::move(inner), watch) : nullptr;
}

} // namespace

std::shared_ptr<ProductMgr> watched(std::shared_ptr<ProductMgr> manager, CallWatch& watch)
{
    return std::make_shared<WatchedProductMgr>(std::move(manager), watch);
}

std::shared_ptr<ProductLkpMgr> watched(std::shared_ptr<ProductLkpMgr> catalogue, CallWatch& watch)
{
    return std::make_shared<WatchedLookUp>(std::move(catalogue), watch);
}

std::shared_ptr<Trace> watched(std::shared_ptr<Trace> trace, CallWatch& watch)
{
    return std::make_shared<WatchedTrace>(std::move(trace), watch);
}

std::shared_ptr<ui::Component> WatchedFactory::create(std::string_view className)
{
    std::shared_ptr<ui::Component> object;
    watchedCall(watch_, "components.create", {className}, [&] { object = inner_.create(className); });
    if (unwatchedClass_ == "*" || className == unwatchedClass_) {
        return object;
    }
    for (const auto wrap : {watchedIf<ProductMgr>, watchedIf<ProductLkpMgr>, watchedIf<Trace>}) {
        if (std::shared_ptr<ui::Component> wrapper = wrap(object, watch_)) {
            return wrapper;
        }
    }
    return object;
}

} // namespace orvan::outside
