#include "orvan/base/Text.h"
#include "orvan/base/Integer.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"

#include <gtest/gtest.h>

#include <new>

namespace orvan {
namespace {

using test::Rows;

TEST(Text, IsCountedAndCutInCodePoints)
{
    for (const auto& [text, count, cut, first] : Rows<std::string_view, std::size_t, std::size_t, std::string_view>{
             {"", 0, 3, ""},
             {"abc", 3, 2, "ab"},
             {"abc", 3, 0, ""},
             {"äöü", 3, 2, "äö"},
             {"a€𝄞b", 4, 3, "a€𝄞"},
             {"e\xCC\x81x", 3, 1, "e"},               // a combining mark is a character of its own
             {"\xE2\x82", 2, 1, "\xE2"},              // cut short: each byte counts
             {"\x80\x80ä", 3, 2, "\x80\x80"},         // stray bytes
             {"\xC0\xAF\xF8z", 4, 3, "\xC0\xAF\xF8"}, // never UTF-8
             {std::string_view("a\0b", 3), 3, 2, std::string_view("a\0", 2)}}) {
        EXPECT_EQ(characterCount(text), count) << text;
        EXPECT_EQ(firstCharacters(text, cut), first) << text;
    }
}

TEST(Integer, TextConvertsAsHostsDo)
{
    for (const auto& [text, value] : Rows<const char*, const char*>{{"4", "4"},
                                                                    {" 700 ", "700"},
                                                                    {"+5", "5"},
                                                                    {"-2.5", "-2"},
                                                                    {"2.5", "2"},
                                                                    {"3.5", "4"},
                                                                    {".5", "0"},
                                                                    {"700.51", "701"},
                                                                    {"7e2", "700"},
                                                                    {".5e+1", "5"},
                                                                    {"25e-1", "2"},
                                                                    {"2.5000000000000001", "2"},
                                                                    {"2.5000000000000004", "3"},
                                                                    {"0e999", "0"},
                                                                    {"1e-999", "error 6"},
                                                                    {"7e", "error 13"},
                                                                    {"7e+-2", "error 13"},
                                                                    {"1,5", "error 13"},
                                                                    {".", "error 13"},
                                                                    {"2147483647.4", "2147483647"},
                                                                    {"-2147483648", "-2147483648"},
                                                                    {"2147483648", "error 6"},
                                                                    {"99999999999", "error 6"},
                                                                    {"1e999", "error 6"},
                                                                    {"", "error 13"},
                                                                    {"x", "error 13"},
                                                                    {"4x", "error 13"},
                                                                    {"inf", "error 13"},
                                                                    {"nan", "error 13"},
                                                                    {"-", "error 13"},
                                                                    {"4 2", "error 13"}}) {
        EXPECT_EQ(test::textOrError([&it = text] { return std::to_string(textToInteger32(it)); }), value) << text;
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
    for (const auto& [thrown, number, text] : Rows<std::exception_ptr, std::int32_t, const char*>{
             {std::make_exception_ptr(std::bad_alloc()), 7, "Out of memory"},
             {std::make_exception_ptr(std::out_of_range("row 9")), 9, "row 9"},
             {std::make_exception_ptr(std::bad_cast()), 13, "std::bad_cast"},
             {std::make_exception_ptr(std::runtime_error("gone")), 440, "gone"},
             {std::make_exception_ptr(42), 440, "Automation error"},
             {std::make_exception_ptr(RuntimeError(91, "here")), 91, "Object variable not set"}}) {
        EXPECT_EQ(caught(thrown).number(), number);
        EXPECT_EQ(caught(thrown).text(), text);
    }
    EXPECT_EQ(caught(std::make_exception_ptr(RuntimeError(91, "here"))).source(), "here");
    EXPECT_EQ(RuntimeError(0).number(), 5) << "no error cannot be raised";
}

} // namespace
} // namespace orvan
