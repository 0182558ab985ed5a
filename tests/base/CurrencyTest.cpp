#include "base/Currency.h"
#include "base/RuntimeError.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>

namespace orvan {
namespace {

constexpr auto kMost = Currency::fromScaled(std::numeric_limits<std::int64_t>::max());
constexpr auto kLeast = Currency::fromScaled(std::numeric_limits<std::int64_t>::min());

Currency amount(std::string_view text)
{
    return Currency::fromText(text);
}

std::int32_t errorOf(const std::function<void()>& body)
{
    try {
        body();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

TEST(Currency, TextIsReadExactlyWithTiesToEven)
{
    struct Row {
        const char* text;
        std::int64_t scaled;
    };
    for (const Row& row : std::initializer_list<Row>{
             {"0", 0}, {"12", 120000}, {"-12.5", -125000}, {"+.5", 5000}, {"7.", 70000}, {"-0", 0},
             {"0.00005", 0}, {"0.00015", 2}, {"0.000050001", 1}, {"-0.00015", -2}, {"0.00025", 2},
             {"0.99995", 10000}, {"000000000000000000000000000001", 10000},
             {"922337203685477.5807", std::numeric_limits<std::int64_t>::max()},
             {"-922337203685477.5808", std::numeric_limits<std::int64_t>::min()}}) {
        EXPECT_EQ(amount(row.text).scaled(), row.scaled) << row.text;
    }
}

TEST(Currency, UnreadableTextSaysWhichError)
{
    struct Row {
        const char* text;
        std::int32_t error;
    };
    for (const Row& row : std::initializer_list<Row>{
             {"", 13}, {".", 13}, {"-", 13}, {"1.2.3", 13}, {" 1", 13}, {"1 ", 13}, {"1e3", 13}, {"0x1", 13},
             {"--1", 13}, {"922337203685477.5808", 6}, {"922337203685477.58075", 6}, {"-922337203685477.5809", 6},
             {"99999999999999999999999999999999999999999999", 6}}) {
        EXPECT_EQ(errorOf([&] { amount(row.text); }), row.error) << row.text;
    }
}

TEST(Currency, TextRoundTrips)
{
    std::mt19937_64 random(20260101);
    for (int i = 0; i < 20000; ++i) {
        const auto value = Currency::fromScaled(static_cast<std::int64_t>(random()) >> (random() % 64));
        ASSERT_EQ(amount(value.toText()), value) << value.toText();
    }
    EXPECT_EQ(kLeast.toText(), "-922337203685477.5808");
    EXPECT_EQ(amount("-0.0500").toText(), "-0.05");
}

TEST(Currency, ArithmeticIsExactAndRoundsOnce)
{
    EXPECT_EQ(amount("0.1") + amount("0.2"), amount("0.3"));
    EXPECT_EQ(amount("19.99") * amount("3"), amount("59.97"));
    EXPECT_EQ(amount("0.0001") * amount("0.5"), amount("0")) << "tie to even";
    EXPECT_EQ(amount("0.0003") * amount("0.5"), amount("0.0002")) << "tie to even";
    EXPECT_EQ(amount("-0.0003") * amount("0.5"), amount("-0.0002")) << "tie to even";
    EXPECT_EQ(amount("1") / amount("3"), amount("0.3333"));
    EXPECT_EQ(amount("-2") / amount("3"), amount("-0.6667"));
    EXPECT_EQ(kMost * amount("1"), kMost);
    EXPECT_EQ(kLeast / amount("1"), kLeast);
}

TEST(Currency, OverflowIsErrorSix)
{
    const std::function<void()> cases[] = {
        [] { kMost + amount("0.0001"); },
        [] { kLeast - amount("0.0001"); },
        [] { -kLeast; },
        [] { kMost* amount("1.0001"); },
        [] { kLeast* amount("-1"); },
        [] { kLeast / amount("-1"); },
        [] { kMost / amount("0.5"); },
        [] { Currency::fromInteger(922337203685478); },
        [] { Currency::fromDouble(922337203685477.6875); },
        [] { Currency::fromDouble(1e300); },
        [] { Currency::fromDouble(std::numeric_limits<double>::infinity()); },
        [] { Currency::fromDouble(std::numeric_limits<double>::quiet_NaN()); },
    };
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        EXPECT_EQ(errorOf(cases[i]), ErrorNumber::overflow) << "case " << i;
    }
    EXPECT_EQ(errorOf([] { amount("1") / Currency(); }), ErrorNumber::divisionByZero);
}

TEST(Currency, DoublesConvertToTheNearestAmount)
{
    struct Row {
        double value;
        const char* text;
    };
    for (const Row& row : std::initializer_list<Row>{
             {0.0, "0"}, {-0.0, "0"}, {53.973, "53.973"}, {0.00006, "0.0001"}, {-1.5, "-1.5"},
             {1.0 / 32768, "0"},                    // 0.305 ten-thousandths
             {0.00005, "0.0001"},                   // the double is just above the tie
             {0.00048828125, "0.0005"},             // 4.88 ten-thousandths
             {std::ldexp(1.0, -1060), "0"},
             {922337203685477.5, "922337203685477.5"}}) {
        EXPECT_EQ(Currency::fromDouble(row.value).toText(), row.text) << row.value;
    }
    // Exact ties exist only where the double's own last place is large: odd multiples of 2^-5 tie.
    EXPECT_EQ(Currency::fromDouble(0.03125).scaled(), 312) << "312.5 ten-thousandths go to the even 312";
    EXPECT_EQ(Currency::fromDouble(0.09375).scaled(), 938) << "937.5 ten-thousandths go to the even 938";
    std::mt19937_64 random(7);
    for (int i = 0; i < 20000; ++i) {
        const auto value = Currency::fromScaled(static_cast<std::int64_t>(random()) >> (11 + random() % 50));
        ASSERT_EQ(Currency::fromDouble(value.toDouble()), value) << value.toText();
    }
}

} // namespace
} // namespace orvan
