// ProductRecordConformance: the requirements on the records of a product manager (orvan/core/ProductMgr.h), as tests.
// See Conformance.h.
//
// A host gives the factory of its manager, because records come from managers.
#pragma once

#include "orvan/testing/ProductMgrConformance.h"

#include <cstdint>
#include <limits>
#include <set>
#include <string>

namespace orvan::conformance {

namespace records {

using products::add;
using products::made;
using products::Names;
using products::namesIn;
using products::required;
using products::withNames;

/// Texts that a record has to give back as they are.
inline const std::string kTexts[] = {"Bolt", "~a:b\\", "two\nlines\tand  blanks ", "Straße €", ""};
/// Ten-thousandths that a record has to give back as they are.
inline constexpr std::int64_t kAmounts[] = {10'000, 1, -5, 199'999, 0};

template <class Read, class Write>
void keepsTexts(const ProductMgrFactory& make, Read read, Write write)
{
    const auto manager = made(make);
    const auto record = required(manager->AddNewProduct());
    for (const std::string& text : kTexts) {
        ((*record).*write)(text);
        EXPECT_EQ(((*record).*read)(), text);
    }
}

template <class Read, class Write>
void keepsAmounts(const ProductMgrFactory& make, Read read, Write write)
{
    const auto manager = made(make);
    const auto record = required(manager->AddNewProduct());
    for (const std::int64_t amount : kAmounts) {
        ((*record).*write)(Currency::fromScaled(amount));
        EXPECT_EQ(((*record).*read)().scaled(), amount);
    }
}

inline constexpr Row<ProductMgrFactory> kRows[] = {
    {"NameIsKept",
     [](const ProductMgrFactory& make) { keepsTexts(make, &ProductRecord::Name, &ProductRecord::SetName); }},
    {"KeyIsKept", [](const ProductMgrFactory& make) { keepsTexts(make, &ProductRecord::Key, &ProductRecord::SetKey); }},
    {"PartNumIsKept",
     [](const ProductMgrFactory& make) { keepsTexts(make, &ProductRecord::PartNum, &ProductRecord::SetPartNum); }},
    {"NoteIsKept",
     [](const ProductMgrFactory& make) { keepsTexts(make, &ProductRecord::Note, &ProductRecord::SetNote); }},
    {"UnitPriceIsKept",
     [](const ProductMgrFactory& make) {
         keepsAmounts(make, &ProductRecord::UnitPrice, &ProductRecord::SetUnitPrice);
     }},
    {"QtyIsKept",
     [](const ProductMgrFactory& make) { keepsAmounts(make, &ProductRecord::Qty, &ProductRecord::SetQty); }},
    {"DiscPrcntIsKept",
     [](const ProductMgrFactory& make) {
         keepsAmounts(make, &ProductRecord::DiscPrcnt, &ProductRecord::SetDiscPrcnt);
     }},
    {"ExtPriceIsKept",
     [](const ProductMgrFactory& make) { keepsAmounts(make, &ProductRecord::ExtPrice, &ProductRecord::SetExtPrice); }},
    {"LongNoteIsKept",
     [](const ProductMgrFactory& make) {
         const auto manager = made(make);
         const auto record = required(manager->AddNewProduct());
         std::string note;
         for (int character = 0; character < 4095; ++character) { // as many as the editor's box takes
             note += "\xF0\x9F\x94\xA9";
         }
         record->SetNote(note);
         EXPECT_EQ(record->Note(), note);
     }},
    {"LargestAmountsAreKept",
     [](const ProductMgrFactory& make) {
         const auto manager = made(make);
         const auto record = required(manager->AddNewProduct());
         for (const std::int64_t amount :
              {std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()}) {
             record->SetExtPrice(Currency::fromScaled(amount));
             EXPECT_EQ(record->ExtPrice().scaled(), amount);
         }
     }},
    {"TextIsCopied",
     [](const ProductMgrFactory& make) {
         const auto manager = made(make);
         const auto record = required(manager->AddNewProduct());
         std::string text = "A long enough text to stand in memory of its own";
         const std::string before = text;
         record->SetPartNum(text);
         text.assign(text.size(), 'x');
         EXPECT_EQ(record->PartNum(), before);
     }},
    {"PropertiesAreIndependent",
     [](const ProductMgrFactory& make) {
         const auto manager = made(make);
         const auto record = required(manager->AddNewProduct());
         record->SetExtPrice(Currency::fromInteger(7));
         record->SetUnitPrice(Currency::fromInteger(2));
         record->SetQty(Currency::fromInteger(3));
         record->SetDiscPrcnt(Currency::fromInteger(50));
         EXPECT_EQ(record->ExtPrice().toText(), "7") << "the library computes the extended price, and sets it";
     }},
    {"RecordsAreIndependent",
     [](const ProductMgrFactory& make) {
         const auto manager = made(make);
         const auto one = required(manager->AddNewProduct()), other = required(manager->AddNewProduct());
         one->SetKey("one");
         other->SetKey("other");
         EXPECT_EQ(one->Key(), "one");
     }},
    {"ReadInPlaceSaysWhatPropertiesSay",
     [](const ProductMgrFactory& make) {
         const auto manager = made(make);
         const auto record = required(manager->AddNewProduct());
         const auto* const inPlace = dynamic_cast<const InPlaceRecord*>(record.get());
         if (!inPlace) {
             return; // a record need not be one
         }
         std::set<std::uint64_t> stamps = {0, inPlace->stamp()};
         const auto expectNew = [&](const char* property, auto field, const auto& read) {
             EXPECT_EQ(inPlace->fields().*field, read) << property;
             EXPECT_TRUE(stamps.insert(inPlace->stamp()).second) << "the stamp, once " << property << " was set";
             EXPECT_FALSE(stamps.insert(inPlace->stamp()).second) << "the stamp, without a change";
         };
         record->SetName("A name that is long enough to stand in memory of its own");
         expectNew("Name", &ProductFields::name, record->Name());
         record->SetKey("key");
         expectNew("Key", &ProductFields::key, record->Key());
         record->SetPartNum("part");
         expectNew("PartNum", &ProductFields::partNum, record->PartNum());
         record->SetUnitPrice(Currency::fromInteger(2));
         expectNew("UnitPrice", &ProductFields::unitPrice, record->UnitPrice());
         record->SetQty(Currency::fromInteger(3));
         expectNew("Qty", &ProductFields::qty, record->Qty());
         record->SetDiscPrcnt(Currency::fromInteger(4));
         expectNew("DiscPrcnt", &ProductFields::discPrcnt, record->DiscPrcnt());
         record->SetExtPrice(Currency::fromInteger(5));
         expectNew("ExtPrice", &ProductFields::extPrice, record->ExtPrice());
         record->SetNote("note");
         expectNew("Note", &ProductFields::note, record->Note());
         const auto other = required(manager->AddNewProduct());
         EXPECT_FALSE(stamps.contains(dynamic_cast<const InPlaceRecord&>(*other).stamp())) << "of another record";
     }},
    {"ValidityIsAskedWithoutEffect",
     [](const ProductMgrFactory& make) {
         const auto manager = made(make);
         const auto record = required(manager->AddNewProduct());
         record->SetUnitPrice(Currency::fromInteger(2));
         record->SetDiscPrcnt(Currency::fromInteger(5));
         const Currency asked = Currency::fromInteger(9);
         static_cast<void>(record->IsValidUnitPrice(asked));
         static_cast<void>(record->IsValidQty(asked));
         static_cast<void>(record->IsValidDiscPrcnt(asked));
         EXPECT_EQ(record->UnitPrice().toText() + " " + record->Qty().toText() + " " + record->DiscPrcnt().toText(),
                   "2 1 5");
     }},
    {"ValidityOfAnyAmountCanBeAsked",
     [](const ProductMgrFactory& make) {
         const auto manager = made(make);
         const auto record = required(manager->AddNewProduct());
         for (const std::int64_t amount :
              {std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()}) {
             const Currency asked = Currency::fromScaled(amount);
             EXPECT_EQ(errorOf([&] {
                           static_cast<void>(record->IsValidUnitPrice(asked));
                           static_cast<void>(record->IsValidQty(asked));
                           static_cast<void>(record->IsValidDiscPrcnt(asked));
                       }),
                       0);
         }
     }},
    {"WriteToARecordReachesTheList",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A"});
         required(manager->GetProduct(1))->SetNote("written");
         EXPECT_EQ(required(manager->GetProduct(1))->Note(), "written");
     }},
    {"DeletedRecordCanStillBeUsed",
     [](const ProductMgrFactory& make) {
         const auto manager = made(make);
         const auto record = add(*manager, "A");
         manager->DeleteProduct(1);
         record->SetName("written");
         EXPECT_EQ(record->Name(), "written");
     }},
    {"RecordOutlivesItsManager",
     [](const ProductMgrFactory& make) {
         auto manager = made(make);
         const auto record = add(*manager, "A");
         manager.reset();
         record->SetName(record->Name() + "B");
         EXPECT_EQ(record->Name(), "AB");
     }},
    {"RecordStaysWithItsProduct",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A", "B", "C"});
         const auto record = required(manager->GetProduct(3));
         manager->DeleteProduct(2);
         record->SetName("written");
         EXPECT_EQ(namesIn(*manager), (Names{"A", "written"}));
     }},
};

} // namespace records

/// Makes the tests "<name>ProductRecord.<row>".
inline std::size_t addProductRecordTests(const std::string& name, const ProductMgrFactory& make)
{
    return addTests<ProductMgrFactory>(name + "ProductRecord", records::kRows, make);
}

} // namespace orvan::conformance
