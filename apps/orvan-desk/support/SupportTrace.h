// SupportTrace: what support staff may see of the trace logs on a computer (orvan/components/trace/TraceLog.h).
//
// The text of an error may quote what a user has typed, a product or a file. So a line keeps its time, thread, depth,
// procedure and error number; an error's text stays only where it is the standard text of its number, and its source
// only where that is a part of this program. Whatever else a log may hold is left out, above all kinds of lines that
// are not known here. At most the last 256 KiB of a file are read. Thread: any. Errors: none is raised; what cannot be
// read gives no lines.
#pragma once

#include <QStringList>

#include <filesystem>
#include <optional>
#include <string_view>

namespace orvan::desk {

inline constexpr qsizetype kMostTraceLines = 200;

/// The line without texts from outside; empty for a line of another kind.
[[nodiscard]] QString lineForSupport(std::string_view line);

struct TraceExcerpt {
    QStringList lines; ///< The last ones, the earlier first.
    int leftOut = 0;   ///< How many lines of other kinds stood among them.
};
/// The last lines of a log, kMostTraceLines at most; together with those of the part that was rotated away last.
[[nodiscard]] TraceExcerpt lastTraceLines(const std::filesystem::path& log);

/// The log in this folder that was written to last; `own` does not count. None where there is no log or no folder.
[[nodiscard]] std::optional<std::filesystem::path> newestTrace(const std::filesystem::path& folder,
                                                               const std::filesystem::path& own);

/// The same among the logs of processes that did not end in order: they are gone, and their log does not end with the
/// end of a list view, which is the last thing that a desk traces. A process that never had a list view is among them,
/// too; a crash that this misses is one after the list view has gone.
[[nodiscard]] std::optional<std::filesystem::path> newestCrashTrace(const std::filesystem::path& folder,
                                                                    const std::filesystem::path& own);

} // namespace orvan::desk
