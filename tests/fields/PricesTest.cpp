// The extended price, checked against the same double operations done in exact integers.
#include "FieldsFixture.h"
#include "orvan/base/Int128.h"

#include <random>

namespace orvan {
namespace {

using test::FieldsFixture;
using test::Rows;

UInt128 shiftedToEven(UInt128 value, int bits, bool sticky = false)
{
    const UInt128 half = UInt128{1} << (bits - 1);
    const UInt128 rest = value & (2 * half - 1);
    value >>= bits;
    return value + (rest > half || (rest == half && (sticky || value % 2 != 0)) ? 1 : 0);
}

/// A double that is not negative: mantissa * 2^exponent.
struct SoftDouble {
    UInt128 mantissa;
    int exponent = 0;

    /// This / divisor, rounded to 53 bits.
    SoftDouble over(unsigned divisor) const
    {
        UInt128 numerator = mantissa;
        int scale = exponent;
        for (; numerator != 0 && numerator / divisor >> 54 == 0; numerator *= 2) {
            --scale;
        }
        int bits = 1;
        while (numerator / divisor >> (53 + bits) != 0) {
            ++bits;
        }
        return {shiftedToEven(numerator / divisor, bits, numerator % divisor != 0), scale + bits};
    }
};

/// (100 - discount) / 100 * amount in ten-thousandths; 0 beyond the range. Nothing is negative.
std::int64_t expectedPrice(Int128 amount, std::int64_t discount)
{
    constexpr Int128 kMost = std::numeric_limits<std::int64_t>::max();
    if (amount > kMost) {
        return 0;
    }
    const auto toDouble = [](Int128 scaled) { return SoftDouble{static_cast<UInt128>(scaled)}.over(1).over(10'000); };
    const SoftDouble factor = toDouble(discount > 1'000'000 ? 1'000'000 : 1'000'000 - discount).over(100);
    const SoftDouble gross = toDouble(amount);
    const SoftDouble price = SoftDouble{factor.mantissa * gross.mantissa, factor.exponent + gross.exponent}.over(1);
    if (price.mantissa == 0 || price.exponent >= 0) {
        return 0; // beyond 2^52 whole units
    }
    const auto scaled = static_cast<Int128>(shiftedToEven(price.mantissa * 10'000, -price.exponent));
    return scaled > kMost ? 0 : static_cast<std::int64_t>(scaled);
}

TEST(Prices, AreComputedInDoubleDividedFirst)
{
    FieldsFixture fixture;
    ProductRecord& record = fixture.currentProduct();
    std::mt19937_64 random(20260607);
    const auto upTo = [&](int bits) { return static_cast<std::int64_t>(random() >> (64 - bits) >> random() % 24); };
    int priced = 0;
    for (int i = 0; i < 50'000; ++i) {
        const std::int64_t qty = upTo(i % 8 == 0 ? 60 : 40);
        const std::int64_t unitPrice = upTo(36);
        const std::int64_t discount = i % 50 == 0 ? -upTo(40) : upTo(21);
        const Int128 product = Int128{qty} * unitPrice;
        const Int128 twiceRest = product % 10'000 * 2;
        const Int128 amount = product / 10'000 + (twiceRest + product / 10'000 % 2 > 10'000 ? 1 : 0);
        record.SetQty(Currency::fromScaled(qty));
        record.SetUnitPrice(Currency::fromScaled(unitPrice));
        record.SetDiscPrcnt(Currency::fromScaled(discount));
        const Currency before = record.ExtPrice();
        fixture.PrvSetDirty(false);
        fixture.fields.PrvCalcExtPrice();
        ASSERT_EQ(record.ExtPrice().scaled(), expectedPrice(amount, discount)) << fixture.product();
        ASSERT_EQ(fixture.dirty, record.ExtPrice() != before);
        priced += record.ExtPrice() != Currency();
    }
    EXPECT_GT(priced, 40'000);
}

TEST(Prices, FollowQuantityUnitPriceAndDiscount)
{
    for (const auto& [qty, unitPrice, discount, extPrice] : Rows<const char*, const char*, const char*, const char*>{
             {"3", "19.99", "10", "53.973"},
             {"2.5", "1.2345", "0", "3.0862"}, // the product is a tie: to even
             {"1", "0.0625", "50", "0.0312"},
             {"1", "0.1875", "50", "0.0938"}, // ties in double, too
             {"1", "0.0001", "50", "0.0001"}, // a tie on paper; the double is a little more
             {"1", "10", "100", "0"},
             {"1", "10", "100.0001", "10"},
             {"1", "10", "-20", "12"},
             {"-2", "10", "50", "-10"},
             {"922337203685477.5807", "2", "0", "0"},
             {"922337203685477", "1", "-100", "0"},
             {"1", "1", "-922337203685477.5807", "0"}, // the rest to 100 is beyond the range
             {"922337203685477.5807", "1", "0", "0"},  // the nearest double is beyond the range
         }) {
        FieldsFixture fixture;
        fixture.setProduct(qty, unitPrice, discount);
        fixture.currentProduct().SetExtPrice(Currency::fromScaled(-1));
        fixture.fields.PrvCalcExtPrice();
        EXPECT_EQ(fixture.product(), std::string(qty) + ' ' + unitPrice + ' ' + discount + ' ' + extPrice);
        EXPECT_TRUE(fixture.dirty);
        fixture.PrvSetDirty(false);
        fixture.fields.PrvCalcExtPrice();
        EXPECT_FALSE(fixture.dirty) << "computed again: " << extPrice;
        fixture.heldProduct.reset();
        fixture.fields.PrvCalcExtPrice(); // nothing to price, and no error
        EXPECT_TRUE(fixture.trace->lines().empty());
    }
}

TEST(Prices, TheTotalOfALongListFollowsEachKeystroke)
{
    FieldsFixture fixture;
    for (int i = 1; i < 1000; ++i) {
        fixture.objProductMgr->AddNewProduct()->SetExtPrice(Currency::fromScaled(10'001));
    }
    fixture.heldProduct = fixture.objProductMgr->GetProduct(500);
    fixture.setProduct("4", "19.99", "10");
    for (const auto& [key, extPrice, total] : Rows<char, const char*, const char*>{{'1', "$17.99", "$1,016.09"},
                                                                                   {'2', "$215.89", "$1,213.99"},
                                                                                   {'.', "$215.89", "$1,213.99"},
                                                                                   {'5', "$224.89", "$1,222.99"},
                                                                                   {'x', "$224.89", "$1,222.99"},
                                                                                   {'\b', "$215.89", "$1,213.99"}}) {
        key == '\b' ? fixture.box("txtQty").backspace() : fixture.box("txtQty").type(std::string(1, key));
        EXPECT_EQ(fixture.box("txtExtPrice").text(), extPrice) << key;
        EXPECT_EQ(fixture.box("txtTotal").text(), total) << key;
    }
}

} // namespace
} // namespace orvan
