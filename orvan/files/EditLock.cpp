#include "orvan/files/EditLock.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/files/Descriptor.h"
#include "orvan/files/ProcessIdentity.h"

#include <cerrno>
#include <charconv>
#include <chrono>
#include <functional>
#include <system_error>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace orvan::files {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kHeader = "orvan-lock 1";
/// A lock file exists for a moment before its text is written. One without a valid text is read this many times, with
/// this pause between, before it counts as abandoned.
constexpr int kLooks = 5;
constexpr auto kBetweenLooks = std::chrono::milliseconds(20);
constexpr std::size_t kLongestName = 255; ///< Bytes; the most that file systems take.
constexpr std::int64_t kMostBytes = 4096;

struct LockText {
    LockHolder holder;
    std::string processIdentity;
};

std::int64_t secondsNow()
{
    using namespace std::chrono;
    return duration_cast<seconds>(system_clock::now().time_since_epoch()).count();
}

std::int64_t numberOf(std::string_view text)
{
    std::int64_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

/// The lock file's lines: header, user, host, process number, identity of the process, time.
std::string lockText(const LockHolder& holder, const std::string& identity)
{
    std::string text(kHeader);
    for (const std::string& line :
         {holder.user, holder.host, std::to_string(holder.process), identity, std::to_string(holder.since)}) {
        text.append("\n").append(line);
    }
    return text.append("\n");
}

std::optional<LockText> parsed(std::string_view text)
{
    std::vector<std::string_view> lines;
    for (std::size_t end = text.find('\n'); end != text.npos; end = text.find('\n')) {
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    if (lines.size() != 6 || lines[0] != kHeader) {
        return std::nullopt;
    }
    return LockText{.holder = {.user = std::string(lines[1]),
                               .host = std::string(lines[2]),
                               .process = numberOf(lines[3]),
                               .since = numberOf(lines[5])},
                    .processIdentity = std::string(lines[4])};
}

/// "" for a lock file that is gone or cannot be read.
std::string contentOf(const fs::path& path)
{
    try {
        const Descriptor file = Descriptor::openRegular(path);
        return file.status().st_size > kMostBytes ? std::string() : file.readAll();
    } catch (const RuntimeError&) {
        return {};
    }
}

bool isDead(const LockText& lock)
{
    return lock.holder.host == hostName() && !isRunning(lock.holder.process, lock.processIdentity);
}

} // namespace

fs::path EditLock::pathFor(const fs::path& file)
{
    std::error_code error;
    const fs::path real = fs::canonical(file, error); // so that two links to one file have the same lock
    const fs::path& named = error ? file : real;
    std::string name = "." + named.filename().string() + ".lock";
    if (name.size() > kLongestName) {
        name = ".orvan-" + std::to_string(std::hash<std::string>()(name)) + ".lock";
    }
    return named.parent_path() / name;
}

EditLock::EditLock(const fs::path& file, bool takeOver) : path_(pathFor(file))
{
    for (int look = 0; look < kLooks; ++look) {
        if (create()) {
            return;
        }
        if (errno != EEXIST) {
            return; // the folder cannot be written: no lock is possible
        }
        const std::string content = contentOf(path_);
        const std::optional<LockText> found = parsed(content);
        holder_.reset();
        if (found && isDead(*found)) {
            deadHolder_ = found->holder;
            remove(content);
        } else if (takeOver || (!found && look + 1 == kLooks)) {
            remove(content); // this also removes a file that no program of ours has written
        } else if (found) {
            holder_ = found->holder;
            return;
        } else {
            std::this_thread::sleep_for(kBetweenLooks);
        }
    }
    static_cast<void>(create());
}

EditLock::~EditLock()
{
    if (held()) {
        remove(content_);
    }
}

bool EditLock::create()
{
    const Descriptor file = Descriptor::tryOpen(path_, O_WRONLY | O_CREAT | O_EXCL, 0644);
    if (!file) {
        return false;
    }
    const std::int64_t process = ::getpid();
    const std::string text = lockText(
        {.user = userName(), .host = hostName(), .process = process, .since = secondsNow()}, processIdentity(process));
    try {
        file.write(text);
        content_ = text;
        return true;
    } catch (const RuntimeError&) {
        ::unlink(path_.c_str()); // the disk is full
        errno = ENOSPC;
        return false;
    }
}

/// Removes the lock file if its content is still `content`. The file is renamed before it is read, so that of two
/// programs that take over the same lock only one removes it, and neither removes the other's new lock.
bool EditLock::remove(const std::string& content)
{
    fs::path aside = path_;
    aside.replace_filename(".orvan-lock-" + std::to_string(::getpid()));
    if (::rename(path_.c_str(), aside.c_str()) != 0) {
        return false;
    }
    if (contentOf(aside) != content) {
        ::link(aside.c_str(), path_.c_str()); // puts the file back, unless there is a new lock already
    }
    return ::unlink(aside.c_str()) == 0;
}

void EditLock::swap(EditLock& other) noexcept
{
    std::swap(path_, other.path_);
    std::swap(content_, other.content_);
    std::swap(holder_, other.holder_);
    std::swap(deadHolder_, other.deadHolder_);
}

} // namespace orvan::files
