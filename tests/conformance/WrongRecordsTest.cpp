#include "tests/conformance/WrongProducts.h"

#include <optional>

namespace orvan::test {
namespace {

using testkit::PatchedRecord;
using testkit::RecordPatches;

/// A manager all of whose records have the patches.
P records(const RecordPatches& patches)
{
    const auto wrapped = [patches](const Record& record) {
        return std::make_shared<PatchedRecord>([record] { return record; }, patches);
    };
    return {.add = [wrapped](ProductMgr& own) { return wrapped(own.AddNewProduct()); },
            .get = [wrapped](ProductMgr& own, std::int32_t at) { return wrapped(own.GetProduct(at)); }};
}

P trimming(std::string_view property)
{
    return records({.storedText = [property](std::string_view name, std::string_view text) {
        return std::string(text.substr(0, name == property && text.ends_with(' ') ? text.size() - 1 : text.size()));
    }});
}

P roundingToCents(std::string_view property)
{
    return records({.storedAmount = [property](std::string_view name, Currency amount) {
        const bool rounds = name == property && amount.magnitude() < 1'000'000;
        return rounds ? Currency::fromScaled(amount.scaled() / 100 * 100) : amount;
    }});
}

/// A record that says of each state that it is the same one.
class OneStamp final : public InPlaceRecord {
public:
    explicit OneStamp(const Record& own) : own_(std::dynamic_pointer_cast<InPlaceRecord>(own)) {}

