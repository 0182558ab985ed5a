#include "orvan/components/catalogue/FileReplacement.h"

#include "orvan/components/catalogue/SqliteFile.h"

#include "orvan/base/RuntimeError.h"

#include <cerrno>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvan {

namespace {

constexpr mode_t kAnyone = 0666; // the user's umask removes some of these permissions

/// Whether the file that is open still has this name: another process may just have renamed or removed it.
bool isNamed(int descriptor, const std::filesystem::path& file)
{
    struct stat open = {}, named = {};
    return ::fstat(descriptor, &open) == 0 && ::stat(file.c_str(), &named) == 0 && open.st_dev == named.st_dev &&
           open.st_ino == named.st_ino;
}

} // namespace

FileReplacement::FileReplacement(const std::filesystem::path& file)
    : file_(std::filesystem::weakly_canonical(file)), newFile_(file_)
{
    newFile_ += ".importing";
    lock_ = ::open(newFile_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kAnyone);
    if (lock_ < 0) {
        raise("no new file can be made in its directory");
    }
    if (::flock(lock_, LOCK_EX | LOCK_NB) != 0 || !isNamed(lock_, newFile_)) {
        ::close(lock_);
        raiseCatalogueError(ErrorNumber::pathFileAccess, file_, "another import into it is running");
    }
    if (::ftruncate(lock_, 0) != 0) {
        const int code = errno;
        ::close(lock_);
        errno = code;
        raise("its new file cannot be written");
    }
}

FileReplacement::~FileReplacement()
{
    if (lock_ >= 0) {
        ::unlink(newFile_.c_str()); // before the lock is released, because then another import may use the name
        ::close(lock_);
    }
}

void FileReplacement::commit()
{
    struct stat old = {};
    const bool replaces = ::stat(file_.c_str(), &old) == 0;
    if ((replaces && ::fchmod(lock_, old.st_mode & 07777) != 0) || ::fsync(lock_) != 0) {
        raise("its new file cannot be written");
    }
    if (::rename(newFile_.c_str(), file_.c_str()) != 0) {
        raise("its new file cannot take its place");
    }
    ::close(lock_);
    lock_ = -1;
    // This makes the new name survive a power cut, too. The replacement has not failed if it cannot be done.
    if (const int directory = ::open(file_.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); directory >= 0) {
        ::fsync(directory);
        ::close(directory);
    }
}

void FileReplacement::raise(const char* doing) const
{
    const std::string reason = std::system_category().message(errno);
    raiseCatalogueError(ErrorNumber::pathFileAccess, file_, std::string(doing).append(" (").append(reason).append(")"));
}

} // namespace orvan
