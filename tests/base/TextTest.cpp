#include "base/Integer.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

#include <gtest/gtest.h>

#include <new>
#include <string>

namespace orvan {
namespace {

TEST(Text, IsCountedAndCutInCodePoints)
{
    struct Row {
        std::string_view text;
        std::size_t count;
        std::size_t cut;
        std::string_view first;
    };
    for (const Row& row : std::initializer_list<Row>{
             {"", 0, 3, ""},
             {"abc", 3, 2, "ab"},
             {"abc", 3, 0, ""},
             {"äöü", 3, 2, "äö"},
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
        const char* text;
        std::int32_t value;
        std::int32_t error;
    };
    for (const Row& row : std::initializer_list<Row>{
             {"4", 4, 0}, {" 700 ", 700, 0}, {"+5", 5, 0}, {"-2.5", -2, 0}, {"2.5", 2, 0}, {"3.5", 4, 0},
             {".5", 0, 0}, {"700.51", 701, 0}, {"7e2", 700, 0}, {"2147483647.4", 2147483647, 0},
             {"-2147483648", -2147483647 - 1, 0}, {"2147483648", 0, 6}, {"99999999999", 0, 6}, {"1e999", 0, 6},
             {"", 0, 13}, {"x", 0, 13}, {"4x", 0, 13}, {"inf", 0, 13}, {"nan", 0, 13}, {"-", 0, 13}, {"4 2", 0, 13}}) {
        std::int32_t error = 0;
        std::int32_t value = 0;
        try {
            value = textToInteger32(row.text);
        } catch (const RuntimeError& raised) {
            error = raised.number();
        }
        EXPECT_EQ(value, row.value) << '"' << row.text << '"';
        EXPECT_EQ(error, row.error) << '"' << row.text << '"';
    }
}

template <class Thrown>
RuntimeError caught(const Thrown& thrown)
{
    try {
        throw thrown;
    } catch (...) {
        return currentError();
    }
}

TEST(RuntimeError, WhateverIsThrownArrivesAsANumber)
{
    EXPECT_EQ(caught(std::bad_alloc()).number(), 7);
    EXPECT_EQ(caught(std::out_of_range("row 9")).number(), 9);
    EXPECT_EQ(caught(std::bad_cast()).number(), 13);
    EXPECT_EQ(caught(std::runtime_error("gone")).number(), 440);
    EXPECT_EQ(caught(std::runtime_error("gone")).text(), "gone");
    EXPECT_EQ(caught(42).number(), 440);
    const RuntimeError same = caught(RuntimeError(91, "here"));
    EXPECT_EQ(same.number(), 91);
    EXPECT_EQ(same.source(), "here");
    EXPECT_EQ(same.text(), "Object variable not set");
    EXPECT_EQ(RuntimeError(0).number(), 5) << "no error cannot be raised";
}

} // namespace
} // namespace orvan
