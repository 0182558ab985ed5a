#include "orvan/components/products/ProductsString.h"
#include "tests/products/ProductMgrFixture.h"
#include "tests/support/Rows.h"

#include <functional>
#include <limits>
#include <random>

namespace orvan {
namespace {

using test::Rows;

constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
const std::string kThree = "3~A:::1:1:0:1:~B:::1:1:0:20:~C:::1:1:0:300:~";

TEST(InProcessProductMgr, SeekIndexFindsProductsOnly)
{
    const auto manager = makeManager();
    load(*manager, kThree);
    for (const auto& [index, offset, found, result] :
         Rows<std::int32_t, std::int32_t, bool, std::int32_t>{{1, 0, true, 1},
                                                              {3, 0, true, 3},
                                                              {0, 0, false, 0},
                                                              {4, 0, false, 4},
                                                              {1, -1, false, 1},
                                                              {3, 1, false, 3},
                                                              {1, 1, true, 2},
                                                              {3, -1, true, 2},
                                                              {0, 1, true, 1},
                                                              {4, -1, true, 3},
                                                              {-1, 1, false, -1},
                                                              {kMost, 1, false, kMost},
                                                              {kLeast, -1, false, kLeast},
                                                              {kMost, 0, false, kMost}}) {
        std::int32_t at = index;
        bool any = !found;
        manager->SeekIndex(at, offset, any);
        EXPECT_EQ(any, found) << index << " by " << offset;
        EXPECT_EQ(at, result) << index << " by " << offset;
    }
}

TEST(InProcessProductMgr, PositionWithoutProductIsErrorNine)
{
    const auto manager = makeManager();
    load(*manager, kThree);
    for (const std::int32_t index : {0, 4, -1, kMost, kLeast}) {
        EXPECT_EQ(raisedBy([&] { manager->GetProduct(index); }).number, 9) << index;
        EXPECT_EQ(raisedBy([&] { manager->DeleteProduct(index); }).number, 9) << index;
        EXPECT_EQ(raisedBy([&] { manager->MoveProduct(index, 1); }).number, 9) << index;
        EXPECT_EQ(raisedBy([&] { manager->MoveProduct(1, index); }).number, 9) << index;
    }
    EXPECT_EQ(saved(*manager), kThree);
}

/// Everything worked out anew.
std::string written(const std::vector<ProductFields>& list, ProductsSeparators separators)
{
    std::string text = productsStringHead(list.size(), separators);
    for (const ProductFields& fields : list) {
        appendProduct(text, fields, separators);
    }
    return text;
}

TEST(InProcessProductMgr, KeptTotalsAndTextsStayRightThroughAnyEdits)
{
    const auto manager = makeManager();
    std::vector<ProductFields> list;
    std::vector<std::shared_ptr<ProductRecord>> gone; // held after they left the list, and still written to
    std::mt19937 random(20260103);
    const std::string texts[] = {"", "plain", "~", "a:b", "\\", "|;"};
    for (int i = 0; i < 20000; ++i) {
        const auto at = static_cast<std::int32_t>(random() % std::max<std::size_t>(1, list.size()));
        const auto to = static_cast<std::int32_t>(random() % std::max<std::size_t>(1, list.size()));
        const std::string& text = texts[random() % std::size(texts)];
        const Currency amount = Currency::fromScaled(static_cast<std::int32_t>(random()));
        const auto operation = random() % 8;
        const auto its = list.begin() + at;
        if (list.empty() || (operation == 0 && list.size() < 12)) {
            manager->AddNewProduct();
            list.emplace_back().qty = Currency::fromInteger(1);
        } else if (operation == 1) {
            gone.push_back(manager->GetProduct(at + 1));
            manager->DeleteProduct(at + 1);
            list.erase(its);
        } else if (operation == 2) {
            manager->MoveProduct(at + 1, to + 1);
            const ProductFields moved = *its;
            list.erase(its);
            list.insert(list.begin() + to, moved);
        } else if (operation == 3) {
            manager->GetProduct(at + 1)->SetName(its->name = text);
        } else if (operation == 4 || operation == 5) {
            manager->GetProduct(at + 1)->SetExtPrice(its->extPrice = amount);
        } else if (operation == 6 && !gone.empty()) {
            gone[random() % gone.size()]->SetNote(text);
            gone[random() % gone.size()]->SetExtPrice(amount);
        } else if (random() % 20 == 0) {
            gone.push_back(manager->GetProduct(at + 1));
            load(*manager, written(list, {}));
        }
        const auto separators = random() % 4 != 0 ? ProductsSeparators{'~', ':'} : ProductsSeparators{'|', ';'};
        ASSERT_EQ(manager->GetProductsString({separators.record}, {separators.field}), written(list, separators)) << i;
        Currency total;
        for (const ProductFields& fields : list) {
            total = total + fields.extPrice;
        }
        ASSERT_EQ(manager->GetTotalValue().toText(), total.toText()) << "step " << i;
    }
    EXPECT_GT(gone.size(), 500U);
}

TEST(InProcessProductMgr, EveryFieldIsReadAndReachesTheNextString)
{
    const Currency two = Currency::fromInteger(2);
    const std::pair<const char*, std::function<bool(ProductRecord&)>> rows[] = {
        {"1~n:::0:1:0:0:~", [&](ProductRecord& it) { return it.SetName("n"), it.Name() == "n"; }},
        {"1~:k::0:1:0:0:~", [&](ProductRecord& it) { return it.SetKey("k"), it.Key() == "k"; }},
        {"1~::p:0:1:0:0:~", [&](ProductRecord& it) { return it.SetPartNum("p"), it.PartNum() == "p"; }},
        {"1~:::2:1:0:0:~", [&](ProductRecord& it) { return it.SetUnitPrice(two), it.UnitPrice() == two; }},
        {"1~:::0:2:0:0:~", [&](ProductRecord& it) { return it.SetQty(two), it.Qty() == two; }},
        {"1~:::0:1:2:0:~", [&](ProductRecord& it) { return it.SetDiscPrcnt(two), it.DiscPrcnt() == two; }},
        {"1~:::0:1:0:2:~", [&](ProductRecord& it) { return it.SetExtPrice(two), it.ExtPrice() == two; }},
        {"1~:::0:1:0:0:t~", [&](ProductRecord& it) { return it.SetNote("t"), it.Note() == "t"; }},
    };
    for (const auto& [expected, write] : rows) {
        const auto manager = makeManager();
        const auto product = manager->AddNewProduct();
        EXPECT_EQ(saved(*manager), "1~:::0:1:0:0:~"); // now a text is kept, which the write must make invalid
        EXPECT_TRUE(write(*product)) << expected;
        EXPECT_EQ(saved(*manager), expected);
    }
}

TEST(InProcessProductMgr, TotalBeyondTheRangeIsErrorSixUntilItShrinks)
{
    using Limits = std::numeric_limits<std::int64_t>;
    for (const std::int64_t most : {Limits::max(), Limits::min()}) {
        const auto manager = makeManager();
        manager->AddNewProduct()->SetExtPrice(Currency::fromScaled(most));
        EXPECT_EQ(manager->GetTotalValue().scaled(), most);
        manager->AddNewProduct()->SetExtPrice(Currency::fromScaled(most));
        EXPECT_EQ(raisedBy([&] { manager->GetTotalValue(); }).number, ErrorNumber::overflow) << most;
        load(*manager, saved(*manager));
        EXPECT_EQ(raisedBy([&] { manager->GetTotalValue(); }).number, ErrorNumber::overflow) << most;
        manager->DeleteProduct(1);
        EXPECT_EQ(manager->GetTotalValue().scaled(), most);
    }
}

TEST(InProcessProductMgr, LimitIsInBytesAndHoldsForSavingOnly)
{
    const std::string text = "1~äö:::1:1:0:7:~";
    const auto manager = makeManager({.maxDataSize = static_cast<std::int32_t>(text.size()), .rules = {}});
    EXPECT_EQ(manager->GetMaxDataSize(), text.size());
    load(*manager, text);
    EXPECT_EQ(saved(*manager), text);
    load(*manager, kThree);
    EXPECT_EQ(raisedBy([&] { saved(*manager); }).number, ErrorNumber::outOfStringSpace);
    manager->DeleteProduct(1);
    manager->DeleteProduct(1);
    EXPECT_EQ(saved(*manager), "1~C:::1:1:0:300:~") << "the list was kept and fits again";
}

TEST(InProcessProductMgr, RulesAreTheManagersAndAskedAtEachCall)
{
    const auto usual = makeManager()->AddNewProduct(); // its manager is gone
    for (const auto& [value, amount, discount] : Rows<const char*, bool, bool>{{"-0.0001", false, false},
                                                                               {"0", true, true},
                                                                               {"100", true, true},
                                                                               {"100.0001", true, false},
                                                                               {"922337203685477", true, false}}) {
        const Currency it = Currency::fromText(value);
        EXPECT_EQ(usual->IsValidUnitPrice(it), amount) << value;
        EXPECT_EQ(usual->IsValidQty(it), amount) << value;
        EXPECT_EQ(usual->IsValidDiscPrcnt(it), discount) << value;
    }
    Currency least = Currency::fromInteger(5);
    const auto manager = makeManager({.rules = {.isValidQty = [&](Currency value) { return value >= least; }}});
    load(*manager, kThree);
    const auto product = manager->GetProduct(2);
    EXPECT_FALSE(product->IsValidQty(Currency::fromInteger(4)));
    least = Currency::fromInteger(4);
    load(*manager, "");
    EXPECT_TRUE(product->IsValidQty(Currency::fromInteger(4)));
}

} // namespace
} // namespace orvan
