#include "tests/products/ProductMgrFixture.h"
#include "tests/support/Rows.h"

#include <gmock/gmock.h>

#include <random>

namespace orvan {
namespace {

using test::forEachRow;
using testing::HasSubstr;

const std::string kLoaded = "1~Kept:::1:1:0:7:~";

/// Records whose texts hold everything that can be troublesome.
std::string richString()
{
    const auto manager = makeManager();
    std::string every;
    for (int byte = 0; byte < 256; ++byte) {
        every += static_cast<char>(byte);
    }
    for (const std::string& text : std::initializer_list<std::string>{"Bolt ~:\\", std::string("\0~\r\n", 4),
                                                                      "äß€𝄞\u0301", every, "\\\\::~~", ""}) {
        const auto product = manager->AddNewProduct();
        product->SetName(text);
        product->SetKey(text + "\\");
        product->SetPartNum(":" + text);
        product->SetUnitPrice(Currency::fromText("-922337203685477.5808"));
        product->SetQty(Currency::fromText("0.0001"));
        product->SetDiscPrcnt(Currency::fromText("12.5"));
        product->SetExtPrice(Currency::fromText("922337203685477.5807"));
        product->SetNote("~" + text);
    }
    return saved(*manager);
}

TEST(ProductsString, CarriesAnyTextWithAnySeparators)
{
    const std::string rich = richString();
    const auto manager = makeManager();
    load(*manager, rich);
    EXPECT_EQ(saved(*manager), rich);
    for (const auto& [record, field] : std::initializer_list<std::pair<std::string, std::string>>{
             {":", "~"}, {"\n", "\t"}, {std::string(1, '\0'), " "}, {"\"", "+"}, {"_", "\x7F"}}) {
        const std::string other = manager->GetProductsString(record, field);
        const auto second = makeManager();
        second->SetProductsString(other, record, field, true);
        EXPECT_EQ(second->GetProductsString(record, field), other) << record << field;
        EXPECT_EQ(saved(*second), rich) << record << field;
    }
    EXPECT_EQ(manager->GetProduct(2)->Name(), std::string("\0~\r\n", 4));
}

TEST(ProductsString, CarriesEscapesWhereverTheyStand)
{
    const auto manager = makeManager();
    for (std::size_t before = 0; before < 140; ++before) {
        for (std::size_t run = 1; run < 4; ++run) {
            const auto product = manager->AddNewProduct();
            product->SetName(std::string(before, 'x').append(run, '\\'));
            product->SetKey(std::string(run, ':').append("y"));
            product->SetNote(std::string(run, '\\').append(before, '~'));
        }
    }
    const auto second = makeManager();
    load(*second, saved(*manager));
    ASSERT_EQ(second->GetProductCount(), manager->GetProductCount());
    for (std::int32_t i = 1; i <= manager->GetProductCount(); ++i) {
        EXPECT_EQ(second->GetProduct(i)->Name(), manager->GetProduct(i)->Name());
        EXPECT_EQ(second->GetProduct(i)->Key(), manager->GetProduct(i)->Key());
        EXPECT_EQ(second->GetProduct(i)->Note(), manager->GetProduct(i)->Note());
    }
}

TEST(ProductsString, UnreadableStringSaysWhereAndWhyAndChangesNothing)
{
    const auto manager = makeManager();
    load(*manager, kLoaded);
    struct Row {
        const char* text;
        std::int32_t error;
        const char *place, *reason;
    };
    const Row rows[] = {
        {"x", 321, "product 1:", "ends within the count"},
        {"~", 321, "product 1:", "begin with the count"},
        {"-1~", 321, "product 1:", "begin with the count"},
        {"01~a:::1:1:0:7:~", 321, "product 1:", "begin with the count"},
        {"2147483648~a:::1:1:0:7:~", 6, "product 1:", "count of products is beyond"},
        {"2147483647~a:::1:1:0:7:~", 321, "product 2, field Name:", "cut short"},
        {"1~a:::1:1:0:7:~b:::1:1:0:7:~", 321, "product 2:", "more than the count"},
        {"2~a:::1:1:0:7:~b:::1:1:0:7~", 321, "product 2:", "only 7 of 8"},
        {"1~a:::1:1:0:7::~", 321, "product 1:", "more than 8 fields"},
        {"1~a:\\b::1:1:0:7:~", 321, "product 1, field Key:", "backslash"},
        {"1~a:::1:1:0:7:\\", 321, "product 1, field Note:", "cut short"},
        {"1~a:::1,5:1:0:7:~", 321, "product 1, field UnitPrice:", "not an amount"},
        {"1~a:::1\\", 321, "product 1, field UnitPrice:", "not an amount"},
        {"1~a:::99999999999999999999\\:1:1:0:7:~", 6, "product 1, field UnitPrice:", "beyond the range"},
        {"1~a:::1::0:7:~", 321, "product 1, field Qty:", "not an amount"},
        {"1~a:::1:1:007:7:~", 321, "product 1, field DiscPrcnt:", "not an amount"},
        {"1~a:::1:1:0:1.50:~", 321, "product 1, field ExtPrice:", "not an amount"},
        {"1~a:::1:1:0:922337203685477.5808:~", 6, "product 1, field ExtPrice:", "beyond the range"},
        {"1~a:::-99999999999999999999.5:1:0:7:~", 6, "product 1, field UnitPrice:", "beyond the range"},
        // An amount that is not written as amounts are is no amount, however large.
        {"1~a:::925337203685477.:1:0:7:~", 321, "product 1, field UnitPrice:", "not an amount"},
        {"1~a:::99999999999999999999.50:1:0:7:~", 321, "product 1, field UnitPrice:", "not an amount"},
        {"1~a:::922337203685477.58075:1:0:7:~", 321, "product 1, field UnitPrice:", "not an amount"},
        {"1~a:::00099999999999999999999:1:0:7:~", 321, "product 1, field UnitPrice:", "not an amount"},
        {"1~a:::-.99999999999999999999:1:0:7:~", 321, "product 1, field UnitPrice:", "not an amount"},
        {"1~a:::+99999999999999999999:1:0:7:~", 321, "product 1, field UnitPrice:", "not an amount"},
        {"1~a:::99999999999999999999e3:1:0:7:~", 321, "product 1, field UnitPrice:", "not an amount"},
    };
    forEachRow(rows, [&](const Row& row) {
        const Raised raised = raisedBy([&] { load(*manager, row.text); });
        EXPECT_EQ(raised.number, row.error);
        EXPECT_THAT(raised.description, testing::AllOf(HasSubstr(row.place), HasSubstr(row.reason)));
        EXPECT_EQ(saved(*manager), kLoaded);
    });
}

/// One to three random edits: bytes written, removed or put in, parts repeated, the end cut off.
std::string mutated(std::string text, std::mt19937& random)
{
    using namespace std::string_view_literals;
    constexpr auto kLikely = "~:\\0123456789.-+\0\xC3 a"sv;
    for (auto edits = 1 + random() % 3; edits > 0 && !text.empty(); --edits) {
        const std::size_t at = random() % text.size();
        switch (random() % 5) {
        case 4: text.resize(at); break;
        case 0: text[at] = kLikely[random() % kLikely.size()]; break;
        case 1: text.erase(at, 1 + random() % 4); break;
        case 2: text.insert(at, 1, kLikely[random() % kLikely.size()]); break;
        default: text.insert(at, text.substr(random() % text.size(), random() % 20)); break;
        }
    }
    return text;
}

TEST(ProductsString, DamagedStringIsRefusedOrSavesAsItWas)
{
    const std::string small = "3~Bolt:B-1:100:0.25:12:0:3:~:::0:1:0:0:~Nut::101:-0.1:1:10.5:0.09:4\\:1\\~\\\\~";
    const auto manager = makeManager();
    std::mt19937 random(20260102);
    int refused = 0;
    for (int i = 0; i < 30000; ++i) {
        const std::string text = mutated(small, random);
        load(*manager, kLoaded);
        const Raised error = raisedBy([&] { load(*manager, text); });
        if (error.number != 0) {
            ++refused;
            ASSERT_TRUE(error.description.starts_with("Products string, product ")) << error.description;
            ASSERT_EQ(manager->GetTotalValue().toText(), "7") << text;
        }
        ASSERT_EQ(saved(*manager), error.number == 0 ? text : kLoaded) << text;
    }
    EXPECT_GT(refused, 1000);
    EXPECT_LT(refused, 29000);
    manager->SetProductsString({}, kRecordSeparator, kFieldSeparator, false);
    EXPECT_EQ(saved(*manager) + manager->GetTotalValue().toText(), "0");
}

TEST(ProductsString, UnusableSeparatorsAreRefused)
{
    const auto manager = makeManager();
    load(*manager, kLoaded);
    struct Row {
        const char *name, *record, *field;
    };
    const Row rows[] = {
        {"no record separator", "", ":"},
        {"no field separator", "~", ""},
        {"two characters", "~~", ":"},
        {"both the same", "~", "~"},
        {"a small letter", "a", ":"},
        {"a capital letter", "~", "Z"},
        {"a digit", "5", ":"},
        {"a sign", "~", "-"},
        {"a point", "~", "."},
        {"a backslash", "\\", ":"},
        {"half a character", "\xC3", ":"},
        {"a character of two bytes", "~", "ä"},
    };
    forEachRow(rows, [&](const Row& row) {
        for (const Raised& error : {raisedBy([&] { manager->SetProductsString("", row.record, row.field, false); }),
                                    raisedBy([&] { manager->GetProductsString(row.record, row.field); }),
                                    raisedBy([&] { manager->CheckDataSize(row.record, row.field); })}) {
            EXPECT_EQ(error.number, ErrorNumber::invalidProcedureCall);
            EXPECT_THAT(error.description, HasSubstr("separator"));
        }
    });
    EXPECT_EQ(saved(*manager), kLoaded);
}

} // namespace
} // namespace orvan
