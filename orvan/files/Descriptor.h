// Descriptor: an open file of the operating system, and the calls on it that can fail.
//
// A call that a signal interrupts is made again. Thread: any, one at a time. Errors: 75; the description
// is the system's own text for the reason, without a full stop.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

#include <sys/stat.h>

namespace orvan::files {

/// Raises 75 with the system's text for an errno value.
[[noreturn]] void raiseSystemError(int code);

class Descriptor {
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

    /// As open(2), closed in programs that this one starts. An empty one, with errno set, on failure.
    [[nodiscard]] static Descriptor tryOpen(const std::filesystem::path& path, int flags, mode_t mode = 0);
    /// As above, but raises.
    [[nodiscard]] static Descriptor open(const std::filesystem::path& path, int flags, mode_t mode = 0);
    /// A file that is there, for reading. Raises for a folder, a device, a pipe or a socket, without waiting
    /// for anybody at its other end.
    [[nodiscard]] static Descriptor openRegular(const std::filesystem::path& path);

    int get() const { return descriptor_; }
    explicit operator bool() const { return descriptor_ >= 0; }

    [[nodiscard]] struct stat status() const;
    [[nodiscard]] std::string readAll() const;
    void write(std::string_view bytes) const;
    /// Returns when content and size are on the disk.
    void sync() const;
    void setPermissions(mode_t mode) const;
    /// Raises what the system reports at closing: some network file systems tell only then that a write
    /// has failed.
    void close();

private:
    int descriptor_ = -1;
};

} // namespace orvan::files
