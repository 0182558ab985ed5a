// ProductMgrConformance: the requirements on a product manager (orvan/core/ProductMgr.h), as tests. See Conformance.h.
//
// The records that a manager hands out have requirements of their own, in ProductRecordConformance.h. Rows about a
// list that is too large fill it beyond GetMaxDataSize(); where that is more than kLargestTried, they are skipped, so a
// host gives them a manager with a lower limit.
#pragma once

#include "orvan/core/ProductMgr.h"
#include "orvan/testing/Conformance.h"

#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvan::conformance {

/// What the host registers under kProductMgrClassName.
using ProductMgrFactory = std::function<std::shared_ptr<ui::Component>()>;

/// The highest limit, in bytes, that the rows exceed to see what happens.
inline constexpr std::int32_t kLargestTried = 64 * 1024 * 1024;

namespace products {

inline std::shared_ptr<ProductMgr> made(const ProductMgrFactory& make)
{
    return madeAs<ProductMgr>(make, "The factory made no ProductMgr");
}

inline std::shared_ptr<ProductRecord> required(std::shared_ptr<ProductRecord> record)
{
    if (!record) {
        throw RuntimeError(ErrorNumber::objectNotSet, {}, "The manager handed out null");
    }
    return record;
}

inline std::shared_ptr<ProductRecord> add(ProductMgr& manager, std::string_view name)
{
    auto record = required(manager.AddNewProduct());
    record->SetName(name);
    return record;
}

inline std::shared_ptr<ProductMgr> withNames(const ProductMgrFactory& make, const std::vector<std::string>& names)
{
    auto manager = made(make);
    for (const std::string& name : names) {
        add(*manager, name);
    }
    return manager;
}

inline std::vector<std::string> namesIn(ProductMgr& manager)
{
    std::vector<std::string> names;
    for (std::int32_t at = 1; at <= manager.GetProductCount(); ++at) {
        names.push_back(required(manager.GetProduct(at))->Name());
    }
    return names;
}

inline std::string saved(ProductMgr& manager)
{
    return manager.GetProductsString(kRecordSeparator, kFieldSeparator);
}

inline void load(ProductMgr& manager, const std::string& sProducts, bool flag = false)
{
    manager.SetProductsString(sProducts, kRecordSeparator, kFieldSeparator, flag);
}

inline void check(ProductMgr& manager)
{
    manager.CheckDataSize(kRecordSeparator, kFieldSeparator);
}

/// Where SeekIndex leads from `index`, if it finds a product.
inline std::optional<std::int32_t> sought(ProductMgr& manager, std::int32_t index, std::int32_t offset)
{
    bool found = false;
    manager.SeekIndex(index, offset, found);
    return found ? std::optional(index) : std::nullopt;
}

/// Adds a product whose note alone is larger than the limit; null where the limit is too high to be tried.
inline std::shared_ptr<ProductRecord> addTooLarge(ProductMgr& manager)
{
    const std::int32_t limit = manager.GetMaxDataSize();
    if (limit < 0 || limit > kLargestTried) {
        return nullptr;
    }
    auto record = add(manager, "large");
    record->SetNote(std::string(static_cast<std::size_t>(limit) + 1, 'n'));
    return record;
}

using Names = std::vector<std::string>;

inline constexpr const char* kNotTried = "GetMaxDataSize() is higher than kLargestTried";

// --- The rows ----------------------------------------------------------------------------------------

inline constexpr Row<ProductMgrFactory> kRows[] = {
    {"EachCallMakesAManagerOfItsOwn",
     [](const ProductMgrFactory& make) {
         const auto one = made(make), other = made(make);
         EXPECT_NE(one, other);
         add(*one, "A");
         EXPECT_EQ(other->GetProductCount(), 0) << "a product of one manager is in another one";
     }},
    {"NewManagerIsEmpty",
     [](const ProductMgrFactory& make) {
         const auto manager = made(make);
         EXPECT_EQ(manager->GetProductCount(), 0);
         EXPECT_EQ(manager->GetTotalValue(), Currency());
     }},
    {"NewProductComesLast",
     [](const ProductMgrFactory& make) {
         EXPECT_EQ(namesIn(*withNames(make, {"A", "B", "C", "D", "E"})), (Names{"A", "B", "C", "D", "E"}));
     }},
    {"NewProductHasNoTexts",
     [](const ProductMgrFactory& make) {
         const auto record = required(made(make)->AddNewProduct());
         EXPECT_EQ(record->Name() + record->Key() + record->PartNum() + record->Note(), "");
     }},
    {"NewProductCostsNothing",
     [](const ProductMgrFactory& make) {
         const auto record = required(made(make)->AddNewProduct());
         EXPECT_EQ(record->UnitPrice(), Currency());
         EXPECT_EQ(record->DiscPrcnt(), Currency());
         EXPECT_EQ(record->ExtPrice(), Currency());
     }},
    {"NewProductHasQuantityOne",
     [](const ProductMgrFactory& make) {
         EXPECT_EQ(required(made(make)->AddNewProduct())->Qty(), Currency::fromInteger(1));
     }},
    {"TotalIsTheSumOfTheExtendedPrices",
     [](const ProductMgrFactory& make) {
         const auto manager = made(make);
         for (const char* price : {"1.5", "2.25", "-0.2501"}) {
             add(*manager, price)->SetExtPrice(Currency::fromText(price));
         }
         EXPECT_EQ(manager->GetTotalValue().toText(), "3.4999");
     }},
    {"TotalFollowsEachWrite",
     [](const ProductMgrFactory& make) {
         const auto manager = made(make);
         const auto record = add(*manager, "A");
         for (const char* price : {"1", "3", "2"}) {
             record->SetExtPrice(Currency::fromText(price));
             EXPECT_EQ(manager->GetTotalValue().toText(), price);
         }
     }},
    {"TotalLeavesOutDeletedProducts",
     [](const ProductMgrFactory& make) {
         const auto manager = made(make);
         add(*manager, "A")->SetExtPrice(Currency::fromInteger(1));
         add(*manager, "B")->SetExtPrice(Currency::fromInteger(2));
         manager->DeleteProduct(1);
         EXPECT_EQ(manager->GetTotalValue().toText(), "2");
     }},
    {"TotalBeyondTheRangeRaises6",
     [](const ProductMgrFactory& make) {
         const auto manager = made(make);
         for (const char* name : {"A", "B"}) {
             add(*manager, name)->SetExtPrice(Currency::fromScaled(std::numeric_limits<std::int64_t>::max()));
         }
         EXPECT_EQ(errorOf([&] { manager->GetTotalValue(); }), ErrorNumber::overflow);
     }},
    {"SeekByZeroFindsEachProduct",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A", "B", "C"});
         for (const std::int32_t at : {1, 2, 3}) {
             EXPECT_EQ(sought(*manager, at, 0), at);
         }
     }},
    {"SeekByZeroFindsNothingElsewhere",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A", "B", "C"});
         for (const std::int32_t at : {-1, 0, 4}) {
             EXPECT_EQ(sought(*manager, at, 0), std::nullopt) << at;
         }
     }},
    {"SeekFindsNothingInAnEmptyList",
     [](const ProductMgrFactory& make) { EXPECT_EQ(sought(*made(make), 1, 0), std::nullopt); }},
    {"SeekMovesToTheNeighbours",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A", "B", "C"});
         EXPECT_EQ(sought(*manager, 1, +1), 2);
         EXPECT_EQ(sought(*manager, 3, -1), 2);
     }},
    {"SeekStopsAtTheEnds",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A", "B", "C"});
         EXPECT_EQ(sought(*manager, 3, +1), std::nullopt);
         EXPECT_EQ(sought(*manager, 1, -1), std::nullopt);
     }},
    {"GetBeyondTheListRaises9",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A", "B", "C"});
         for (const std::int32_t at : {-1, 0, 4}) {
             EXPECT_EQ(errorOf([&] { manager->GetProduct(at); }), ErrorNumber::subscriptOutOfRange) << at;
         }
     }},
    {"DeleteMovesLaterProductsUp",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A", "B", "C"});
         manager->DeleteProduct(1);
         EXPECT_EQ(namesIn(*manager), (Names{"B", "C"}));
     }},
    {"DeleteBeyondTheListRaises9",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A", "B", "C"});
         for (const std::int32_t at : {-1, 0, 4}) {
             EXPECT_EQ(errorOf([&] { manager->DeleteProduct(at); }), ErrorNumber::subscriptOutOfRange) << at;
         }
         EXPECT_EQ(manager->GetProductCount(), 3);
     }},
    {"MoveUpChangesPlaces",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A", "B", "C"});
         manager->MoveProduct(2, 1);
         EXPECT_EQ(namesIn(*manager), (Names{"B", "A", "C"}));
     }},
    {"MoveDownChangesPlaces",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A", "B", "C"});
         manager->MoveProduct(2, 3);
         EXPECT_EQ(namesIn(*manager), (Names{"A", "C", "B"}));
     }},
    {"MoveBeyondTheListRaises9",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A", "B", "C"});
         EXPECT_EQ(errorOf([&] { manager->MoveProduct(1, 0); }), ErrorNumber::subscriptOutOfRange);
         EXPECT_EQ(errorOf([&] { manager->MoveProduct(4, 3); }), ErrorNumber::subscriptOutOfRange);
         EXPECT_EQ(namesIn(*manager), (Names{"A", "B", "C"}));
     }},
    {"SavedAmountsAreLoadedAgain",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A", "B"}), other = made(make);
         const auto record = required(manager->GetProduct(2));
         record->SetUnitPrice(Currency::fromText("19.9999"));
         record->SetQty(Currency::fromText("2.5"));
         record->SetDiscPrcnt(Currency::fromText("12.125"));
         record->SetExtPrice(Currency::fromText("-43.75"));
         load(*other, saved(*manager));
         const auto loaded = required(other->GetProduct(2));
         EXPECT_EQ(loaded->UnitPrice().toText(), "19.9999");
         EXPECT_EQ(loaded->Qty().toText(), "2.5");
         EXPECT_EQ(loaded->DiscPrcnt().toText(), "12.125");
         EXPECT_EQ(loaded->ExtPrice().toText(), "-43.75");
     }},
    {"SavedTextsAreLoadedAgain",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"~a:b\\", "second"}), other = made(make);
         const auto record = required(manager->GetProduct(1));
         record->SetKey("\\~:");
         record->SetPartNum("Straße; 1|2^3");
         record->SetNote("two\nlines\tand \\\\ ~~ ::");
         load(*other, saved(*manager));
         const auto loaded = required(other->GetProduct(1));
         EXPECT_EQ(loaded->Name(), "~a:b\\");
         EXPECT_EQ(loaded->Key(), record->Key());
         EXPECT_EQ(loaded->PartNum(), record->PartNum());
         EXPECT_EQ(loaded->Note(), record->Note());
     }},
    {"SavedOrderIsLoadedAgain",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A", "B", "C", "D"}), other = made(make);
         manager->MoveProduct(3, 2);
         load(*other, saved(*manager));
         EXPECT_EQ(namesIn(*other), (Names{"A", "C", "B", "D"}));
     }},
    {"EmptyStringIsTheEmptyList",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A"});
         load(*manager, "");
         EXPECT_EQ(manager->GetProductCount(), 0);
         EXPECT_EQ(manager->GetTotalValue(), Currency());
     }},
    {"EmptyListIsSavedAndLoaded",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A", "B"});
         load(*manager, saved(*made(make)));
         EXPECT_EQ(manager->GetProductCount(), 0);
     }},
    {"LoadingReplacesTheWholeList",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A", "B"});
         load(*manager, saved(*withNames(make, {"C"})));
         EXPECT_EQ(namesIn(*manager), Names{"C"});
     }},
    {"ListIsPutBackWithTheFlag",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A", "B"});
         const std::string before = saved(*manager);
         manager->DeleteProduct(1);
         load(*manager, before, true);
         EXPECT_EQ(namesIn(*manager), (Names{"A", "B"}));
     }},
    {"RefusedStringKeepsTheList",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A", "B"});
         const std::string good = saved(*withNames(make, {"C", "D", "E"}));
         // Each manager has a form of its own for the string, so it may accept one of these strings. The row then
         // checks nothing for this string, and puts the list back for the next one.
         for (const std::string& doubtful : {good.substr(0, good.size() / 2), "\x01" + good, good + good + "\x01"}) {
             if (errorOf([&] { load(*manager, doubtful); }) != 0) {
                 EXPECT_EQ(namesIn(*manager), (Names{"A", "B"})) << "a string was refused, and the list is another one";
             } else {
                 load(*manager, "");
                 add(*manager, "A");
                 add(*manager, "B");
             }
         }
     }},
    {"CheckPassesWhatCanBeSaved",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A", "B", "C"});
         saved(*manager);
         EXPECT_EQ(errorOf([&] { check(*manager); }), 0);
     }},
    {"CheckChangesNothing",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A", "B"});
         const std::string before = saved(*manager);
         check(*manager);
         EXPECT_EQ(saved(*manager), before);
     }},
    {"ListBeyondTheLimitIsNotSaved",
     [](const ProductMgrFactory& make) {
         const auto manager = made(make);
         if (!addTooLarge(*manager)) {
             GTEST_SKIP() << kNotTried;
         }
         EXPECT_NE(errorOf([&] { saved(*manager); }), 0);
     }},
    {"CheckRaisesWhatSavingRaises",
     [](const ProductMgrFactory& make) {
         const auto manager = made(make);
         if (!addTooLarge(*manager)) {
             GTEST_SKIP() << kNotTried;
         }
         const auto raised = [](const auto& action) {
             try {
                 action();
             } catch (...) {
                 const RuntimeError error = currentError();
                 return std::to_string(error.number()) + " " + std::string(error.text());
             }
             return std::string("nothing");
         };
         const std::string checked = raised([&] { check(*manager); });
         EXPECT_EQ(checked, raised([&] { saved(*manager); }));
     }},
    {"CheckFollowsEachWrite",
     [](const ProductMgrFactory& make) {
         const auto manager = made(make);
         const auto record = addTooLarge(*manager);
         if (!record) {
             GTEST_SKIP() << kNotTried;
         }
         const bool refused = errorOf([&] { check(*manager); }) != 0;
         record->SetNote("");
         EXPECT_EQ(errorOf([&] { check(*manager); }), 0) << "the note was shortened";
         record->SetNote(std::string(static_cast<std::size_t>(manager->GetMaxDataSize()) + 1, 'n'));
         EXPECT_EQ(errorOf([&] { check(*manager); }) != 0, refused) << "the note is as long again";
     }},
    {"ListBeyondTheLimitIsKept",
     [](const ProductMgrFactory& make) {
         const auto manager = withNames(make, {"A"});
         const auto record = addTooLarge(*manager);
         if (!record) {
             GTEST_SKIP() << kNotTried;
         }
         static_cast<void>(errorOf([&] { saved(*manager); }));
         EXPECT_EQ(namesIn(*manager), (Names{"A", "large"}));
     }},
};

} // namespace products

/// Makes the tests "<name>ProductMgr.<row>".
inline std::size_t addProductMgrTests(const std::string& name, const ProductMgrFactory& make)
{
    return addTests<ProductMgrFactory>(name + "ProductMgr", products::kRows, make);
}

} // namespace orvan::conformance
