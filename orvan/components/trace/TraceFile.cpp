#include "orvan/components/trace/TraceFile.h"

#include "orvan/base/RuntimeError.h"

#include <spdlog/details/os.h>
#include <spdlog/fmt/fmt.h>
#include <spdlog/sinks/rotating_file_sink.h>

#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <iostream>
#include <map>
#include <utility>

#include <unistd.h>

namespace orvan {

namespace fs = std::filesystem;

namespace {

constexpr auto kFlushInterval = std::chrono::seconds(1);
constexpr auto kKeepOldFiles = std::chrono::hours(7 * 24);
constexpr std::string_view kDefaultNameStart = "trace-";

/// The process that a file "trace-<pid>.log" or "trace-<pid>.<n>.log" belongs to; 0 for other names.
pid_t processOf(const fs::path& file)
{
    const std::string name = file.filename().string();
    pid_t pid = 0;
    const char* const end = name.data() + name.size();
    if (!name.starts_with(kDefaultNameStart)) {
        return 0;
    }
    const auto [rest, error] = std::from_chars(name.data() + kDefaultNameStart.size(), end, pid);
    std::string_view ending(rest, static_cast<std::size_t>(end - rest));
    if (ending.starts_with('.') && ending != ".log") {
        const auto digits = ending.find_first_not_of("0123456789", 1);
        ending.remove_prefix(digits > 1 && digits != ending.npos ? digits : 0);
    }
    return error == std::errc() && pid > 0 && ending == ".log" ? pid : 0;
}

bool isGone(pid_t pid)
{
    return ::kill(pid, 0) != 0 && errno == ESRCH;
}

/// Whatever cannot be read or removed stays: another process may be tidying here as well.
void removeOldFiles(const fs::path& directory)
{
    std::error_code error;
    const auto oldest = fs::file_time_type::clock::now() - kKeepOldFiles;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end; entry.increment(error)) {
        const pid_t pid = processOf(entry->path());
        std::error_code unreadable;
        const bool regular = fs::is_regular_file(entry->symlink_status(unreadable));
        const auto written = entry->last_write_time(unreadable);
        if (pid != 0 && regular && !unreadable && written < oldest && isGone(pid)) {
            fs::remove(entry->path(), unreadable);
        }
    }
}

std::string environment(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

void reportOnStandardError(const UserText& message)
{
    std::cerr << message.english() + '\n' << std::flush;
}

} // namespace

namespace {

/// Writes what the pattern "%Y-%m-%d %H:%M:%S.%e %t %v" writes. Most lines of a trace follow another one of the same
/// second and thread, so both are kept as text, and a line costs three digits and two copies.
class LineFormatter final : public spdlog::formatter {
public:
    void format(const spdlog::details::log_msg& message, spdlog::memory_buf_t& line) override
    {
        const auto sinceEpoch = message.time.time_since_epoch();
        const auto second = std::chrono::floor<std::chrono::seconds>(sinceEpoch);
        if (second != second_ || message.thread_id != thread_) {
            makePrefix(second, message.thread_id);
        }
        auto rest = std::chrono::duration_cast<std::chrono::milliseconds>(sinceEpoch - second).count();
        for (std::size_t digit = kMillisecondsAt + 3; digit-- > kMillisecondsAt; rest /= 10) {
            prefix_[digit] = static_cast<char>('0' + rest % 10);
        }
        line.append(prefix_.data(), prefix_.data() + prefix_.size());
        line.append(message.payload.begin(), message.payload.end());
        line.push_back('\n');
    }
    [[nodiscard]] std::unique_ptr<spdlog::formatter> clone() const override
    {
        return std::make_unique<LineFormatter>(*this);
    }

private:
    void makePrefix(std::chrono::seconds second, std::size_t thread)
    {
        const std::tm local = spdlog::details::os::localtime(static_cast<std::time_t>(second.count()));
        prefix_ = fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}.000 {} ", local.tm_year + 1900, local.tm_mon + 1,
                              local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec, thread);
        second_ = second;
        thread_ = thread;
    }

    static constexpr std::size_t kMillisecondsAt = 20; // behind "2026-01-31 09:15:02."

    std::string prefix_;
    std::chrono::seconds second_ = std::chrono::seconds::min();
    std::size_t thread_ = 0;
};

} // namespace

struct TraceFile::Sink {
    explicit Sink(const TraceLogOptions& options) : file(options.file.string(), options.maxFileSize, options.maxFiles)
    {
        file.set_formatter(std::make_unique<LineFormatter>());
    }

    spdlog::sinks::rotating_file_sink_st file; // the single-threaded sink, because TraceFile has its own lock
};

TraceFile::TraceFile(TraceLogOptions options) : options_(std::move(options)) {}

TraceFile::~TraceFile() = default; // closes the file, which also flushes it

std::shared_ptr<TraceFile> TraceFile::forFile(TraceLogOptions options)
{
    static std::mutex mutex;
    static std::map<fs::path, std::weak_ptr<TraceFile>> files;
    std::error_code error; // ignored: a name that cannot be made absolute is used as it is
    const fs::path absolute = fs::absolute(options.file, error);
    if (!error && !options.file.empty()) {
        options.file = absolute.lexically_normal(); // the working directory may change before it is opened
    }
    const std::lock_guard lock(mutex);
    auto& known = files[options.file];
    auto file = known.lock();
    if (!file) {
        file = std::make_shared<TraceFile>(std::move(options));
        known = file;
    }
    return file;
}

void TraceFile::write(std::string_view line, bool flushNow) noexcept
{
    try {
        UserText failure;
        {
            const std::lock_guard lock(mutex_);
            if (failed_) {
                return;
            }
            try {
                writeLocked(line, flushNow);
                return;
            } catch (...) {
                failed_ = true;
                sink_.reset(); // after a failed rotation it has no stream and must not be written to again
                failure = currentError().userText();
            }
        }
        // The lock is not held here, because the host's function may write to the trace.
        const UserText message = userText("Orvan writes no trace to \"%1\": %2", options_.file.string(), failure);
        options_.report ? options_.report(message) : reportOnStandardError(message);
    } catch (...) {
        // The trace must not fail the host, even when its report does.
    }
}

void TraceFile::writeLocked(std::string_view line, bool flushNow)
{
    if (!sink_) {
        if (options_.file.empty()) {
            throw RuntimeError(ErrorNumber::pathFileAccess, {}, userText("no file is named"));
        }
        if (std::error_code error; fs::is_fifo(options_.file, error)) { // opening it would wait for a reader
            throw RuntimeError(ErrorNumber::pathFileAccess, {}, userText("it is a pipe"));
        }
        sink_ = std::make_unique<Sink>(options_);
        if (processOf(options_.file) == ::getpid()) {
            removeOldFiles(options_.file.parent_path());
        }
    }
    const auto now = spdlog::log_clock::now(); // the one reading of a clock for the line and for the flush
    sink_->file.log(spdlog::details::log_msg(now, {}, {}, spdlog::level::info, {line.data(), line.size()}));
    if (flushNow || now - flushed_ >= kFlushInterval || now < flushed_) {
        sink_->file.flush();
        flushed_ = now;
    }
}

fs::path defaultTraceFile()
{
    fs::path directory = environment("XDG_STATE_HOME");
    if (!directory.is_absolute()) { // the XDG base directory rules say that a relative path is to be ignored
        directory = environment("HOME");
        if (!directory.is_absolute()) {
            return {};
        }
        directory /= ".local/state";
    }
    return directory / "orvan" / (std::string(kDefaultNameStart) + std::to_string(::getpid()) + ".log");
}

} // namespace orvan
