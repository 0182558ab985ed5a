#include "orvan/base/Currency.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"

#include <cstdlib>
#include <limits>
#include <random>
#include <sstream>

namespace orvan {
namespace {

using test::Example;
using test::forEachRow;
using test::textOrError;

Currency amount(std::string_view text)
{
    return Currency::fromText(text);
}

/// What "1 / 3" comes to.
Currency computed(const char* expression)
{
    std::istringstream words(expression);
    std::string left, sign, right;
    words >> left >> sign >> right;
    const Currency a = amount(left);
    const Currency b = amount(right);
    return sign == "+" ? a + b : sign == "-" ? a - b : sign == "*" ? a * b : a / b;
}

TEST(Currency, TextIsReadExactlyWithTiesToEvenOrSaysWhichError)
{
    // clang-format off
    const Example rows[] = {
        {"0", "0"}, {"12", "12"}, {"-12.5", "-12.5"}, {"+.5", "0.5"}, {"7.", "7"}, {"-0", "0"},
        {"0.00005", "0"}, {"0.00015", "0.0002"}, {"0.000050001", "0.0001"}, {"-0.00015", "-0.0002"},
        {"0.00025", "0.0002"}, {"0.99995", "1"}, {"000000000000000000000000000001", "1"}, {"-0.0500", "-0.05"},
        {"922337203685477.5807", "922337203685477.5807"}, {"-922337203685477.5808", "-922337203685477.5808"},
        {"", "error 13"}, {".", "error 13"}, {"-", "error 13"}, {"1.2.3", "error 13"}, {" 1", "error 13"},
        {"1 ", "error 13"}, {"1e3", "error 13"}, {"0x1", "error 13"}, {"--1", "error 13"},
        {"922337203685477.5808", "error 6"}, {"922337203685477.58075", "error 6"},
        {"-922337203685477.5809", "error 6"}, {"99999999999999999999999999999999999999999999", "error 6"},
    };
    // clang-format on
    forEachRow(rows, [](const Example& row) {
        EXPECT_EQ(textOrError([&] { return amount(row.text).toText(); }), row.result);
    });
}

TEST(Currency, TextsAndDoublesRoundTrip)
{
    std::mt19937_64 random(20260101);
    for (int i = 0; i < 20000; ++i) {
        const auto value = Currency::fromScaled(static_cast<std::int64_t>(random()) >> (random() % 64));
        ASSERT_EQ(amount(value.toText()), value) << value.toText();
        ASSERT_EQ(value.textSize(), value.toText().size()) << value.toText();
        const auto exact = Currency::fromScaled(value.scaled() >> 11); // a double has 53 bits
        ASSERT_EQ(Currency::fromDouble(exact.toDouble()), exact) << exact.toText();
    }
}

TEST(Currency, ArithmeticIsExactRoundsOnceAndOverflowsAsErrorSix)
{
    const Example rows[] = {
        {"0.1 + 0.2", "0.3"},
        {"19.99 * 3", "59.97"},
        {"0.0001 * 0.5", "0"}, // a tie goes to the even last digit
        {"0.0003 * 0.5", "0.0002"},
        {"-0.0003 * 0.5", "-0.0002"},
        {"1 / 3", "0.3333"},
        {"-2 / 3", "-0.6667"},
        {"922337203685477.5807 * 1", "922337203685477.5807"},
        {"-922337203685477.5808 / 1", "-922337203685477.5808"},
        {"922337203685477.5807 + 0.0001", "error 6"},
        {"-922337203685477.5808 - 0.0001", "error 6"},
        {"922337203685477.5807 * 1.0001", "error 6"},
        {"-922337203685477.5808 * -1", "error 6"},
        {"-922337203685477.5808 / -1", "error 6"},
        {"922337203685477.5807 / 0.5", "error 6"},
        {"1 / 0", "error 11"},
    };
    forEachRow(rows, [](const Example& row) {
        EXPECT_EQ(textOrError([&] { return computed(row.text).toText(); }), row.result);
    });
    const auto least = Currency::fromScaled(std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(textOrError([&] { return (-least).toText(); }), "error 6");
    EXPECT_EQ(textOrError([] { return Currency::fromInteger(922337203685478).toText(); }), "error 6");
}

TEST(Currency, DoublesConvertToTheNearestAmount)
{
    const Example rows[] = {
        {"-0.0", "0"},
        {"53.973", "53.973"},
        {"0.00006", "0.0001"},
        {"-1.5", "-1.5"},
        {"0x1p-1060", "0"},
        {"0x1p-15", "0"},            // 0.305 ten-thousandths
        {"0.00005", "0.0001"},       // the double is just above the tie
        {"0.00048828125", "0.0005"}, // 4.88 ten-thousandths
        {"0.03125", "0.0312"},       // an exact tie, as all odd multiples of 2^-5 are
        {"0.09375", "0.0938"},
        {"922337203685477.5", "922337203685477.5"},
        {"922337203685477.6875", "error 6"},
        {"1e300", "error 6"},
        {"inf", "error 6"},
        {"nan", "error 6"},
    };
    forEachRow(rows, [](const Example& row) {
        EXPECT_EQ(textOrError([&] { return Currency::fromDouble(std::strtod(row.text, nullptr)).toText(); }),
                  row.result);
    });
}

} // namespace
} // namespace orvan
