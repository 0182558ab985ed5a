// EditLock: tells programs that a file is open for editing elsewhere.
//
// A small text file beside the edited one, ".<name>.lock", names the user, the host, the process and the
// time. It also works on network folders, where the system's own locks often fail. It protects the file
// only from programs that look for the lock file. A lock whose process has ended is taken over. Whether a
// process of another host has ended cannot be found out from here, so holder() only names it.
//
// Thread: any, one at a time. Errors: none is raised. There is no lock where the folder cannot be written:
// a program that cannot make a file there cannot replace the edited one either.
#pragma once

#include "orvan/core_export.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace orvan::files {

struct LockHolder {
    std::string user;
    std::string host;
    std::int64_t process = 0; ///< The number of the process on that host.
    std::int64_t since = 0;   ///< Seconds since 1970 (UTC).

    friend bool operator==(const LockHolder&, const LockHolder&) = default;
};

class ORVAN_CORE_INTERNAL EditLock {
public:
    /// Makes an object that holds no lock.
    EditLock() = default;
    /// Tries to take the lock of `file`. With `takeOver` it also takes a lock whose holder may still be editing.
    explicit EditLock(const std::filesystem::path& file, bool takeOver = false);
    EditLock(EditLock&& other) noexcept { swap(other); }
    EditLock& operator=(EditLock&& other) noexcept
    {
        swap(other);
        return *this;
    }
    /// Gives the lock back, unless somebody else has taken it over.
    ~EditLock();

    bool held() const { return !content_.empty(); }
    /// Who else has the file open; empty if this object holds the lock, or if the folder allows none.
    const std::optional<LockHolder>& holder() const { return holder_; }
    /// The former holder whose lock was taken over because its process had ended without closing the file.
    const std::optional<LockHolder>& deadHolder() const { return deadHolder_; }

    /// The path of the lock file that belongs to a file.
    [[nodiscard]] static std::filesystem::path pathFor(const std::filesystem::path& file);

private:
    void swap(EditLock& other) noexcept;
    bool create();
    bool remove(const std::string& content);

    std::filesystem::path path_;
    std::string content_; ///< What this object wrote into the lock file; empty while it holds none.
    std::optional<LockHolder> holder_;
    std::optional<LockHolder> deadHolder_;
};

} // namespace orvan::files
