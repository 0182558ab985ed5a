#include "orvan/base/UserText.h"
#include "orvan/base/RuntimeError.h"
#include "tests/support/Rows.h"

#include <map>

namespace orvan {
namespace {

using test::forEachRow;

/// A language with other word orders, and a form of its own for two.
std::optional<std::string> translate(std::string_view english, std::optional<std::int64_t> count)
{
    static const std::map<std::string_view, std::string> sentences = {
        {"%1 of %2", "von %2 die %1"},
        {"it is a pipe", "eine Röhre"},
        {"cannot be read: %1", "nicht lesbar: %1"},
        {"%n products from %1", "%1: %n Artikel"},
        {"Save", "Sichern"},
    };
    if (english == "%n products from %1" && count == 2) {
        return "%1: ein Paar";
    }
    const auto found = sentences.find(english);
    return found == sentences.end() ? std::nullopt : std::optional(found->second);
}

TEST(UserText, IsPutTogetherInEachLanguage)
{
    struct Row {
        const char* name;
        UserText text;
        const char *english, *translated;
    };
    const auto counted = [](std::int64_t count) {
        return countedText(count, "1 product from %1", "%n products from %1", {"a"});
    };
    const Row rows[] = {
        {"nothing", {}, "", ""},
        {"parts in another order", userText("%1 of %2", 3, "x"), "3 of x", "von x die 3"},
        {"a part that looks like a place", userText("%1 of %2", "%2", "%1"), "%2 of %1", "von %1 die %2"},
        {"a part that is data, though it reads like a text", userText("%1 of %2", "Save", 2), "Save of 2",
         "von 2 die Save"},
        {"a text in a text", userText("cannot be read: %1", userText("it is a pipe")), "cannot be read: it is a pipe",
         "nicht lesbar: eine Röhre"},
        {"one behind the other", userText("Save") + "\n" + userText("it is a pipe"), "Save\nit is a pipe",
         "Sichern\neine Röhre"},
        {"no translation", userText("%1 % %9 %", 1), "1 % %9 %", "1 % %9 %"},
        {"one", counted(1), "1 product from a", "a: 1 Artikel"},
        {"two", counted(2), "2 products from a", "a: ein Paar"},
        {"none", counted(0), "0 products from a", "a: 0 Artikel"},
    };
    forEachRow(rows, [](const Row& row) {
        EXPECT_EQ(row.text.english(), row.english);
        EXPECT_EQ(row.text.in(translate), row.translated);
    });
}

TEST(UserText, AnErrorHasItsTextInBothLanguages)
{
    const RuntimeError error(ErrorNumber::pathFileAccess, {}, userText("it is a pipe"));
    EXPECT_EQ(error.text(), "it is a pipe");
    EXPECT_EQ(error.userText().in(translate), "eine Röhre");
    EXPECT_EQ(RuntimeError(ErrorNumber::overflow).userText().english(), "Overflow");
}

} // namespace
} // namespace orvan
