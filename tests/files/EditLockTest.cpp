// Locks that tell who has a file open: held, taken over from the dead, and given back.

#include "orvan/files/EditLock.h"
#include "orvan/files/ProcessIdentity.h"
#include "tests/support/Rows.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

namespace orvan::test {
namespace {

namespace fs = std::filesystem;
using files::EditLock;

/// A lock as another program has written it.
void writeLock(const fs::path& file, const std::string& host, std::int64_t process, const std::string& identity)
{
    writeText(EditLock::pathFor(file),
              "orvan-lock 1\nanna\n" + host + "\n" + std::to_string(process) + "\n" + identity + "\n1700000000\n");
}

TEST(EditLock, IsHeldByOneAndGivenBack)
{
    const TemporaryFolder folder;
    const fs::path file = folder / "quote";
    {
        const EditLock first(file);
        EXPECT_TRUE(first.held());
        const EditLock second(file);
        EXPECT_FALSE(second.held());
        ASSERT_TRUE(second.holder());
        EXPECT_EQ(second.holder()->process, ::getpid());
        EXPECT_EQ(second.holder()->user, files::userName());
    }
    EXPECT_EQ(folder.count(), 0);
    EXPECT_TRUE(EditLock(file).held());
}

TEST(EditLock, IsTakenOverFromTheDeadOnly)
{
    const pid_t ended = ::fork();
    if (ended == 0) {
        ::_exit(0);
    }
    ::waitpid(ended, nullptr, 0);
    const std::string host = files::hostName();
    const std::string own = files::processIdentity(::getpid());
    const struct {
        const char* name;
        std::string host;
        std::int64_t process;
        std::string identity;
        bool dead;
    } rows[] = {
        {"a process that has ended", host, ended, "boot/1", true},
        {"a process number that another one has now", host, ::getpid(), "boot/1", true},
        {"a process that runs", host, ::getpid(), own, false},
        {"a process of another host", "elsewhere", ended, "boot/1", false},
    };
    forEachRow(rows, [&](const auto& row) {
        const TemporaryFolder folder;
        const fs::path file = folder / "quote";
        writeLock(file, row.host, row.process, row.identity);
        const EditLock lock(file);
        EXPECT_EQ(lock.held(), row.dead);
        const auto& told = row.dead ? lock.deadHolder() : lock.holder();
        EXPECT_TRUE(told && told->user == "anna" && told->since == 1'700'000'000);
        EXPECT_TRUE(EditLock(file, true).held() || row.dead); // on the user's word also from the living
    });
}

TEST(EditLock, LosesNoLockThatSomebodyElseHasTakenOver)
{
    const TemporaryFolder folder;
    const fs::path file = folder / "quote";
    {
        const EditLock lost(file);
        const fs::path path = EditLock::pathFor(file);
        fs::remove(path);
        writeLock(file, "elsewhere", 1, "");
    }
    EXPECT_EQ(EditLock(file).holder()->host, "elsewhere");
    EXPECT_EQ(folder.count(), 1);
}

TEST(EditLock, IsNoneWhereNothingCanBeWritten)
{
    const EditLock lock("/proc/quote");
    EXPECT_FALSE(lock.held());
    EXPECT_FALSE(lock.holder());
}

TEST(EditLock, DamagedFileOfItsNameIsReplaced)
{
    const TemporaryFolder folder;
    const fs::path file = folder / std::string(250, 'n');
    writeText(EditLock::pathFor(file), "");
    const EditLock lock(file);
    EXPECT_TRUE(lock.held());
    EXPECT_EQ(folder.count(), 1);
}

} // namespace
} // namespace orvan::test
