#include "orvan/files/Descriptor.h"

#include "orvan/base/RuntimeError.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace orvan::files {

namespace {

/// Makes a system call again for as long as signals interrupt it.
template <class Call>
auto uninterrupted(Call&& call)
{
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

/// The most bytes that one call of the system is given. The system itself takes no more than 2 GiB.
constexpr std::size_t kMostAtOnce = std::size_t{1} << 30;

UserText kindOf(mode_t mode)
{
    return S_ISDIR(mode)    ? userText("it is a folder")
           : S_ISFIFO(mode) ? userText("it is a pipe")
           : S_ISSOCK(mode) ? userText("it is a socket")
                            : userText("it is a device");
}

void refuseUnlessRegular(mode_t mode)
{
    if (!S_ISREG(mode)) {
        throw RuntimeError(ErrorNumber::pathFileAccess, {}, kindOf(mode));
    }
}

} // namespace

void raiseSystemError(int code)
{
    throw RuntimeError(ErrorNumber::pathFileAccess, {}, std::system_category().message(code));
}

void refuseOtherThanFile(const std::filesystem::path& path)
{
    struct stat status = {};
    if (::stat(path.c_str(), &status) == 0) {
        refuseUnlessRegular(status.st_mode);
    }
}

Descriptor::~Descriptor()
{
    if (descriptor_ >= 0) {
        ::close(descriptor_); // errors are ignored here; a caller that needs them has called close()
    }
}

Descriptor Descriptor::tryOpen(const std::filesystem::path& path, int flags, mode_t mode)
{
    return Descriptor(uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); }));
}

Descriptor Descriptor::open(const std::filesystem::path& path, int flags, mode_t mode)
{
    Descriptor file = tryOpen(path, flags, mode);
    if (!file) {
        raiseSystemError(errno);
    }
    return file;
}

Descriptor Descriptor::openRegular(const std::filesystem::path& path)
{
    // The kind of file is tested after it has been opened, so that no other file can take its place in between.
    // O_NONBLOCK: opening a pipe would otherwise wait for a writer.
    Descriptor file = open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    refuseUnlessRegular(file.status().st_mode);
    return file;
}

Descriptor Descriptor::openFolder(const std::filesystem::path& path)
{
    return open(path, O_RDONLY | O_DIRECTORY);
}

struct stat Descriptor::status() const
{
    struct stat status = {};
    if (::fstat(descriptor_, &status) != 0) {
        raiseSystemError(errno);
    }
    return status;
}

std::string Descriptor::readAll() const
{
    std::string bytes;
    std::size_t read = 0;
    // One byte more than the file has, so that the read that finds the end of the file needs no larger buffer.
    bytes.resize(static_cast<std::size_t>(std::max<off_t>(status().st_size, 0)) + 1);
    for (;;) {
        const std::size_t most = std::min(bytes.size() - read, kMostAtOnce);
        const ssize_t got = uninterrupted([&] { return ::read(descriptor_, bytes.data() + read, most); });
        if (got < 0) {
            raiseSystemError(errno);
        }
        if (got == 0) {
            bytes.resize(read);
            return bytes;
        }
        read += static_cast<std::size_t>(got);
        if (read == bytes.size()) {
            bytes.resize(bytes.size() * 2); // the file has grown while it was being read
        }
    }
}

void Descriptor::write(std::string_view bytes) const
{
    while (!bytes.empty()) {
        const std::size_t most = std::min(bytes.size(), kMostAtOnce);
        const ssize_t written = uninterrupted([&] { return ::write(descriptor_, bytes.data(), most); });
        if (written < 0) {
            raiseSystemError(errno);
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void Descriptor::sync() const
{
    if (uninterrupted([&] { return ::fsync(descriptor_); }) != 0) {
        raiseSystemError(errno);
    }
}

void Descriptor::setPermissions(mode_t mode) const
{
    if (uninterrupted([&] { return ::fchmod(descriptor_, mode); }) != 0) {
        raiseSystemError(errno);
    }
}

void Descriptor::close()
{
    // ::close is not called again when a signal interrupts it: on Linux the descriptor is closed even then, and another
    // thread may already have a file of the same number.
    const int descriptor = std::exchange(descriptor_, -1);
    if (descriptor >= 0 && ::close(descriptor) != 0 && errno != EINTR) {
        raiseSystemError(errno);
    }
}

} // namespace orvan::files
