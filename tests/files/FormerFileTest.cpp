// The file that is replaced and kept: what is there after each replacement, failure and interruption.

#include "orvan/files/FormerFile.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/files/NewFile.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <functional>

#include <sys/stat.h>
#include <unistd.h>

namespace orvan::test {
namespace {

namespace fs = std::filesystem;
using files::NewFile;

class FormerFileTest : public testing::Test {
protected:
    fs::path file() const { return folder / "goods"; }
    fs::path former() const { return folder / "goods.former"; }
    /// The hidden name that a file has during a replacement.
    fs::path aside() const { return folder / (".orvan-former-" + std::to_string(std::hash<std::string>()("goods"))); }

    void replace(std::string_view text) const
    {
        NewFile next(file(), NewFile::Others::refused);
        next.write(text);
        EXPECT_EQ(next.commit(NewFile::Former::kept), "");
    }
    /// "present, former"; "-" for a file that is not there.
    std::string state() const
    {
        const auto kept = files::formerFileOf(file());
        return (fs::exists(file()) ? readText(file()) : "-") + ", " + (kept ? readText(*kept) : "-");
    }

    TemporaryFolder folder;
};

TEST_F(FormerFileTest, IsKeptUntilTheNextReplacementAndSwapped)
{
    EXPECT_THAT(raisedBy([&] { files::swapWithFormer(file()); }).description, testing::HasSubstr("no former"));
    replace("one");
    EXPECT_EQ(state(), "one, -");
    replace("two");
    EXPECT_EQ(state(), "two, one");
    replace("three");
    EXPECT_EQ(state(), "three, two");
    files::swapWithFormer(file());
    EXPECT_EQ(state(), "two, three");
    files::swapWithFormer(file());
    EXPECT_EQ(state(), "three, two");
    fs::remove(file());
    files::swapWithFormer(file());
    EXPECT_EQ(state(), "two, -");
    EXPECT_EQ(folder.count(), 1) << "nothing else is left behind";
}

TEST_F(FormerFileTest, AReplacementThatIsInterruptedOrFailsLosesNothing)
{
    struct Row {
        const char* name;
        std::function<void()> interrupt;
        const char* found;    ///< The state after the interruption.
        const char* swapped;  ///< The state if a swap follows.
        const char* replaced; ///< The state if a replacement follows.
    };
    const Row rows[] = {
        {"interrupted before the new file had the name", [&] { fs::create_hard_link(file(), aside()); }, "now, old",
         "old, now", "next, now"},
        {"interrupted after that", [&] { fs::rename(file(), aside()), writeText(file(), "newer"); }, "newer, now",
         "now, newer", "next, newer"},
        {"not interrupted", [] {}, "now, old", "old, now", "next, now"},
        {"the former file is the present one", [&] { fs::remove(former()), fs::create_hard_link(file(), former()); },
         "now, now", "now, now", "next, now"},
    };
    forEachRow(rows, [&](const Row& row) {
        const auto prepare = [&] {
            fs::remove(aside());
            writeText(file(), "now");
            fs::remove(former());
            writeText(former(), "old");
            row.interrupt();
        };
        prepare();
        EXPECT_EQ(state(), row.found);
        {
            const NewFile other(file());
            EXPECT_THAT(raisedBy([&] { files::swapWithFormer(file()); }).description,
                        testing::HasSubstr("another program"));
            EXPECT_EQ(state(), row.found);
        }
        files::swapWithFormer(file());
        EXPECT_EQ(state(), row.swapped);
        fs::remove(file());
        prepare();
        replace("next");
        EXPECT_EQ(state(), row.replaced);
        EXPECT_EQ(folder.count(), 2);
    });
}

TEST_F(FormerFileTest, WhereTheFormerCannotStandNothingIsReplacedOrItKeepsItsHiddenName)
{
    replace("one");
    fs::create_directory(aside()); // so that the second name cannot be given, as on a full disk
    NewFile next(file(), NewFile::Others::refused);
    EXPECT_EQ(raisedBy([&] { static_cast<void>(next.commit(NewFile::Former::kept)); }).number, 75);
    EXPECT_EQ(state(), "one, -");
    fs::remove(aside());
    fs::create_directory(former());
    EXPECT_EQ(next.commit(NewFile::Former::kept), "");
    EXPECT_EQ(state(), ", one");
    NewFile later(file(), NewFile::Others::refused);
    later.write("two");
    EXPECT_EQ(later.commit(NewFile::Former::kept), "");
    EXPECT_EQ(state(), "two, ") << "the former one is the one before this replacement";
    EXPECT_EQ(raisedBy([&] { files::swapWithFormer(file()); }).number, 75);
}

TEST_F(FormerFileTest, ALongNameAndALinkHaveOneToo)
{
    const fs::path longest = folder / std::string(255, 'n');
    writeText(longest, "old");
    fs::create_symlink(longest, folder / "link");
    {
        NewFile next(folder / "link", NewFile::Others::refused);
        EXPECT_EQ(next.commit(NewFile::Former::kept), "");
    }
    EXPECT_EQ(readText(files::formerFileOf(folder / "link").value()), "old");
    EXPECT_EQ(readText(files::formerFileOf(longest).value()), "old");
}

} // namespace
} // namespace orvan::test
