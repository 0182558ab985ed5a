// Descriptor: an open file of the operating system, and the calls on it that can fail.
//
// A call that a signal interrupts is made again. Thread: any, one at a time. Errors: 75; the description
// is the system's own text for the reason, without a full stop.
#pragma once

#include "orvan/core_export.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

#include <sys/stat.h>

namespace orvan::files {

/// Raises 75 with the system's text for an errno value.
[[noreturn]] void raiseSystemError(int code);

/// Raises 75 if the path is that of a folder, a device, a pipe or a socket; returns if there is a regular file or
/// nothing at all. For a file that another library opens by its name, and where it would wait for a pipe. This
/// function does not open the file: to close a file that the process has open elsewhere, too, would release its locks.
ORVAN_CORE_INTERNAL void refuseOtherThanFile(const std::filesystem::path& path);

class ORVAN_CORE_INTERNAL Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int descriptor) : descriptor_(descriptor) {}
    Descriptor(Descriptor&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    ~Descriptor();

    /// Opens a file as open(2) does; programs that this one starts do not inherit it. Returns an empty Descriptor, with
    /// errno set, on failure.
    [[nodiscard]] static Descriptor tryOpen(const std::filesystem::path& path, int flags, mode_t mode = 0);
    /// Opens a file as tryOpen does, but raises on failure.
    [[nodiscard]] static Descriptor open(const std::filesystem::path& path, int flags, mode_t mode = 0);
    /// Opens an existing regular file for reading. Raises for a folder, a device, a pipe or a socket; it does not wait
    /// for a program at the other end of a pipe.
    [[nodiscard]] static Descriptor openRegular(const std::filesystem::path& path);
    /// Opens a folder, so that it can be flushed.
    [[nodiscard]] static Descriptor openFolder(const std::filesystem::path& path);

    int get() const { return descriptor_; }
    explicit operator bool() const { return descriptor_ >= 0; }

    [[nodiscard]] struct stat status() const;
    [[nodiscard]] std::string readAll() const;
    void write(std::string_view bytes) const;
    /// Returns when the content and the size of the file are on the disk.
    void sync() const;
    void setPermissions(mode_t mode) const;
    /// Closes the file and raises what the system reports: some network file systems report only at closing that a
    /// write has failed.
    void close();

private:
    int descriptor_ = -1;
};

} // namespace orvan::files
