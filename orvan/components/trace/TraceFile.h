// TraceFile: the file that all trace objects of a process write to.
//
// A file that cannot be written never fails the host: the first failure, at opening or later (disk
// full, no rights), is reported once; from then on nothing is written any more.
//
// The first line opens the file. Before the file would exceed the largest size it is rotated: trace.log becomes
// trace.1.log, trace.1.log becomes trace.2.log and so on; the oldest is removed. Opening a file with the default name
// (see defaultTraceFile) also removes the files with such names that are older than seven days and whose process no
// longer runs.
//
// Lines wait in the stream's buffer until the buffer is full, a line asks to be flushed, or a line comes a second or
// more after the last flush. A crash can lose what is in the buffer: about 4 KiB. Thread: any; a lock guards the file.
#pragma once

#include "orvan/components/trace/TraceLog.h"

#include <chrono>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

namespace orvan {

class TraceFile {
public:
    explicit TraceFile(TraceLogOptions options);
    ~TraceFile();
    TraceFile(const TraceFile&) = delete;
    TraceFile& operator=(const TraceFile&) = delete;

    /// Returns the process's one object for that file; makes it with these options when there is none yet.
    static std::shared_ptr<TraceFile> forFile(TraceLogOptions options);

    /// Writes the line with the time and the thread in front of it. The line must not contain a line break.
    void write(std::string_view line, bool flushNow) noexcept;

private:
    struct Sink;

    void writeLocked(std::string_view line, bool flushNow);

    const TraceLogOptions options_;
    std::mutex mutex_;
    std::unique_ptr<Sink> sink_; // empty before the first line and after a failure
    bool failed_ = false;
    std::chrono::system_clock::time_point flushed_;
};

} // namespace orvan
