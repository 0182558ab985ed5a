#include "orvan/components/products/ProductsString.h"
#include "tests/products/ProductMgrFixture.h"
#include "tests/support/Rows.h"

#include <functional>
#include <limits>
#include <random>

namespace orvan {
namespace {

using test::forEachRow;

constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
const std::string kThree = "3~A:::1:1:0:1:~B:::1:1:0:20:~C:::1:1:0:300:~";

TEST(InProcessProductMgr, SeekIndexFindsProductsOnly)
{
    const auto manager = makeManager();
    load(*manager, kThree);
    struct Row {
        const char* name;
        std::int32_t index, offset;
        bool found;
        std::int32_t result;
    };
    const Row rows[] = {
        {.name = "first", .index = 1, .offset = 0, .found = true, .result = 1},
        {.name = "last", .index = 3, .offset = 0, .found = true, .result = 3},
        {.name = "before the first", .index = 0, .offset = 0, .found = false, .result = 0},
        {.name = "behind the last", .index = 4, .offset = 0, .found = false, .result = 4},
        {.name = "back from the first", .index = 1, .offset = -1, .found = false, .result = 1},
        {.name = "on from the last", .index = 3, .offset = 1, .found = false, .result = 3},
        {.name = "on", .index = 1, .offset = 1, .found = true, .result = 2},
        {.name = "back", .index = 3, .offset = -1, .found = true, .result = 2},
        {.name = "on from before the first", .index = 0, .offset = 1, .found = true, .result = 1},
        {.name = "back from behind the last", .index = 4, .offset = -1, .found = true, .result = 3},
        {.name = "on from outside", .index = -1, .offset = 1, .found = false, .result = -1},
        {.name = "beyond 32 bits", .index = kMost, .offset = 1, .found = false, .result = kMost},
        {.name = "below 32 bits", .index = kLeast, .offset = -1, .found = false, .result = kLeast},
        {.name = "far away", .index = kMost, .offset = 0, .found = false, .result = kMost},
    };
    forEachRow(rows, [&](const Row& row) {
        std::int32_t index = row.index;
        bool found = !row.found;
        manager->SeekIndex(index, row.offset, found);
        EXPECT_EQ(found, row.found);
        EXPECT_EQ(index, row.result);
    });
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

/// The string as it is without anything kept.
std::string written(const std::vector<ProductValues>& list, ProductsSeparators separators)
{
    std::string text = productsStringHead(list.size(), separators);
    for (const ProductValues& fields : list) {
        appendProduct(text, fields, separators);
    }
    return text;
}

TEST(InProcessProductMgr, KeptTotalsAndTextsStayRightThroughAnyEdits)
{
    const auto manager = makeManager();
    std::vector<ProductValues> list;
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
            const ProductValues moved = *its;
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
        if (i / 1000 % 2 == 0 || i % 40 == 0) { // in every second thousand, many records change before they are written
            ASSERT_EQ(manager->GetProductsString({separators.record}, {separators.field}), written(list, separators))
                << i;
        }
        Currency total;
        for (const ProductValues& fields : list) {
            total = total + fields.extPrice;
        }
        ASSERT_EQ(manager->GetTotalValue().toText(), total.toText()) << "step " << i;
    }
    EXPECT_GT(gone.size(), 500U);
}

TEST(InProcessProductMgr, TheKeptSizeIsThatOfTheStringThroughAnyEdits)
{
    const auto manager =
        makeManager({.maxDataSize = -1, .rules = {}}); // always too large, and the error tells the size
    std::mt19937 random(20260104);
    const std::string texts[] = {"", "plain", "~", "a:b", "\\", "|;", "ä"};
    const std::string lists[] = {"", kThree, "2~a\\~b:::1.5:1:0:-1:~::\\::0.0001:1:0:0:\\\\~"};
    for (int i = 0; i < 5000; ++i) {
        const std::int32_t count = manager->GetProductCount();
        const auto place = [&] { return static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(count)) + 1; };
        const std::string& text = texts[random() % std::size(texts)];
        const Currency amount = Currency::fromScaled(static_cast<std::int32_t>(random()) >> random() % 32);
        const auto operation = random() % 8;
        if (count == 0 || operation < 2) {
            manager->AddNewProduct();
        } else if (operation == 2) {
            const auto product = manager->GetProduct(place());
            manager->DeleteProduct(place());
            product->SetNote(text);
        } else if (operation == 3) {
            manager->MoveProduct(place(), place());
        } else if (operation == 4 && random() % 8 == 0) {
            load(*manager, lists[random() % std::size(lists)]);
        } else {
            setValues(*manager->GetProduct(place()), {text, text, text, amount, amount, amount, amount, text});
        }
        const std::string record = random() % 9 != 0 ? "~" : "|", field = random() % 9 != 0 ? ":" : "^";
        const Raised checked = raisedBy([&] { manager->CheckDataSize(record, field); });
        const Raised written = raisedBy([&] { manager->GetProductsString(record, field); });
        ASSERT_EQ(checked.description, written.description) << "step " << i;
        ASSERT_EQ(checked.number, ErrorNumber::outOfStringSpace);
    }
}

TEST(InProcessProductMgr, EveryFieldIsReadAndReachesTheNextString)
{
    const Currency two = Currency::fromInteger(2);
    struct Row {
        const char *name, *saved;
        std::function<bool(ProductRecord&)> writesAndReads;
    };
    const Row rows[] = {
        {"Name", "1~n:::0:1:0:0:~", [&](auto& it) { return it.SetName("n"), it.Name() == "n"; }},
        {"Key", "1~:k::0:1:0:0:~", [&](auto& it) { return it.SetKey("k"), it.Key() == "k"; }},
        {"PartNum", "1~::p:0:1:0:0:~", [&](auto& it) { return it.SetPartNum("p"), it.PartNum() == "p"; }},
        {"UnitPrice", "1~:::2:1:0:0:~", [&](auto& it) { return it.SetUnitPrice(two), it.UnitPrice() == two; }},
        {"Qty", "1~:::0:2:0:0:~", [&](auto& it) { return it.SetQty(two), it.Qty() == two; }},
        {"DiscPrcnt", "1~:::0:1:2:0:~", [&](auto& it) { return it.SetDiscPrcnt(two), it.DiscPrcnt() == two; }},
        {"ExtPrice", "1~:::0:1:0:2:~", [&](auto& it) { return it.SetExtPrice(two), it.ExtPrice() == two; }},
        {"Note", "1~:::0:1:0:0:t~", [&](auto& it) { return it.SetNote("t"), it.Note() == "t"; }},
    };
    forEachRow(rows, [](const Row& row) {
        const auto manager = makeManager();
        const auto product = manager->AddNewProduct();
        EXPECT_EQ(saved(*manager), "1~:::0:1:0:0:~"); // the manager keeps this text until the next write
        EXPECT_TRUE(row.writesAndReads(*product));
        EXPECT_EQ(saved(*manager), row.saved);
    });
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
    manager->CheckDataSize(kRecordSeparator, kFieldSeparator);
    load(*manager, kThree);
    EXPECT_EQ(raisedBy([&] { manager->CheckDataSize("~", ":"); }).number, ErrorNumber::outOfStringSpace);
    EXPECT_EQ(raisedBy([&] { saved(*manager); }).number, ErrorNumber::outOfStringSpace);
    manager->DeleteProduct(1);
    manager->DeleteProduct(1);
    manager->CheckDataSize(kRecordSeparator, kFieldSeparator);
    EXPECT_EQ(saved(*manager), "1~C:::1:1:0:300:~") << "the list was kept and fits again";
}

TEST(InProcessProductMgr, RulesBelongToTheManagerAndAreAskedAtEachCall)
{
    const auto usual = makeManager()->AddNewProduct(); // outlives its manager
    struct Row {
        const char* text;
        bool validAmount, validDiscount;
    };
    const Row rows[] = {
        {"-0.0001", false, false},        {"0", true, true}, {"100", true, true}, {"100.0001", true, false},
        {"922337203685477", true, false},
    };
    forEachRow(rows, [&](const Row& row) {
        const Currency value = Currency::fromText(row.text);
        EXPECT_EQ(usual->IsValidUnitPrice(value), row.validAmount);
        EXPECT_EQ(usual->IsValidQty(value), row.validAmount);
        EXPECT_EQ(usual->IsValidDiscPrcnt(value), row.validDiscount);
    });
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
