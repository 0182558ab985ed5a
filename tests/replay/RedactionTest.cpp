// A redacted recording replays as the original did, and has none of its words.

#include "tests/contract/HeadlessDriver.h"
#include "tests/replay/RandomSession.h"
#include "tests/support/Raised.h"
#include "tests/support/TemporaryFolder.h"

#include "orvan/base/Text.h"
#include "orvan/files/Descriptor.h"
#include "orvan/replay/Redaction.h"
#include "orvan/replay/Replay.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace orvan::replay {
namespace {

using ::testing::HasSubstr;

TEST(TextMaskTest, KeepsKindsAndBeginnings)
{
    const TextMask mask(7);
    const std::string text = "Mountain-500 Äpfel, Ёлка 3½\n日本";
    const std::string masked = mask.masked(text);
    EXPECT_NE(masked, text);
    EXPECT_EQ(masked, TextMask(7).masked(text));
    EXPECT_NE(masked, TextMask(8).masked(text));
    ASSERT_EQ(characterCount(masked), characterCount(text));
    for (std::size_t i = 0, j = 0; i < text.size(); i += characterSize(text, i), j += characterSize(masked, j)) {
        const char32_t before = characterAt(text, i);
        const char32_t after = characterAt(masked, j);
        const auto kind = [](char32_t c) {
            return c >= U'a' && c <= U'z'   ? 1
                   : c >= U'A' && c <= U'Z' ? 2
                   : c >= U'0' && c <= U'9' ? 3
                   : c < 0x80               ? 4
                                            : 5;
        };
        EXPECT_EQ(kind(before), kind(after));
        EXPECT_TRUE(kind(before) != 4 || before == after);
    }
    EXPECT_EQ(mask.masked("Mountain").substr(0, 5), mask.masked("Mountbike").substr(0, 5));
    EXPECT_EQ(mask.masked("mOUNT"), [&] {
        std::string swapped = mask.masked("Mount");
        std::for_each(swapped.begin(), swapped.end(), [](char& c) { c = static_cast<char>(c ^ 0x20); });
        return swapped;
    }());
}

TEST(TextMaskTest, GivesDifferentTextsToDifferentOnes)
{
    const TextMask mask(9);
    std::set<std::string> seen;
    for (char c = 'a'; c <= 'z'; ++c) {
        seen.insert(mask.masked(std::string("ab") + c));
    }
    EXPECT_EQ(seen.size(), 26U);
}

TEST(RedactionTest, OfRandomSessionsReplaysAlikeWithoutTheirWords)
{
    const test::TemporaryFolder folder;
    unsigned refused = 0;
    for (unsigned seed = 1; seed <= 20; ++seed) {
        const auto file = folder.path() / std::to_string(seed);
        {
            contract::HeadlessDriver driver;
            RandomSession(driver,
                          {.seed = seed, .editing = seed % 2 == 0 ? ui::EditingWay::careful : ui::EditingWay::classic},
                          file)
                .run();
        }
        const std::string original = files::Descriptor::openRegular(file).readAll();
        try {
            const std::string text = redacted(original, seed);
            EXPECT_EQ(replayInMemory(RecordedLines(text)).end, ReplayResult::End::same) << seed;
            for (const char* const word : {"Desk", "Lamp", "Chair", "Regal", "Stuhl", "Zeilen"}) {
                EXPECT_THAT(text, ::testing::Not(HasSubstr(word))) << seed;
            }
        } catch (const RuntimeError& error) {
            ++refused;
            std::cout << "seed " << seed << ": " << error.text().substr(0, 600) << '\n';
        }
    }
    EXPECT_EQ(refused, 0U);
}

TEST(RedactionTest, TakesProductsThatAreCalledAsTheWordsOfTheFormat)
{
    std::string text = files::Descriptor::openRegular(std::filesystem::path(ORVAN_SOURCE_ROOT) /
                                                      "tests/replay/recordings/typical-edit.recording")
                           .readAll();
    for (std::size_t at = text.find("Desk"); at != std::string::npos; at = text.find("Desk", at)) {
        text.replace(at, 4, "Null list call");
    }
    const std::string made = redacted(text, 3);
    EXPECT_THAT(made, HasSubstr("= null\n"));
    EXPECT_THAT(made, HasSubstr("= \"list\" "));
    EXPECT_THAT(made, ::testing::Not(HasSubstr("Null")));
}

TEST(RedactionTest, RefusesWhatDoesNotReplay)
{
    const std::string text = recording::headingText({.libraryVersion = "2.1", .maxDataSize = 1000}) +
                             "\n+0 1 - created 0 0 \"\"\n  enter KTVOrvanProduct.Nobody::Knows\n";
    const auto error = test::raisedBy([&] { static_cast<void>(redacted(text, 1)); });
    EXPECT_EQ(error.number, 321);
    EXPECT_THAT(error.description, HasSubstr("the recording does not replay as it was recorded"));
}

} // namespace
} // namespace orvan::replay
