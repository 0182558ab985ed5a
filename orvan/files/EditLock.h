// EditLock: tells programs that a file is open for editing elsewhere.
//
// A small text file beside the edited one, ".<name>.lock", names the user, the host, the process and the
// time. It also works on network folders, where the system's own locks often fail; like every convention
// it binds only those who look. A lock whose process has ended is taken over; that of another host cannot
// be judged from here, so its holder is only told.
//
// Thread: any, one at a time. Errors: none is raised. A folder that takes no file gives no lock: whoever
// cannot write beside the file will not replace it either.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace orvan::files {

struct LockHolder {
    std::string user;
    std::string host;
    std::int64_t process = 0; ///< Its number on that host.
    std::int64_t since = 0;   ///< Seconds since 1970 (UTC).

    friend bool operator==(const LockHolder&, const LockHolder&) = default;
};

class EditLock {
public:
    /// Holds nothing.
    EditLock() = default;
    /// Tries to take the lock of `file`. With `takeOver` also that of somebody who may still be there.
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
    /// Who has the file open instead; none where the lock is held or impossible.
    const std::optional<LockHolder>& holder() const { return holder_; }
    /// Whose lock was taken over, because that process had ended without closing the file.
    const std::optional<LockHolder>& deadHolder() const { return deadHolder_; }

    /// The lock file of a file.
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
