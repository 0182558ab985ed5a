#include "tests/conformance/WrongProducts.h"

#include <algorithm>
#include <optional>

namespace orvan::test {
namespace {

void load(ProductMgr& own, std::string_view sProducts)
{
    own.SetProductsString(sProducts, kRecordSeparator, kFieldSeparator, false);
}

std::string saved(ProductMgr& own)
{
    return own.GetProductsString(kRecordSeparator, kFieldSeparator);
}

void check(ProductMgr& own)
{
    own.CheckDataSize(kRecordSeparator, kFieldSeparator);
}

template <class Act>
void each(ProductMgr& own, Act act)
{
    for (std::int32_t at = 1; at <= own.GetProductCount(); ++at) {
        act(*own.GetProduct(at));
    }
}

/// Carries on where the list's own manager raises an error.
template <class Act>
void leniently(Act act)
{
    static_cast<void>(conformance::errorOf(act));
}

/// A manager that does `change` to each product that it adds.
template <class Change>
P adding(Change change)
{
    return {.add = [change](ProductMgr& own) {
        Record record = own.AddNewProduct();
        change(own, *record);
        return record;
    }};
}

/// A manager that does `change` to its list after it has loaded one.
template <class Change>
P loading(Change change)
{
    return {.load = [change](ProductMgr& own, std::string_view sProducts, bool flag) {
        const std::string before = saved(own);
        load(own, sProducts);
        change(own, before, sProducts.empty(), flag);
    }};
}

/// Hands out its last manager again while that one is empty.
std::shared_ptr<ui::Component> lastOrNew()
{
    static std::weak_ptr<ProductMgr> last;
    auto manager = last.lock();
    if (!manager || manager->GetProductCount() != 0) {
        last = manager = ours();
    }
    return manager;
}

const Wrong<ProductMgrFactory> kWrongManagers[] = {
    {"EachCallMakesAManagerOfItsOwn", lastOrNew},
    {"NewManagerIsEmpty", Patched{[] {
         const auto fresh = std::make_shared<bool>(true);
         return P{.total = [fresh](ProductMgr& own) { return *fresh ? Currency::fromInteger(1) : own.GetTotalValue(); },
                  .add = [fresh](ProductMgr& own) { return *fresh = false, own.AddNewProduct(); }};
     }}},
    {"NewProductComesLast", Patched{[] {
         return adding([](ProductMgr& own, ProductRecord&) {
             if (own.GetProductCount() == 5) {
                 own.MoveProduct(5, 1);
             }
         });
     }}},
    {"NewProductHasNoTexts", Patched{[] { return adding([](ProductMgr&, ProductRecord& it) { it.SetNote("new"); }); }}},
    {"NewProductCostsNothing",
     Patched{[] { return adding([](ProductMgr&, ProductRecord& it) { it.SetUnitPrice(Currency::fromInteger(1)); }); }}},
    {"NewProductHasQuantityOne",
     Patched{[] { return adding([](ProductMgr&, ProductRecord& it) { it.SetQty(Currency()); }); }}},
    {"TotalIsTheSumOfTheExtendedPrices", Patched{[] {
         return P{.total = [](ProductMgr& own) {
             Currency sum;
             each(own, [&](ProductRecord& it) { sum = sum + std::max(it.ExtPrice(), Currency()); });
             return sum;
         }};
     }}},
    {"TotalFollowsEachWrite", Patched{[] {
         return P{.total = [kept = std::make_shared<std::optional<Currency>>()](ProductMgr& own) {
             *kept = kept->value_or(own.GetTotalValue());
             return **kept;
         }};
     }}},
    {"TotalLeavesOutDeletedProducts", Patched{[] {
         const auto gone = std::make_shared<Currency>();
         return P{.total = [gone](ProductMgr& own) { return own.GetTotalValue() + *gone; },
                  .remove =
                      [gone](ProductMgr& own, std::int32_t at) {
                          *gone = *gone + own.GetProduct(at)->ExtPrice();
                          own.DeleteProduct(at);
                      }};
     }}},
    {"TotalBeyondTheRangeRaises6", Patched{[] {
         return P{.total = [](ProductMgr& own) {
             Currency total;
             leniently([&] { total = own.GetTotalValue(); });
             return total;
         }};
     }}},
    {"SeekByZeroFindsEachProduct", Patched{[] {
         return P{.seek = [](ProductMgr& own, std::int32_t& index, std::int32_t offset, bool& found) {
             own.SeekIndex(index, offset, found);
             found = found && (offset != 0 || index < own.GetProductCount());
         }};
     }}},
    {"SeekByZeroFindsNothingElsewhere", Patched{[] {
         return P{.seek = [](ProductMgr& own, std::int32_t& index, std::int32_t offset, bool& found) {
             own.SeekIndex(index, offset, found);
             found = found || (offset == 0 && index == 0);
         }};
     }}},
    {"SeekFindsNothingInAnEmptyList", Patched{[] {
         return P{.seek = [](ProductMgr& own, std::int32_t& index, std::int32_t offset, bool& found) {
             own.SeekIndex(index, offset, found);
             found = found || own.GetProductCount() == 0;
         }};
     }}},
    {"SeekMovesToTheNeighbours", Patched{[] {
         return P{.seek = [](ProductMgr& own, std::int32_t& index, std::int32_t offset, bool& found) {
             std::int32_t moved = index; // and forgets to write it back
             own.SeekIndex(moved, offset, found);
         }};
     }}},
    {"SeekStopsAtTheEnds", Patched{[] {
         return P{.seek = [](ProductMgr& own, std::int32_t& index, std::int32_t offset, bool& found) {
             own.SeekIndex(index, offset, found);
             if (!found && offset > 0) { // begins again at the first product
                 own.SeekIndex(index = 1, 0, found);
             }
         }};
     }}},
    {"GetBeyondTheListRaises9", Patched{[] {
         return P{.get = [](ProductMgr& own, std::int32_t at) { return at == 0 ? nullptr : own.GetProduct(at); }};
     }}},
    {"DeleteMovesLaterProductsUp", Patched{[] {
         return P{.remove = [](ProductMgr& own, std::int32_t at) {
             own.DeleteProduct(at == 1 && own.GetProductCount() == 3 ? 3 : at);
         }};
     }}},
    {"DeleteBeyondTheListRaises9", Patched{[] {
         return P{.remove = [](ProductMgr& own, std::int32_t at) { leniently([&] { own.DeleteProduct(at); }); }};
     }}},
    {"MoveUpChangesPlaces", Patched{[] {
         return P{.move = [](ProductMgr& own, std::int32_t from, std::int32_t to) {
             own.MoveProduct(from, from == 2 && to == 1 ? from : to);
         }};
     }}},
    {"MoveDownChangesPlaces", Patched{[] {
         return P{.move = [](ProductMgr& own, std::int32_t from, std::int32_t to) {
             own.MoveProduct(from, std::min(from, to));
         }};
     }}},
    {"MoveBeyondTheListRaises9", Patched{[] {
         return P{.move = [](ProductMgr& own, std::int32_t from, std::int32_t to) {
             leniently([&] { own.MoveProduct(from, to); });
         }};
     }}},
    {"SavedAmountsAreLoadedAgain", Patched{[] {
         return loading([](ProductMgr& own, const std::string&, bool, bool) {
             each(own, [](ProductRecord& it) { it.SetDiscPrcnt(Currency()); });
         });
     }}},
    {"SavedTextsAreLoadedAgain", Patched{[] {
         return loading([](ProductMgr& own, const std::string&, bool, bool) {
             each(own, [](ProductRecord& it) { it.SetKey(""); });
         });
     }}},
    {"SavedOrderIsLoadedAgain", Patched{[] {
         return loading([](ProductMgr& own, const std::string&, bool, bool) {
             if (own.GetProductCount() > 3) {
                 own.MoveProduct(3, 2);
             }
         });
     }}},
    {"EmptyStringIsTheEmptyList", Patched{[] { // the total stays that of the former list
         const auto empty = std::make_shared<bool>(false);
         P patches = loading([empty](ProductMgr&, const std::string&, bool nothing, bool) { *empty = nothing; });
         patches.total = [empty](ProductMgr& own) { return *empty ? Currency::fromInteger(1) : own.GetTotalValue(); };
         return patches;
     }}},
    {"EmptyListIsSavedAndLoaded", Patched{[] {
         return P{.save = [](ProductMgr& own) { return own.GetProductCount() == 0 ? raise(5), "" : saved(own); }};
     }}},
    {"LoadingReplacesTheWholeList", Patched{[] {
         return loading([](ProductMgr& own, const std::string& before, bool nothing, bool flag) {
             if (!before.empty() && !nothing && !flag) {
                 own.AddNewProduct();
             }
         });
     }}},
    {"ListIsPutBackWithTheFlag", Patched{[] {
         return P{.load = [](ProductMgr& own, std::string_view sProducts, bool flag) {
             if (!flag) {
                 load(own, sProducts);
             }
         }};
     }}},
    {"RefusedStringKeepsTheList", Patched{[] {
         return P{.load = [](ProductMgr& own, std::string_view sProducts, bool) {
             if (conformance::errorOf([&] { load(own, sProducts); }) != 0) {
                 load(own, "");
                 raise(ErrorNumber::invalidFileFormat);
             }
         }};
     }}},
    {"CheckPassesWhatCanBeSaved",
     Patched{[] { return P{.check = [](ProductMgr& own) { own.GetProductCount() == 3 ? raise(14) : check(own); }}; }}},
    {"CheckChangesNothing", Patched{[] {
         return P{.check = [](ProductMgr& own) {
             check(own);
             if (own.GetProductCount() == 2) {
                 own.DeleteProduct(2);
             }
         }};
     }}},
    {"ListBeyondTheLimitIsNotSaved", Patched{[] {
         return P{.save =
                      [](ProductMgr& own) {
                          std::string sProducts;
                          leniently([&] { sProducts = saved(own); });
                          return sProducts;
                      },
                  .check = [](ProductMgr&) {}};
     }}},
    {"CheckRaisesWhatSavingRaises", Patched{[] { return P{.check = [](ProductMgr&) {}}; }}},
    {"CheckFollowsEachWrite", Patched{[] {
         return P{.check = [once = std::make_shared<std::optional<RuntimeError>>()](ProductMgr& own) {
             if (*once) {
                 throw RuntimeError(**once);
             }
             try {
                 check(own);
             } catch (const RuntimeError& error) {
                 *once = error;
                 throw;
             }
         }};
     }}},
    {"ListBeyondTheLimitIsKept", Patched{[] {
         return P{.save = [](ProductMgr& own) {
             try {
                 return saved(own);
             } catch (...) {
                 own.DeleteProduct(own.GetProductCount());
                 throw;
             }
         }};
     }}},
};

TEST(ProductMgrConformance, EachRowCatchesItsOwnFault)
{
    expectEachRowToCatchItsOwn(conformance::products::kRows, productMgrs(), kWrongManagers);
}

} // namespace
} // namespace orvan::test
