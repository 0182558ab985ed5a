// TraceLine: one line of a trace log (orvan/components/trace/TraceLog.h), taken apart.
//
// Thread: any, for each reader its own. The texts belong to the line that was read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvan::trace_reader {

enum class Kind { enter, exit, error, show };

struct TraceLine {
    std::int64_t time = 0; ///< Milliseconds of local time since the beginning of 1970; only differences mean something.
    std::uint64_t thread = 0;
    std::size_t depth = 0; ///< The number of open procedures around it, as the log counted them.
    Kind kind = Kind::enter;
    std::string_view text; ///< The label, or the error's number and text.
};

/// Takes lines apart. It keeps the last day that it has seen, because nearly all lines are of the same one.
class LineParser {
public:
    /// Returns nothing for what is no line of a trace log. The line has no line break.
    [[nodiscard]] std::optional<TraceLine> parse(std::string_view line);

private:
    std::string day_;
    std::int64_t dayBegins_ = 0; ///< in milliseconds
};

/// The number at the beginning of an error's text; 0 for "none".
[[nodiscard]] std::int32_t errorNumber(std::string_view text);

} // namespace orvan::trace_reader
