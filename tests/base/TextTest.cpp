#include "orvan/base/Text.h"
#include "orvan/base/Integer.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"

#include <new>

namespace orvan {
namespace {

using test::Example;
using test::forEachRow;

TEST(Text, IsCountedAndCutInCodePoints)
{
    struct Row {
        const char* name;
        std::string_view text;
        std::size_t count, cut;
        std::string_view first;
    };
    const Row rows[] = {
        {.name = "empty", .text = "", .count = 0, .cut = 3, .first = ""},
        {.name = "ASCII", .text = "abc", .count = 3, .cut = 2, .first = "ab"},
        {.name = "nothing is left", .text = "abc", .count = 3, .cut = 0, .first = ""},
        {.name = "two bytes each", .text = "äöü", .count = 3, .cut = 2, .first = "äö"},
        {.name = "one to four bytes", .text = "a€𝄞b", .count = 4, .cut = 3, .first = "a€𝄞"},
        {.name = "a combining mark is a character", .text = "e\xCC\x81x", .count = 3, .cut = 1, .first = "e"},
        {.name = "cut short: each byte counts", .text = "\xE2\x82", .count = 2, .cut = 1, .first = "\xE2"},
        {.name = "stray bytes", .text = "\x80\x80ä", .count = 3, .cut = 2, .first = "\x80\x80"},
        {.name = "bytes that UTF-8 never has", .text = "\xC0\xAF\xF8z", .count = 4, .cut = 3, .first = "\xC0\xAF\xF8"},
        {.name = "a null byte", .text = {"a\0b", 3}, .count = 3, .cut = 2, .first = {"a\0", 2}},
    };
    forEachRow(rows, [](const Row& row) {
        EXPECT_EQ(characterCount(row.text), row.count);
        EXPECT_EQ(firstCharacters(row.text, row.cut), row.first);
    });
}

TEST(Integer, TextConvertsAsHostsDo)
{
    // clang-format off
    const Example rows[] = {
        {"4", "4"}, {" 700 ", "700"}, {"+5", "5"}, {"-2.5", "-2"}, {"2.5", "2"}, {"3.5", "4"}, {".5", "0"},
        {"700.51", "701"}, {"7e2", "700"}, {".5e+1", "5"}, {"25e-1", "2"}, {"2.5000000000000001", "2"},
        {"2.5000000000000004", "3"}, {"0e999", "0"}, {"1e-999", "error 6"}, {"7e", "error 13"}, {"7e+-2", "error 13"},
        {"1,5", "error 13"}, {".", "error 13"}, {"2147483647.4", "2147483647"}, {"-2147483648", "-2147483648"},
        {"2147483648", "error 6"}, {"99999999999", "error 6"}, {"1e999", "error 6"}, {"", "error 13"},
        {"x", "error 13"}, {"4x", "error 13"}, {"inf", "error 13"}, {"nan", "error 13"}, {"-", "error 13"},
        {"4 2", "error 13"},
    };
    // clang-format on
    forEachRow(rows, [](const Example& row) {
        EXPECT_EQ(test::textOrError([&] { return std::to_string(textToInteger32(row.text)); }), row.result);
    });
}

RuntimeError caught(const std::exception_ptr& thrown)
{
    try {
        std::rethrow_exception(thrown);
    } catch (...) {
        return currentError();
    }
}

TEST(RuntimeError, WhateverIsThrownArrivesAsANumber)
{
    struct Row {
        const char* name;
        std::exception_ptr thrown;
        std::int32_t number;
    };
    const Row rows[] = {
        {.name = "Out of memory", .thrown = std::make_exception_ptr(std::bad_alloc()), .number = 7},
        {.name = "row 9", .thrown = std::make_exception_ptr(std::out_of_range("row 9")), .number = 9},
        {.name = "std::bad_cast", .thrown = std::make_exception_ptr(std::bad_cast()), .number = 13},
        {.name = "gone", .thrown = std::make_exception_ptr(std::runtime_error("gone")), .number = 440},
        {.name = "Automation error", .thrown = std::make_exception_ptr(42), .number = 440},
        {.name = "Object variable not set", .thrown = std::make_exception_ptr(RuntimeError(91, "here")), .number = 91},
    };
    forEachRow(rows, [](const Row& row) {
        EXPECT_EQ(caught(row.thrown).number(), row.number);
        EXPECT_EQ(caught(row.thrown).text(), row.name);
    });
    EXPECT_EQ(caught(std::make_exception_ptr(RuntimeError(91, "here"))).source(), "here");
    EXPECT_EQ(RuntimeError(0).number(), 5) << "0 is no error and cannot be raised";
}

} // namespace
} // namespace orvan
