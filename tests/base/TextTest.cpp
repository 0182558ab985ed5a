#include "base/Integer.h"
#include "base/Text.h"
#include "tests/support/Raised.h"

#include <gtest/gtest.h>

#include <new>

namespace orvan {
namespace {

TEST(Text, IsCountedAndCutInCodePoints)
{
    struct Row {
        std::string_view text;
        std::size_t count, cut;
        std::string_view first;
    };
    for (const Row& row : std::initializer_list<Row>{
             {"", 0, 3, ""}, {"abc", 3, 2, "ab"}, {"abc", 3, 0, ""}, {"äöü", 3, 2, "äö"},
             {"a€𝄞b", 4, 3, "a€𝄞"},
             {"e\xCC\x81x", 3, 1, "e"},           // a combining mark is a character of its own
             {"\xE2\x82", 2, 1, "\xE2"},          // cut short: each byte counts
             {"\x80\x80ä", 3, 2, "\x80\x80"},     // stray bytes
             {"\xC0\xAF\xF8z", 4, 3, "\xC0\xAF\xF8"}, // never UTF-8
             {std::string_view("a\0b", 3), 3, 2, std::string_view("a\0", 2)}}) {
        EXPECT_EQ(characterCount(row.text), row.count) << row.text;
        EXPECT_EQ(firstCharacters(row.text, row.cut), row.first) << row.text;
    }
}

TEST(Integer, TextConvertsAsHostsDo)
{
    struct Row {
        const char *text, *value;
    };
    for (const Row& row : std::initializer_list<Row>{
             {"4", "4"}, {" 700 ", "700"}, {"+5", "5"}, {"-2.5", "-2"}, {"2.5", "2"}, {"3.5", "4"}, {".5", "0"},
             {"700.51", "701"}, {"7e2", "700"}, {"2147483647.4", "2147483647"}, {"-2147483648", "-2147483648"},
             {"2147483648", "error 6"}, {"99999999999", "error 6"}, {"1e999", "error 6"}, {"", "error 13"},
             {"x", "error 13"}, {"4x", "error 13"}, {"inf", "error 13"}, {"nan", "error 13"}, {"-", "error 13"},
             {"4 2", "error 13"}}) {
        EXPECT_EQ(test::textOrError([&] { return std::to_string(textToInteger32(row.text)); }), row.value) << row.text;
    }
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
        std::exception_ptr thrown;
        std::int32_t number;
        const char* text;
    };
    for (const Row& row : {Row{std::make_exception_ptr(std::bad_alloc()), 7, "Out of memory"},
                           Row{std::make_exception_ptr(std::out_of_range("row 9")), 9, "row 9"},
                           Row{std::make_exception_ptr(std::bad_cast()), 13, "std::bad_cast"},
                           Row{std::make_exception_ptr(std::runtime_error("gone")), 440, "gone"},
                           Row{std::make_exception_ptr(42), 440, "Automation error"},
                           Row{std::make_exception_ptr(RuntimeError(91, "here")), 91, "Object variable not set"}}) {
        EXPECT_EQ(caught(row.thrown).number(), row.number);
        EXPECT_EQ(caught(row.thrown).text(), row.text);
    }
    EXPECT_EQ(caught(std::make_exception_ptr(RuntimeError(91, "here"))).source(), "here");
    EXPECT_EQ(RuntimeError(0).number(), 5) << "no error cannot be raised";
}

} // namespace
} // namespace orvan
