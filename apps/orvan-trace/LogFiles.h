// LogFiles: the files of trace logs in the order in which they were written, and their lines.
//
// A log is a file and the files that were rotated away from it (orvan/components/trace/TraceFile.h): trace.2.log,
// trace.1.log, trace.log. Each process has a log of its own, so nothing goes on from one log to the next.
// Thread: one. Errors: RuntimeError 75 for a file that cannot be read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace orvan::trace_reader {

/// The files of one log, the oldest first.
using Log = std::vector<std::filesystem::path>;

/// Finds the logs that are named on a command line. A folder stands for all files in it whose names end with ".log",
/// in the order in which they begin. A file brings its rotated files with it; a rotated file that is named without the
/// one that it was rotated away from stands alone.
[[nodiscard]] std::vector<Log> findLogs(const std::vector<std::filesystem::path>& named);

/// The lines of a file. The memory that it needs does not grow with the file.
class LineReader {
public:
    explicit LineReader(const std::filesystem::path& file);
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;
    ~LineReader();

    /// The next whole line, without its line break, which is valid until the next call; nothing at the end. A last line
    /// without a line break has been cut and is left out. A line of more than a MiB, which no log has, is given
    /// as an empty one.
    [[nodiscard]] std::optional<std::string_view> next();
    /// The number of the line that next returned last, from 1.
    [[nodiscard]] std::uint64_t number() const noexcept { return number_; }

private:
    bool fill();

    std::filesystem::path name_;
    int file_ = -1;
    std::unique_ptr<char[]> buffer_;
    std::size_t begin_ = 0; ///< What the buffer has from here to `end_` has not been given yet.
    std::size_t end_ = 0;
    std::uint64_t number_ = 0;
};

} // namespace orvan::trace_reader
