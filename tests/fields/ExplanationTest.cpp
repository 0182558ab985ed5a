// Explanations against a computation of their own: exact fractions of integers, rounded as on paper.

#include "FieldsFixture.h"

#include "orvan/base/Int128.h"
#include "orvan/core/Explanation.h"

#include <cstdio>
#include <random>

namespace orvan {
namespace {

using test::FieldsFixture;
using test::forEachRow;

#ifndef __has_feature
#define __has_feature(name) 0 // GCC's older versions have no such question
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || __has_feature(address_sanitizer) ||               \
    __has_feature(thread_sanitizer)
constexpr int kLists = 20; // sanitised builds take many times as long
#else
constexpr int kLists = 1000;
#endif
constexpr int kLinesOfAList = 1000;

Int128 power(int exponent)
{
    return exponent == 0 ? 1 : 10 * power(exponent - 1);
}

/// The exact text as an integer of 10^-decimals; fails for a text that is not the shortest one.
Int128 units(const std::string& text, int decimals)
{
    const bool negative = text.starts_with('-');
    const std::size_t point = text.find('.');
    EXPECT_TRUE(point == std::string::npos || (text.back() != '0' && text.back() != '.')) << text;
    Int128 value = 0;
    int read = 0;
    for (std::size_t at = negative ? 1 : 0; at < text.size(); ++at) {
        if (at != point) {
            value = value * 10 + (text[at] - '0');
            read += at > point ? 1 : 0;
        }
    }
    EXPECT_LE(read, decimals) << text;
    EXPECT_FALSE(negative && value == 0) << text;
    return (negative ? -value : value) * power(decimals - read);
}

/// value / divisor by schoolbook rounding.
Int128 divided(Int128 value, Int128 divisor, bool tiesToEven)
{
    Int128 quotient = value / divisor;
    const Int128 rest = value % divisor;
    const Int128 twice = 2 * (rest < 0 ? -rest : rest);
    if (twice > divisor || (twice == divisor && (!tiesToEven || quotient % 2 != 0))) {
        quotient += value < 0 ? -1 : 1;
    }
    return quotient;
}

PriceRounding roundingTo(Int128 amount, Int128 exact, Int128 divisor)
{
    return amount * divisor == exact                 ? PriceRounding::none
           : amount == divided(exact, divisor, true) ? PriceRounding::halfToEven
                                                     : PriceRounding::binary;
}

/// The C library rounds the exact value of a double, a tie to the even digit.
Int128 scaledOf(double amount)
{
    char text[64] = {};
    std::snprintf(text, sizeof text, "%.4f", amount);
    return Currency::fromText(text).scaled();
}

struct Lines {
    std::mt19937_64 random{20261123};

