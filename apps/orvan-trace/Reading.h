// Reading: what orvan-trace finds out about logs.
//
// Thread: one. Errors: RuntimeError 75 for a file that cannot be read. The memory does not grow with the logs, but for
// a tree, which holds one call with the calls in it.
#pragma once

#include "Calls.h"
#include "LogFiles.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orvan::trace_reader {

/// A number of equal observations, and the first one's place.
struct Observed {
    std::uint64_t count = 0;
    Place first;

    void add(Place place)
    {
        if (count++ == 0) {
            first = place;
        }
    }
};

/// What is known of a procedure's calls. Times in milliseconds.
struct ProcedureFigures {
    std::uint64_t calls = 0;
    std::uint64_t errors = 0;
    std::int64_t own = 0;   ///< Without the traced procedures that it called.
    std::int64_t total = 0; ///< With them; a call within a call of the same procedure is counted once.
    std::int64_t slowest = 0;
    Place slowestAt;
    Observed entryOnly; ///< Entries without an exit, on purpose.
    Observed left;      ///< Entries without an exit or an error, not on purpose.
    Observed exitAlone; ///< Exits without an entry, not because the log begins within the call.
    Observed open;      ///< Entries whose calls were open when the log ended: the process ended in them, or runs.
    Observed early;     ///< Exits of calls that were open when the log began.
};

constexpr std::size_t kPlacesTold = 10;

struct Summary {
    std::vector<std::filesystem::path> files; ///< In the order in which they were read; a Place names one.
    Procedures procedures;
    std::vector<ProcedureFigures> figures; ///< By the procedure's position.
    std::uint64_t lines = 0;               ///< Lines of the trace.
    std::uint64_t badLines = 0;            ///< Lines that are none.
    std::vector<Place> badPlaces;          ///< The first ones.
    std::uint64_t errorsOutside = 0;       ///< Errors outside of all calls.
};

[[nodiscard]] Summary summarize(const std::vector<Log>& logs);

/// Which call a tree is to show.
struct TreeChoice {
    std::string file = {};      ///< A file's name, for `line`; if empty, the last file is meant.
    std::uint64_t line = 0;     ///< The outermost call with this line; 0: the call is chosen by what follows.
    std::string procedure = {}; ///< A label, or its end from a "." or "::" on.
    std::uint64_t number = 1;   ///< Which of the procedure's calls, from 1.
};

/// A call, or an error that was recorded or shown in it.
struct TreeNode {
    enum class Kind { call, error, show } kind = Kind::call;
    std::size_t depth = 0; ///< 0 for the call that was chosen.
    std::string text;      ///< The label, or the error's number and text.
    Place place;
    std::int64_t total = 0; ///< Of a call, in milliseconds.
    std::int64_t own = 0;
    std::uint32_t errors = 0;
    Ending ending = Ending::openAtEnd;
};

struct Tree {
    std::vector<std::filesystem::path> files;
    std::uint64_t thread = 0;
    std::vector<TreeNode> nodes; ///< In the order of the log; none if there is no such call.
};

[[nodiscard]] Tree findTree(const std::vector<Log>& logs, const TreeChoice& choice);

/// Where a log is when two are compared.
struct Side {
    std::filesystem::path file;
    std::uint64_t line = 0;        ///< 0: the log has ended.
    std::string text;              ///< The line's kind, and its label or its error's number.
    std::vector<std::string> open; ///< The procedures that are open around it, the outermost first.
};

struct Parting {
    std::uint64_t lines = 0; ///< How many lines of the thread are alike.
    Side left, right;
};

/// The first lines in which the logs differ: another procedure, another kind of line or an error of another number.
/// Times, depths and errors' texts are not compared, and the threads of one log count as those of the other in the
/// order in which they appear. Nothing if the logs are alike.
[[nodiscard]] std::optional<Parting> compare(const Log& left, const Log& right);

} // namespace orvan::trace_reader
