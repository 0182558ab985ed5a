#include "orvan/files/FormerFile.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/files/NewFile.h"

#include <cerrno>
#include <functional>
#include <string>
#include <system_error>

#include <unistd.h>

namespace orvan::files {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSuffix = ".former";
constexpr std::size_t kLongestName = 255; ///< Bytes; the most that file systems take.

std::string hashOf(const fs::path& target)
{
    return std::to_string(std::hash<std::string>()(target.filename().string()));
}

fs::path formerPath(const fs::path& target)
{
    const std::string name = target.filename().string().append(kSuffix);
    return target.parent_path() / (name.size() > kLongestName ? hashOf(target).append(kSuffix) : name);
}

/// The hidden second name of the present file during a replacement.
fs::path asidePath(const fs::path& target)
{
    return target.parent_path() / (".orvan-former-" + hashOf(target));
}

/// Whether two names are those of one file.
bool areOne(const fs::path& one, const fs::path& other)
{
    struct stat a = {}, b = {};
    return ::stat(one.c_str(), &a) == 0 && ::stat(other.c_str(), &b) == 0 && a.st_dev == b.st_dev &&
           a.st_ino == b.st_ino;
}

bool isFile(const fs::path& path)
{
    std::error_code error;
    return fs::is_regular_file(path, error);
}

/// Gives the present file its second name. Where the file system has no second names, a copy gets that name.
void setAside(const fs::path& target, const fs::path& aside)
{
    // Something may have this name that could not become the former file, because a folder has its name. It was kept
    // until this replacement.
    ::unlink(aside.c_str());
    if (::link(target.c_str(), aside.c_str()) == 0) {
        return;
    }
    if (errno != EPERM && errno != EOPNOTSUPP && errno != ENOSYS && errno != EMLINK) {
        raiseSystemError(errno);
    }
    NewFile copy(aside);
    std::error_code error;
    fs::copy_file(target, copy.path(), fs::copy_options::overwrite_existing, error);
    if (error) {
        raiseSystemError(error.value());
    }
    static_cast<void>(copy.commit());
}

/// Makes the file with the hidden name the former one. If that fails, it keeps the hidden name, and formerFileOf
/// finds it there.
void makeFormer(const fs::path& aside, const fs::path& target)
{
    if (::rename(aside.c_str(), formerPath(target).c_str()) == 0) {
        ::unlink(aside.c_str()); // rename does nothing if both names are those of one file
    }
}

/// Finishes a replacement that was interrupted.
void finishFormerReplacement(const fs::path& target)
{
    const fs::path aside = asidePath(target);
    if (areOne(aside, target)) {
        ::unlink(aside.c_str()); // it was interrupted before the new file had taken the name
    } else if (isFile(aside)) {
        makeFormer(aside, target);
    }
}

void flushFolderOf(const fs::path& target)
{
    try {
        Descriptor::openFolder(target.parent_path()).sync();
    } catch (const RuntimeError&) {
        // Only a power failure could undo the change now, and would bring back the state before the change.
    }
}

} // namespace

std::optional<fs::path> formerFileOf(const fs::path& file)
{
    const fs::path target = resolvedTarget(file);
    const fs::path aside = asidePath(target);
    if (isFile(aside) && !areOne(aside, target)) {
        return aside;
    }
    const fs::path former = formerPath(target);
    return isFile(former) ? std::optional(former) : std::nullopt;
}

void replaceKeepingFormer(const fs::path& next, const fs::path& target)
{
    finishFormerReplacement(target);
    const fs::path aside = asidePath(target);
    setAside(target, aside);
    flushFolderOf(target);
    if (::rename(next.c_str(), target.c_str()) != 0) {
        const int code = errno;
        ::unlink(aside.c_str());
        raiseSystemError(code);
    }
    makeFormer(aside, target);
}

void swapWithFormer(const fs::path& file)
{
    const NewFile turn(file, NewFile::Others::refused); // while it exists, no other program replaces the file
    const fs::path& target = turn.target();
    finishFormerReplacement(target);
    const fs::path former = formerPath(target);
    if (!isFile(former)) {
        const bool kept = formerFileOf(file).has_value(); // under its hidden name
        throw RuntimeError(ErrorNumber::pathFileAccess, {},
                           kept ? userText("something that is no file has the former one's name")
                                : userText("there is no former one"));
    }
    if (isFile(target)) {
        replaceKeepingFormer(former, target);
    } else if (::rename(former.c_str(), target.c_str()) != 0) {
        raiseSystemError(errno);
    }
    flushFolderOf(target);
}

} // namespace orvan::files
