// Files read and replaced as a whole: what is refused, what stays, and what a crash leaves behind.

#include "orvan/base/RuntimeError.h"
#include "orvan/files/NewFile.h"
#include "orvan/files/WholeFile.h"
#include "tests/support/Rows.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>

#include <sys/stat.h>
#include <unistd.h>

namespace orvan::test {
namespace {

namespace fs = std::filesystem;
using files::NewFile;

constexpr std::int64_t kMost = 1 << 20;

/// The text of the error that an action raises; "" for none.
std::string problemOf(const std::function<void()>& action)
{
    try {
        action();
        return {};
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), ErrorNumber::pathFileAccess);
        return std::string(error.text());
    }
}

void replace(const fs::path& file, std::string_view text)
{
    EXPECT_EQ(files::replaceFile(file, text).warning, "");
}

TEST(ReplaceFile, KeepsPermissionsLinksAndTheLongestName)
{
    const TemporaryFolder folder;
    const fs::path file = folder / "quote";
    replace(file, "one");
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink(file, folder / "link");
    replace(folder / "link", "two");
    EXPECT_EQ(readText(file), "two");
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);

    const fs::path longest = folder / std::string(255, 'n');
    replace(longest, "long");
    EXPECT_EQ(readText(longest), "long");
    EXPECT_EQ(folder.count(), 3);
}

TEST(ReplaceFile, RefusesWhatIsNoFile)
{
    const TemporaryFolder folder;
    fs::create_symlink(folder / "nowhere", folder / "dangling");
    fs::create_directory(folder / "folder");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    const struct {
        const char* name;
        fs::path file;
        const char* atReading;
        const char* atReplacing;
    } rows[] = {
        {"a link to nowhere", folder / "dangling", "No such file or directory", "it is a link that leads nowhere"},
        {"a folder", folder / "folder", "it is a folder", "there is something else of this name"},
        {"a pipe without a writer", folder / "pipe", "it is a pipe", "there is something else of this name"},
        {"a device", "/dev/null", "it is a device", nullptr},
        {"a name in a folder that is not there", folder / "none" / "file", "No such file or directory",
         "No such file or directory"},
    };
    forEachRow(rows, [&](const auto& row) {
        EXPECT_EQ(problemOf([&] { static_cast<void>(files::readFile(row.file, kMost)); }), row.atReading);
        if (row.atReplacing) {
            EXPECT_EQ(problemOf([&] { static_cast<void>(files::replaceFile(row.file, "text")); }), row.atReplacing);
        }
    });
    EXPECT_EQ(folder.count(), 3); // nothing new was left behind
    EXPECT_TRUE(fs::is_symlink(folder / "dangling"));
}

TEST(ReplaceFile, StampTellsOtherContentAndNothingElse)
{
    const TemporaryFolder folder;
    const fs::path file = folder / "quote";
    EXPECT_EQ(files::currentStamp(file, kMost), std::nullopt);
    const files::FileStamp written = files::replaceFile(file, "one").stamp;
    EXPECT_TRUE(written.sameContent(files::readFile(file, kMost).stamp));
    replace(file, "one");
    EXPECT_TRUE(written.sameContent(*files::currentStamp(file, kMost)));
    replace(file, "two");
    EXPECT_FALSE(written.sameContent(*files::currentStamp(file, kMost)));
    EXPECT_EQ(problemOf([&] { static_cast<void>(files::readFile(file, 2)); }), "it is larger than 0 MiB");
}

TEST(NewFile, LeavesTheOldFileUnlessCommitted)
{
    const TemporaryFolder folder;
    const fs::path file = folder / "catalogue";
    writeText(file, "old");
    {
        NewFile unfinished(file);
        unfinished.write("new");
    }
    EXPECT_EQ(readText(file), "old");
    EXPECT_EQ(folder.count(), 1);
}

TEST(NewFile, RemovesWhatACrashLeftAndNobodyElsesFile)
{
    const TemporaryFolder folder;
    const fs::path file = folder / "catalogue";
    const fs::path leftover = NewFile(file).path(); // removed with the object
    writeText(leftover, "half");
    writeText(folder / "catalogue.importing", "a file of the user's");
    NewFile other(file);
    NewFile another(file); // at the same time
    EXPECT_FALSE(fs::exists(leftover));
    EXPECT_TRUE(fs::exists(other.path()));
    EXPECT_EQ(readText(folder / "catalogue.importing"), "a file of the user's");
    EXPECT_EQ(problemOf([&] { NewFile refused(file, NewFile::Others::refused); }), "another program is replacing it");

    const fs::path ofAnother = NewFile(folder / "another name").path();
    writeText(ofAnother, "half");
    files::removeUnfinishedFiles(folder.path());
    EXPECT_FALSE(fs::exists(ofAnother));
    EXPECT_TRUE(fs::exists(other.path()) && fs::exists(another.path())) << "they are being written";
    EXPECT_EQ(readText(folder / "catalogue.importing"), "a file of the user's");
    files::removeUnfinishedFiles(folder / "none");
}

} // namespace
} // namespace orvan::test
