#include "orvan/files/NewFile.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/files/FormerFile.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <random>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace orvan::files {

namespace {

namespace fs = std::filesystem;

constexpr mode_t kAnyone = 0666; // the user's umask removes some of these permissions
constexpr mode_t kPermissions = 07777;
constexpr int kAttempts = 100;
constexpr std::string_view kPrefix = ".orvan-new-";

std::string hexadecimal(std::uint64_t value)
{
    char text[17] = {};
    std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(value));
    return text;
}

/// The beginning of the names of all new files for a target. Its length is always the same, so that a target can be
/// replaced even if its own name has 255 bytes, the most that a file system takes.
std::string namePrefix(const fs::path& target)
{
    return std::string(kPrefix) + hexadecimal(std::hash<std::string>()(target.filename().string())) + "-";
}

bool lock(const Descriptor& file)
{
    return ::flock(file.get(), LOCK_EX | LOCK_NB) == 0;
}

/// Removes a new file whose program has ended without finishing it. Returns false if its program still runs.
bool removeUnlessInUse(const fs::path& path)
{
    const Descriptor file = Descriptor::tryOpen(path, O_RDWR | O_NOFOLLOW | O_NONBLOCK);
    if (!file) {
        return true; // it has been removed meanwhile, or belongs to another user
    }
    if (lock(file)) {
        ::unlink(path.c_str());
        return true;
    }
    return errno != EWOULDBLOCK;
}

} // namespace

fs::path resolvedTarget(const fs::path& target)
{
    std::error_code error;
    const fs::path absolute = fs::absolute(target);
    if (fs::is_symlink(fs::symlink_status(absolute, error))) {
        fs::path real = fs::canonical(absolute, error);
        if (error == std::errc::too_many_symbolic_link_levels) {
            throw RuntimeError(ErrorNumber::pathFileAccess, {}, error.message());
        }
        if (error) {
            throw RuntimeError(ErrorNumber::pathFileAccess, {}, userText("it is a link that leads nowhere"));
        }
        return real;
    }
    return fs::weakly_canonical(absolute.parent_path()) / absolute.filename();
}

NewFile::NewFile(const fs::path& target, Others others) : target_(resolvedTarget(target))
{
    const std::string prefix = namePrefix(target_);
    std::random_device random;
    bool locked = false;
    for (int attempt = 0; !file_; ++attempt) {
        const std::uint64_t number = std::uint64_t{random()} << 32 | random();
        path_ = target_.parent_path() / (prefix + hexadecimal(number));
        // With O_EXCL the call follows no link and fails if the file exists.
        file_ = Descriptor::tryOpen(path_, O_RDWR | O_CREAT | O_EXCL, kAnyone);
        if (!file_ && (errno != EEXIST || attempt >= kAttempts)) {
            raiseSystemError(errno);
        }
        // The lock tells other programs that the file is in use. On a file system without locks, no program removes the
        // unfinished files of another one; everything else works there, too.
        locked = file_ && lock(file_);
        // Before the lock was taken, another program may have found the file unlocked, and have removed it as one that
        // a killed program has left.
        if (file_ && attempt < kAttempts && ((!locked && errno == EWOULDBLOCK) || file_.status().st_nlink == 0)) {
            ::unlink(path_.c_str());
            file_ = Descriptor();
        }
    }
    if (locked) {
        try {
            removeLeftovers(prefix, others);
        } catch (...) {
            ::unlink(path_.c_str());
            throw;
        }
    }
}

NewFile::~NewFile()
{
    if (!committed_) {
        ::unlink(path_.c_str()); // before the lock ends, so that no other program takes it for a leftover
    }
}

void NewFile::removeLeftovers(const std::string& prefix, Others others)
{
    std::error_code error;
    for (fs::directory_iterator entry(target_.parent_path(), error), end; !error && entry != end;
         entry.increment(error)) {
        if (entry->path() == path_ || !entry->path().filename().string().starts_with(prefix)) {
            continue;
        }
        if (!removeUnlessInUse(entry->path()) && others == Others::refused) {
            throw RuntimeError(ErrorNumber::pathFileAccess, {}, userText("another program is replacing it"));
        }
    }
}

void removeUnfinishedFiles(const fs::path& folder)
{
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (entry->path().filename().string().starts_with(kPrefix)) {
            static_cast<void>(removeUnlessInUse(entry->path()));
        }
    }
}

void NewFile::write(std::string_view bytes)
{
    file_.write(bytes);
}

UserText NewFile::commit(Former former)
{
    struct stat old = {};
    const bool replaces = ::stat(target_.c_str(), &old) == 0;
    if (replaces) {
        if (!S_ISREG(old.st_mode)) {
            throw RuntimeError(ErrorNumber::pathFileAccess, {}, userText("there is something else of this name"));
        }
        file_.setPermissions(old.st_mode & kPermissions);
    } else if (errno != ENOENT) {
        raiseSystemError(errno);
    }
    file_.sync();
    if (replaces && former == Former::kept) {
        replaceKeepingFormer(path_, target_);
    } else if (::rename(path_.c_str(), target_.c_str()) != 0) {
        raiseSystemError(errno);
    }
    committed_ = true;
    try {
        Descriptor::openFolder(target_.parent_path()).sync();
    } catch (const RuntimeError& error) {
        return userText("It has been written, but a power failure now could bring the former one back: %1.",
                        error.userText());
    }
    return {};
}

} // namespace orvan::files
