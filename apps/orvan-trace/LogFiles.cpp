#include "LogFiles.h"

#include "orvan/base/RuntimeError.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <set>
#include <string>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvan::trace_reader {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kBufferSize = std::size_t{1024} * 1024;

[[noreturn]] void fail(const std::string& problem)
{
    throw RuntimeError(ErrorNumber::pathFileAccess, {}, problem);
}

/// "trace.log" and 2 for "trace.2.log"; the name itself and 0 for a file that was not rotated away.
std::pair<fs::path, unsigned> rotatedFrom(const fs::path& file)
{
    const std::string number = file.stem().extension().string();
    unsigned position = 0;
    const char* const end = number.data() + number.size();
    if (number.size() < 2 || std::from_chars(number.data() + 1, end, position).ptr != end || position == 0) {
        return {file, 0};
    }
    return {file.parent_path() / file.stem().stem().concat(file.extension().native()), position};
}

/// The rotated files that are there, and the file itself.
Log withRotated(const fs::path& file)
{
    Log log{file};
    for (unsigned position = 1;; ++position) {
        fs::path rotated = file;
        rotated.replace_filename(file.stem().concat("." + std::to_string(position)).concat(file.extension().native()));
        std::error_code error;
        if (!fs::exists(rotated, error)) {
            break;
        }
        log.push_back(std::move(rotated));
    }
    std::reverse(log.begin(), log.end());
    return log;
}

/// A log's lines begin with their time, so that the texts are in the order of the times.
std::string firstLine(const Log& log)
{
    return std::string(LineReader(log.front()).next().value_or(""));
}

std::vector<fs::path> logsIn(const fs::path& folder)
{
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() == ".log" && entry.is_regular_file()) {
            files.push_back(entry.path());
        }
    }
    return files;
}

void appendLogs(std::vector<Log>& logs, const std::vector<fs::path>& files)
{
    const std::set<fs::path> present(files.begin(), files.end());
    std::set<fs::path> taken;
    for (const fs::path& file : files) {
        const auto [origin, position] = rotatedFrom(file);
        if ((position > 0 && present.contains(origin)) || !taken.insert(file).second) {
            continue; // it comes, or came, with the file that it was rotated away from
        }
        logs.push_back(position > 0 ? Log{file} : withRotated(file));
    }
}

} // namespace

std::vector<Log> findLogs(const std::vector<fs::path>& named)
{
    std::vector<Log> logs;
    std::vector<fs::path> files;
    for (const fs::path& name : named) {
        std::error_code error;
        if (!fs::is_directory(name, error)) {
            files.push_back(name);
            continue;
        }
        std::vector<Log> found;
        appendLogs(found, logsIn(name));
        std::vector<std::pair<std::string, Log>> byBeginning;
        byBeginning.reserve(found.size());
        for (Log& log : found) {
            byBeginning.emplace_back(firstLine(log), std::move(log));
        }
        std::sort(byBeginning.begin(), byBeginning.end());
        for (auto& [beginning, log] : byBeginning) {
            logs.push_back(std::move(log));
        }
    }
    appendLogs(logs, files);
    return logs;
}

// O_NONBLOCK: opening a pipe would otherwise wait for a writer. What the file is can be asked only afterwards.
LineReader::LineReader(const fs::path& file)
    : name_(file), file_(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)),
      buffer_(std::make_unique_for_overwrite<char[]>(kBufferSize))
{
    struct stat status = {};
    const bool known = file_ >= 0 && ::fstat(file_, &status) == 0;
    if (!known || !S_ISREG(status.st_mode)) {
        if (file_ >= 0) {
            ::close(file_);
        }
        fail(known ? file.string() + " is not a file" : "cannot open " + file.string());
    }
}

LineReader::~LineReader()
{
    ::close(file_);
}

/// Reads more behind what the buffer has; false at the end of the file.
bool LineReader::fill()
{
    std::memmove(buffer_.get(), buffer_.get() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
    const ssize_t got = ::read(file_, buffer_.get() + end_, kBufferSize - end_);
    if (got < 0) {
        fail("cannot read " + name_.string());
    }
    end_ += static_cast<std::size_t>(got);
    return got > 0;
}

std::optional<std::string_view> LineReader::next()
{
    std::optional<std::string_view> tooLong;
    for (std::size_t searched = 0;;) {
        const char* const begin = buffer_.get() + begin_;
        const void* const found = std::memchr(begin + searched, '\n', end_ - begin_ - searched);
        if (found != nullptr) {
            const auto length = static_cast<std::size_t>(static_cast<const char*>(found) - begin);
            begin_ += length + 1;
            ++number_;
            return tooLong ? tooLong : std::string_view(begin, length);
        }
        searched = end_ - begin_;
        if (searched == kBufferSize) { // no line of a log: its rest is read, but not kept
            tooLong = "";
            begin_ = end_;
            searched = 0;
        }
        if (!fill()) {
            return std::nullopt;
        }
    }
}

} // namespace orvan::trace_reader
