// TraceFile: the file that all trace objects of a process write to.
//
// A file that cannot be written never fails the host: the first failure, at opening or later (disk
// full, no rights), is reported once; from then on nothing is written any more.
//
// It is opened by the first line. Beyond the largest size it is rotated: trace.log becomes
// trace.1.log, trace.1.log becomes trace.2.log and so on; the oldest is removed. Beside a file with
// the default name (see defaultTraceFile) the opening removes such files of processes that are gone
// when they are older than seven days.
//
// Lines wait in the stream's buffer (4 KiB or so: what a crash can cost at most) until the buffer is
// full, a line asks to be flushed, or a second has passed at the next line. Thread: any; locked.
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

    /// The process's one object for that file, made with these options when there is none.
    static std::shared_ptr<TraceFile> forFile(TraceLogOptions options);

    /// Adds time and thread. The line must not contain a line break.
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
