#include "orvan/base/Currency.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>

namespace orvan {
namespace {

using test::Rows;
using test::textOrError;

constexpr auto kMost = Currency::fromScaled(std::numeric_limits<std::int64_t>::max());
constexpr auto kLeast = Currency::fromScaled(std::numeric_limits<std::int64_t>::min());

Currency amount(std::string_view text)
{
    return Currency::fromText(text);
}

TEST(Currency, TextIsReadExactlyWithTiesToEvenOrSaysWhichError)
{
    for (const auto& [text, read] :
         Rows<const char*, const char*>{{"0", "0"},
                                        {"12", "12"},
                                        {"-12.5", "-12.5"},
                                        {"+.5", "0.5"},
                                        {"7.", "7"},
                                        {"-0", "0"},
                                        {"0.00005", "0"},
                                        {"0.00015", "0.0002"},
                                        {"0.000050001", "0.0001"},
                                        {"-0.00015", "-0.0002"},
                                        {"0.00025", "0.0002"},
                                        {"0.99995", "1"},
                                        {"000000000000000000000000000001", "1"},
                                        {"-0.0500", "-0.05"},
                                        {"922337203685477.5807", "922337203685477.5807"},
                                        {"-922337203685477.5808", "-922337203685477.5808"},
                                        {"", "error 13"},
                                        {".", "error 13"},
                                        {"-", "error 13"},
                                        {"1.2.3", "error 13"},
                                        {" 1", "error 13"},
                                        {"1 ", "error 13"},
                                        {"1e3", "error 13"},
                                        {"0x1", "error 13"},
                                        {"--1", "error 13"},
                                        {"922337203685477.5808", "error 6"},
                                        {"922337203685477.58075", "error 6"},
                                        {"-922337203685477.5809", "error 6"},
                                        {"99999999999999999999999999999999999999999999", "error 6"}}) {
        EXPECT_EQ(textOrError([&text = text] { return amount(text).toText(); }), read) << text;
    }
}

TEST(Currency, TextsAndDoublesRoundTrip)
{
    std::mt19937_64 random(20260101);
    for (int i = 0; i < 20000; ++i) {
        const auto value = Currency::fromScaled(static_cast<std::int64_t>(random()) >> (random() % 64));
        ASSERT_EQ(amount(value.toText()), value) << value.toText();
        const auto exact = Currency::fromScaled(value.scaled() >> 11); // what a double has room for
        ASSERT_EQ(Currency::fromDouble(exact.toDouble()), exact) << exact.toText();
    }
}

TEST(Currency, ArithmeticIsExactRoundsOnceAndOverflowsAsErrorSix)
{
    for (const auto& [result, text] : Rows<std::function<Currency()>, const char*>{
             {[] { return amount("0.1") + amount("0.2"); }, "0.3"},
             {[] { return amount("19.99") * amount("3"); }, "59.97"},
             {[] { return amount("0.0001") * amount("0.5"); }, "0"}, // ties go to the even last place
             {[] { return amount("0.0003") * amount("0.5"); }, "0.0002"},
             {[] { return amount("-0.0003") * amount("0.5"); }, "-0.0002"},
             {[] { return amount("1") / amount("3"); }, "0.3333"},
             {[] { return amount("-2") / amount("3"); }, "-0.6667"},
             {[] { return kMost * amount("1"); }, "922337203685477.5807"},
             {[] { return kLeast / amount("1"); }, "-922337203685477.5808"},
             {[] { return kMost + amount("0.0001"); }, "error 6"},
             {[] { return kLeast - amount("0.0001"); }, "error 6"},
             {[] { return -kLeast; }, "error 6"},
             {[] { return kMost * amount("1.0001"); }, "error 6"},
             {[] { return kLeast * amount("-1"); }, "error 6"},
             {[] { return kLeast / amount("-1"); }, "error 6"},
             {[] { return kMost / amount("0.5"); }, "error 6"},
             {[] { return Currency::fromInteger(922337203685478); }, "error 6"},
             {[] { return amount("1") / Currency(); }, "error 11"}}) {
        EXPECT_EQ(textOrError([&it = result] { return it().toText(); }), text);
    }
}

TEST(Currency, DoublesConvertToTheNearestAmount)
{
    for (const auto& [value, text] :
         Rows<double, const char*>{{-0.0, "0"},
                                   {53.973, "53.973"},
                                   {0.00006, "0.0001"},
                                   {-1.5, "-1.5"},
                                   {std::ldexp(1.0, -1060), "0"},
                                   {1.0 / 32768, "0"},        // 0.305 ten-thousandths
                                   {0.00005, "0.0001"},       // the double is just above the tie
                                   {0.00048828125, "0.0005"}, // 4.88 ten-thousandths
                                   {0.03125, "0.0312"},       // an exact tie, as all odd multiples of 2^-5 are
                                   {0.09375, "0.0938"},
                                   {922337203685477.5, "922337203685477.5"},
                                   {922337203685477.6875, "error 6"},
                                   {1e300, "error 6"},
                                   {HUGE_VAL, "error 6"},
                                   {std::nan(""), "error 6"}}) {
        EXPECT_EQ(textOrError([&value = value] { return Currency::fromDouble(value).toText(); }), text) << value;
    }
}

} // namespace
} // namespace orvan