    /// Of any size up to so many bits, sometimes negative.
    Currency upTo(int bits)
    {
        const auto size = static_cast<std::int64_t>(random() >> (64 - bits) >> random() % 20);
        return Currency::fromScaled(random() % 16 == 0 ? -size : size);
    }
};

void checkPrice(const ProductRecord& record, int& binary)
{
    const Int128 hundred = 1'000'000;
    const Int128 qty = record.Qty().scaled(), unitPrice = record.UnitPrice().scaled();
    const Int128 discount = record.DiscPrcnt().scaled();
    const Int128 share = discount > hundred ? hundred : hundred - discount;
    const PriceExplanation price = explainExtPrice(record);
    ASSERT_TRUE(price.share.amount && price.gross.amount && price.price.amount && !price.overflowed);
    const Int128 gross = price.gross.amount->scaled(), net = price.price.amount->scaled();
    ASSERT_TRUE(units(price.share.exact, 4) == share && price.share.amount->scaled() == share);
    ASSERT_EQ(price.discountIgnored, discount > hundred);
    ASSERT_TRUE(units(price.gross.exact, 8) == qty * unitPrice) << price.gross.exact;
    ASSERT_TRUE(gross == divided(qty * unitPrice, 10'000, true));
    ASSERT_EQ(price.gross.rounding, roundingTo(gross, qty * unitPrice, 10'000));
    ASSERT_TRUE(units(price.price.exact, 10) == share * gross) << price.price.exact;
    ASSERT_TRUE(net == scaledOf(price.binaryPrice)) << price.binaryPrice;
    ASSERT_EQ(price.binaryPrice, static_cast<double>(share) / 1e4 / 100 * (static_cast<double>(gross) / 1e4));
    ASSERT_EQ(price.price.rounding, roundingTo(net, share * gross, 1'000'000));
    ASSERT_TRUE(units(price.unrounded, 14) == qty * unitPrice * share) << price.unrounded;
    ASSERT_EQ(price.computed, *price.price.amount);
    ASSERT_EQ(price.stored, record.ExtPrice());
    binary += price.price.rounding == PriceRounding::binary ? 1 : 0;
}

TEST(Explanation, GivesTheExactStepsOfAMillionLines)
{
    FieldsFixture fixture;
    ProductMgr& manager = *fixture.productMgr();
    while (manager.GetProductCount() < kLinesOfAList) {
        manager.AddNewProduct();
    }
    Lines lines;
    int binary = 0, differences = 0;
    for (int list = 0; list < kLists; ++list) {
        Int128 sum = 0, shown = 0;
        std::vector<std::int32_t> rounded, deviating;
        for (std::int32_t position = 1; position <= kLinesOfAList; ++position) {
            const auto record = manager.GetProduct(position);
            record->SetQty(lines.upTo(30));
            record->SetUnitPrice(lines.upTo(36));
            record->SetDiscPrcnt(lines.upTo(20));
            record->SetExtPrice(explainExtPrice(*record).computed);
            checkPrice(*record, binary);
            if (lines.random() % 100 == 0) {
                record->SetExtPrice(record->ExtPrice() + Currency::fromScaled(1));
                deviating.push_back(position);
            }
            const Int128 scaled = record->ExtPrice().scaled();
            sum += scaled;
            shown += divided(scaled, 100, false);
            if (scaled % 100 != 0) {
                rounded.push_back(position);
            }
        }
        const TotalExplanation total = explainTotal(manager);
        ASSERT_TRUE(units(total.exactSum, 4) == sum && total.totalIsSum && total.total->scaled() == sum);
        ASSERT_TRUE(units(total.sumOfShown, 2) == shown) << total.sumOfShown;
        ASSERT_TRUE(*total.shownTotal == divided(sum, 100, false));
        ASSERT_TRUE(*total.difference == divided(sum, 100, false) - shown);
        ASSERT_EQ(total.rounded.size(), rounded.size());
        for (std::size_t i = 0; i < rounded.size(); ++i) {
            const RoundedRow& row = total.rounded[i];
            ASSERT_EQ(row.position, rounded[i]);
            ASSERT_EQ(row.shown * 100 - row.extPrice.scaled(), row.added);
            ASSERT_TRUE(row.shown == divided(row.extPrice.scaled(), 100, false));
        }
        ASSERT_EQ(total.deviating.size(), deviating.size());
        for (std::size_t i = 0; i < deviating.size(); ++i) {
            ASSERT_EQ(total.deviating[i].position, deviating[i]);
            ASSERT_EQ(total.deviating[i].stored - total.deviating[i].computed, Currency::fromScaled(1));
        }
        differences += *total.difference != 0 ? 1 : 0;
        if (testing::Test::HasFatalFailure()) {
            return;
        }
    }
    EXPECT_GT(binary, 0) << "the lines have no price that double arithmetic rounds otherwise";
    EXPECT_GT(differences, kLists / 2);
}

TEST(Explanation, StopsWhereAStepIsBeyondTheRange)
{
    struct Row {
        const char *name, *qty, *unitPrice, *discount, *gross, *price, *unrounded;
        bool grossFits;
    };
    const Row rows[] = {
        {"the rest to 100", "1", "1", "-922337203685477.5808", "", "", "9223372036855.775808", false},
        {"the least of all", "-922337203685477.5808", "-922337203685477.5808", "-922337203685477.5808", "", "",
         "7846377169234201660712039125168241456646523.72610868314112", false},
        {"quantity times price", "-922337203685477.5808", "922337203685477.5807", "100",
         "-850705917302346158566202798210.87277056", "", "0", false},
        {"a price with a surcharge", "922337203685477", "1", "-100", "922337203685477", "1844674407370954",
         "1844674407370954", true},
        {"a price that fits, but whose nearest double does not", "922337203685477.5807", "1", "0",
         "922337203685477.5807", "922337203685477.5807", "922337203685477.5807", true},
    };
    forEachRow(rows, [](const Row& row) {
        FieldsFixture fixture;
        fixture.setProduct(row.qty, row.unitPrice, row.discount);
        fixture.fields.PrvCalcExtPrice();
        const PriceExplanation price = explainExtPrice(*fixture.currentProduct());
        EXPECT_EQ(price.gross.exact, row.gross);
        EXPECT_EQ(price.gross.amount.has_value(), row.grossFits);
        EXPECT_EQ(price.price.exact, row.price);
        EXPECT_FALSE(price.price.amount);
        EXPECT_EQ(price.unrounded, row.unrounded);
        EXPECT_TRUE(price.overflowed);
        EXPECT_EQ(price.computed, Currency());
        const TotalExplanation total = explainTotal(*fixture.productMgr());
        EXPECT_EQ(total.overflowed, std::vector<std::int32_t>{1});
        EXPECT_TRUE(total.deviating.empty()) << "0 is what the editor stores";
    });
}

TEST(Explanation, TellsATotalThatIsBeyondTheRange)
{
    FieldsFixture fixture;
    fixture.currentProduct()->SetExtPrice(Currency::fromScaled(INT64_MAX));
    ProductMgr& manager = *fixture.productMgr();
    manager.AddNewProduct()->SetExtPrice(Currency::fromScaled(5'500));
    const TotalExplanation total = explainTotal(manager, 0);
    EXPECT_FALSE(total.total || total.shownTotal || total.difference || total.totalIsSum);
    EXPECT_EQ(total.exactSum, "922337203685478.1307");
    EXPECT_EQ(total.sumOfShown, "922337203685479");
    EXPECT_EQ(total.deviating.size(), 2U);
    EXPECT_TRUE(total.overflowed.empty());
    EXPECT_EQ(test::errorOf([&] { static_cast<void>(explainTotal(manager, 5)); }), ErrorNumber::invalidProcedureCall);
}

TEST(Explanation, TellsHowTheColumnDiffersFromTheTotal)
{
    struct Row {
        const char* name;
        std::vector<const char*> prices;
        int decimals;
        const char* sumOfShown;
        std::int64_t shownTotal, difference;
        std::size_t rounded;
    };
    const Row rows[] = {
        {"nothing", {}, 2, "0", 0, 0, 0},
        {"thirds", {"0.3333", "0.3333", "0.3334"}, 2, "0.99", 100, 1, 3},
        {"halves go up", {"0.005", "0.005", "1"}, 2, "1.02", 101, -1, 2},
        {"negative halves go down", {"-0.005", "-0.005"}, 2, "-0.02", -1, 1, 2},
        {"roundings that cancel each other out", {"0.004", "0.006"}, 2, "0.01", 1, 0, 2},
        {"without decimals", {"0.5", "0.5"}, 0, "2", 1, -1, 2},
        {"with all of them", {"0.0001", "0.0002"}, 4, "0.0003", 3, 0, 0},
    };
    forEachRow(rows, [](const Row& row) {
        const auto manager = makeManager();
        for (const char* const price : row.prices) {
            manager->AddNewProduct()->SetExtPrice(Currency::fromText(price));
        }
        const TotalExplanation total = explainTotal(*manager, row.decimals);
        EXPECT_EQ(total.sumOfShown, row.sumOfShown);
        EXPECT_EQ(total.shownTotal, row.shownTotal);
        EXPECT_EQ(total.difference, row.difference);
        EXPECT_EQ(total.rounded.size(), row.rounded);
    });
}

} // namespace
} // namespace orvan
