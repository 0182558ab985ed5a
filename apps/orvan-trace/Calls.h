// Calls: pairs the lines of a trace log, so that each entry of a procedure becomes a call with an end.
//
// Each thread has a stack of its own. How a call ends:
//
//   exited     its exit was reported
//   failed     it reported an error and no exit; the call ends with the error
//   entryOnly  it reported no exit, on purpose (KnownProcedures.h); it takes no time
//   left       it reported neither, although a procedure around it went on
//   openAtEnd  the log ends, or its thread begins anew, within the call
//
// An error ends the innermost call. If that call reports an exit later, it had gone on after its error, and the errors
// that were taken for its callers' become its own. A procedure that is known to go on keeps its call open at once. Some
// cases stay uncertain, because an error's line names no procedure: above all, an error that comes right after a call
// that reported its entry alone is taken for that call's.
// Thread: one. The memory depends on the depth of the calls and the number of threads and labels, which are limited,
// not on the number of lines.
#pragma once

#include "KnownProcedures.h"
#include "TraceLine.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace orvan::trace_reader {

struct Place {
    std::size_t file = 0; ///< The position in the list of files that are read.
    std::uint64_t line = 0;
};

enum class Ending { exited, failed, entryOnly, left, openAtEnd };

/// What the log tells about one procedure.
struct Procedure {
    std::string label;
    const KnownProcedure* known = nullptr; ///< Empty for a procedure that pairs as usual.
};

/// A line's label, kept once. Beyond 20,000 labels, which a log of the library never has, all others share one.
class Procedures {
public:
    Procedures() { list_.push_back({"(further procedures)"}); }

    std::size_t of(std::string_view label);
    [[nodiscard]] const Procedure& operator[](std::size_t index) const { return list_[index]; }
    [[nodiscard]] std::size_t size() const noexcept { return list_.size(); }

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const noexcept { return std::hash<std::string_view>()(text); }
    };

    std::vector<Procedure> list_;
    std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>> positions_;
};

struct Call {
    std::size_t procedure = 0;
    Place place;
    std::int64_t entered = 0;
    std::int64_t ended = 0;    ///< Of an open call, when a call in it last ended.
    std::int64_t children = 0; ///< The time of the calls in it.
    std::uint32_t errors = 0;
    bool nested = false; ///< A call of the same procedure is open around it.
};

/// Learns of the calls. Of one thread the calls begin and end in the order of the log, inner ones before outer ones.
/// All times are in milliseconds. `depth` is the number of calls around it.
class CallWatcher {
public:
    virtual ~CallWatcher() = default;
    virtual void began(const TraceLine& /*line*/, const Call& /*call*/, std::size_t /*depth*/) {}
    virtual void ended(std::uint64_t /*thread*/, const Call& /*call*/, Ending /*ending*/, std::size_t /*depth*/) {}
    /// An error, in the call of that depth less one, or outside of all calls (0); or one that was shown to the user.
    virtual void told(const TraceLine& /*line*/, Place /*place*/, std::size_t /*depth*/) {}
    /// An exit without an entry. It is `early` if the procedure was entered before the log begins.
    virtual void exitAlone(std::size_t /*procedure*/, Place /*place*/, bool /*early*/) {}
};

class Calls {
public:
    Calls(Procedures& procedures, CallWatcher& watcher) : procedures_(procedures), watcher_(watcher) {}

    void add(const TraceLine& line, Place place);
    /// The log ends; the next line is the first of another log.
    void endLog();
    /// Where the outermost call began that is open in the thread.
    [[nodiscard]] const Call* outermost(std::uint64_t thread) const;
    /// The open calls of the thread, the outermost first.
    [[nodiscard]] std::vector<Call> open(std::uint64_t thread) const;

private:
    /// The calls of a thread. Those from `open` on were ended by errors, and may yet turn out to have gone on.
    struct Thread {
        std::uint64_t number = 0;
        std::vector<Call> calls;
        std::size_t open = 0;
        std::size_t before = 0; ///< How many procedures are open that were entered before the log begins.
        std::size_t owed = 0;   ///< Errors that were taken for those of calls that had ended already.
    };

    Thread& threadOf(const TraceLine& line);
    void enter(Thread& thread, const TraceLine& line, Place place);
    void exit(Thread& thread, const TraceLine& line, Place place);
    void fail(Thread& thread, const TraceLine& line, Place place);
    void endDownTo(Thread& thread, std::size_t count, bool logEnds = false);
    void endInnermost(Thread& thread, Ending ending);
    [[nodiscard]] Habit habit(const Call& call) const;

    Procedures& procedures_;
    CallWatcher& watcher_;
    std::unordered_map<std::uint64_t, Thread> threads_;
    Thread* latest_ = nullptr; ///< The thread of the line before; nearly all lines are of the same one.
};

} // namespace orvan::trace_reader
