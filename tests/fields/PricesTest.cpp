#include "FieldsFixture.h"
#include "tests/support/FaultyProductMgr.h"

#include <cstdio>
#include <cstdlib>
#include <random>

namespace orvan {
namespace {

using test::FieldsFixture;
using test::forEachRow;

double toDouble(Currency amount)
{
    return std::strtod(amount.toText().c_str(), nullptr);
}

/// The C library rounds the exact value of a double, a tie to the even digit.
Currency rounded(double amount)
{
    char text[64] = {};
    std::snprintf(text, sizeof text, "%.4f", amount);
    return Currency::fromText(text);
}

TEST(Prices, AreComputedInDoubleWithTheDivisionFirst)
{
    FieldsFixture fixture;
    ProductRecord& record = *fixture.currentProduct();
    const auto hundred = Currency::fromInteger(100);
    std::mt19937_64 random(20260607);
    const auto upTo = [&](int bits) {
        return Currency::fromScaled(static_cast<std::int64_t>(random() >> (64 - bits) >> random() % 24));
    };
    int priced = 0;
    for (int i = 0; i < 50'000; ++i) {
        record.SetQty(upTo(30));
        record.SetUnitPrice(upTo(36));
        record.SetDiscPrcnt(i % 50 == 0 ? -upTo(20) : upTo(20));
        const Currency gross = record.Qty() * record.UnitPrice();
        const Currency rest = record.DiscPrcnt() > hundred ? hundred : hundred - record.DiscPrcnt();
        const Currency priceBefore = record.ExtPrice();
        fixture.PrvSetDirty(false);
        fixture.fields.PrvCalcExtPrice();
        const Currency expected = rounded(toDouble(rest) / 100 * toDouble(gross));
        ASSERT_EQ(record.ExtPrice().toText(), expected.toText()) << fixture.product();
        ASSERT_EQ(fixture.dirty, record.ExtPrice() != priceBefore);
        priced += record.ExtPrice() != Currency();
    }
    EXPECT_GT(priced, 40'000);
}

TEST(Prices, FollowQuantityUnitPriceAndDiscount)
{
    struct Row {
        const char *name, *qty, *unitPrice, *discount, *extPrice;
    };
    const Row rows[] = {
        {"exact", "3", "19.99", "10", "53.973"},
        {"quantity times price is a tie: to even", "2.5", "1.2345", "0", "3.0862"},
        {"a tie in double, too: to even", "1", "0.0625", "50", "0.0312"},
        {"a tie in double, too: up to even", "1", "0.1875", "50", "0.0938"},
        {"a tie on paper; the double is a little more", "1", "0.0001", "50", "0.0001"},
        {"the whole price off", "1", "10", "100", "0"},
        {"more than the whole price off counts as none", "1", "10", "100.0001", "10"},
        {"a surcharge", "1", "10", "-20", "12"},
        {"a negative quantity", "-2", "10", "50", "-10"},
        {"quantity times price is beyond the range", "922337203685477.5807", "2", "0", "0"},
        {"the surcharge goes beyond the range", "922337203685477", "1", "-100", "0"},
        {"the rest to 100 is beyond the range", "1", "1", "-922337203685477.5807", "0"},
        {"the nearest double is beyond the range", "922337203685477.5807", "1", "0", "0"},
    };
    forEachRow(rows, [](const Row& row) {
        FieldsFixture fixture;
        fixture.setProduct(row.qty, row.unitPrice, row.discount);
        fixture.currentProduct()->SetExtPrice(Currency::fromScaled(-1));
        fixture.fields.PrvCalcExtPrice();
        EXPECT_EQ(fixture.currentProduct()->ExtPrice().toText(), row.extPrice);
        EXPECT_TRUE(fixture.dirty);
        fixture.PrvSetDirty(false);
        fixture.fields.PrvCalcExtPrice();
        EXPECT_FALSE(fixture.dirty) << "nothing has changed since";
        fixture.heldProduct.reset();
        fixture.fields.PrvCalcExtPrice(); // without a product: nothing to price, and no error
        EXPECT_TRUE(fixture.trace->lines().empty());
    });
}

// A host's record may notice the order in which it is read. The order must not depend on the compiler.
TEST(Prices, TheRecordIsReadInOneOrder)
{
    FieldsFixture fixture;
    test::Faults faults;
    fixture.heldProduct = std::make_shared<test::FaultyRecord>(fixture.heldProduct, faults);
    fixture.fields.PrvCalcExtPrice();
    EXPECT_EQ(faults.recordCalls, "DiscPrcnt UnitPrice Qty ExtPrice SetExtPrice");
    faults.recordCalls.clear();
    fixture.fields.PrvSaveUnitPriceFld();
    EXPECT_EQ(faults.recordCalls, "UnitPrice IsValid SetUnitPrice");
    fixture.heldProduct.reset();
}

TEST(Prices, TheTotalOfALongListFollowsEachKeystroke)
{
    FieldsFixture fixture;
    for (int i = 1; i < 1000; ++i) {
        fixture.objProductMgr->AddNewProduct()->SetExtPrice(Currency::fromScaled(10'001));
    }
    fixture.heldProduct = fixture.objProductMgr->GetProduct(500);
    fixture.setProduct("4", "19.99", "10");
    struct Row {
        char name; // the key
        const char *extPrice, *total;
    };
    const Row rows[] = {
        {'1', "$17.99", "$1,016.09"},  {'2', "$215.89", "$1,213.99"}, {'.', "$215.89", "$1,213.99"},
        {'5', "$224.89", "$1,222.99"}, {'x', "$224.89", "$1,222.99"}, {'\b', "$215.89", "$1,213.99"},
    };
    forEachRow(rows, [&](const Row& row) {
        auto& qty = fixture.box("txtQty");
        row.name == '\b' ? qty.backspace() : qty.type(std::string(1, row.name));
        EXPECT_EQ(fixture.box("txtExtPrice").text(), row.extPrice);
        EXPECT_EQ(fixture.box("txtTotal").text(), row.total);
    });
}

} // namespace
} // namespace orvan