    std::string Name() const override { return own_->Name(); }
    void SetName(std::string_view name) override { own_->SetName(name); }
    std::string Key() const override { return own_->Key(); }
    void SetKey(std::string_view key) override { own_->SetKey(key); }
    std::string PartNum() const override { return own_->PartNum(); }
    void SetPartNum(std::string_view partNum) override { own_->SetPartNum(partNum); }
    Currency UnitPrice() const override { return own_->UnitPrice(); }
    void SetUnitPrice(Currency value) override { own_->SetUnitPrice(value); }
    Currency Qty() const override { return own_->Qty(); }
    void SetQty(Currency value) override { own_->SetQty(value); }
    Currency DiscPrcnt() const override { return own_->DiscPrcnt(); }
    void SetDiscPrcnt(Currency value) override { own_->SetDiscPrcnt(value); }
    Currency ExtPrice() const override { return own_->ExtPrice(); }
    void SetExtPrice(Currency value) override { own_->SetExtPrice(value); }
    std::string Note() const override { return own_->Note(); }
    void SetNote(std::string_view note) override { own_->SetNote(note); }
    bool IsValidUnitPrice(Currency value) const override { return own_->IsValidUnitPrice(value); }
    bool IsValidQty(Currency value) const override { return own_->IsValidQty(value); }
    bool IsValidDiscPrcnt(Currency value) const override { return own_->IsValidDiscPrcnt(value); }
    ProductFields fields() const noexcept override { return own_->fields(); }
    std::uint64_t stamp() const noexcept override { return 1; }

private:
    std::shared_ptr<InPlaceRecord> own_;
};

const Wrong<ProductMgrFactory> kWrongRecords[] = {
    {"NameIsKept", Patched{[] { return trimming("Name"); }}},
    {"KeyIsKept", Patched{[] { return trimming("Key"); }}},
    {"PartNumIsKept", Patched{[] { return trimming("PartNum"); }}},
    {"NoteIsKept", Patched{[] { return trimming("Note"); }}},
    {"UnitPriceIsKept", Patched{[] { return roundingToCents("UnitPrice"); }}},
    {"QtyIsKept", Patched{[] { return roundingToCents("Qty"); }}},
    {"DiscPrcntIsKept", Patched{[] { return roundingToCents("DiscPrcnt"); }}},
    {"ExtPriceIsKept", Patched{[] { return roundingToCents("ExtPrice"); }}},
    {"LongNoteIsKept", Patched{[] {
         return records(
             {.storedText = [](std::string_view, std::string_view text) { return std::string(text.substr(0, 4095)); }});
     }}},
    {"LargestAmountsAreKept", Patched{[] {
         return records({.storedAmount = [](std::string_view, Currency amount) {
             const bool large = amount.magnitude() > 1'000'000'000'000;
             return large ? Currency::fromScaled(amount.scaled() / 1000 * 1000) : amount;
         }});
     }}},
    {"TextIsCopied", Patched{[] {
         const auto view = std::make_shared<std::optional<std::string_view>>();
         return records({.storedText =
                             [view](std::string_view property, std::string_view text) {
                                 *view = property == "PartNum" ? std::optional(text) : *view;
                                 return std::string(text);
                             },
                         .readText =
                             [view](std::string_view property, const std::string& text) {
                                 return property == "PartNum" && *view ? std::string(**view) : text;
                             }});
     }}},
    {"PropertiesAreIndependent", Patched{[] {
         return records({.called = [](ProductRecord& own, std::string_view what, Currency amount) {
             if (what == "Qty") {
                 own.SetExtPrice(own.UnitPrice() * amount);
             }
         }});
     }}},
    {"RecordsAreIndependent", Patched{[] {
         const auto key = std::make_shared<std::string>();
         return records({.storedText =
                             [key](std::string_view property, std::string_view text) {
                                 *key = property == "Key" ? text : std::string_view(*key);
                                 return std::string(text);
                             },
                         .readText = [key](std::string_view property,
                                           const std::string& text) { return property == "Key" ? *key : text; }});
     }}},
    {"ReadInPlaceSaysWhatPropertiesSay", Patched{[] {
         return P{.add = [](ProductMgr& own) -> Record { return std::make_shared<OneStamp>(own.AddNewProduct()); }};
     }}},
    {"ValidityIsAskedWithoutEffect", Patched{[] {
         return records({.called = [](ProductRecord& own, std::string_view what, Currency amount) {
             if (what == "IsValidQty") {
                 own.SetQty(amount);
             }
         }});
     }}},
    {"ValidityOfAnyAmountCanBeAsked", Patched{[] {
         return records({.called = [](ProductRecord&, std::string_view what, Currency amount) {
             if (what == "IsValidUnitPrice") {
                 static_cast<void>(-amount); // raises 6 for the least amount
             }
         }});
     }}},
    {"WriteToARecordReachesTheList", Patched{[] {
         return P{.get = [](ProductMgr& own, std::int32_t at) -> Record {
             const auto dropsNotes = [](std::string_view property, std::string_view text) {
                 return std::string(property == "Note" ? "" : text);
             };
             return std::make_shared<PatchedRecord>([record = own.GetProduct(at)] { return record; },
                                                    RecordPatches{.storedText = dropsNotes});
         }};
     }}},
    {"DeletedRecordCanStillBeUsed", Patched{[] {
         const auto deleted = std::make_shared<bool>(false);
         return P{.add = [deleted](ProductMgr& own) -> Record {
                      return std::make_shared<PatchedRecord>(
                          [deleted, record = own.AddNewProduct()] { return *deleted ? raise(91), record : record; });
                  },
                  .remove = [deleted](ProductMgr& own, std::int32_t at) { *deleted = true, own.DeleteProduct(at); }};
     }}},
    {"RecordOutlivesItsManager", Patched{[] {
         const auto alive = std::make_shared<int>(); // as long as the manager has its patches
         return P{.count = [alive](ProductMgr& own) { return own.GetProductCount(); },
                  .add = [watch = std::weak_ptr<int>(alive)](ProductMgr& own) -> Record {
                      return std::make_shared<PatchedRecord>([watch, record = own.AddNewProduct()] {
                          return watch.expired() ? raise(91), record : record;
                      });
                  }};
     }}},
    {"RecordStaysWithItsProduct", Patched{[] {
         return P{.get = [](ProductMgr& own, std::int32_t at) -> Record {
             static_cast<void>(own.GetProduct(at));
             return std::make_shared<PatchedRecord>([&own, at] { return own.GetProduct(at); });
         }};
     }}},
};

TEST(ProductRecordConformance, EachRowCatchesItsOwnFault)
{
    expectEachRowToCatchItsOwn(conformance::records::kRows, productMgrs(), kWrongRecords);
}

} // namespace
} // namespace orvan::test
