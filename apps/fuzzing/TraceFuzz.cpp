// Trace logs: the input's lines are taken for a log's. Each line that is one is written and taken apart again, and the
// pairing of the calls has to add up: each entry is a call that ends once, inner ones first, and each error and exit is
// counted once.

#include "apps/fuzzing/FuzzTarget.h"
#include "apps/orvan-trace/Calls.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace orvan::fuzz {
namespace {

using namespace trace_reader;

class Checker final : public CallWatcher {
public:
    void began(const TraceLine& line, const Call& /*call*/, std::size_t depth) override
    {
        require(open_[line.thread]++ == depth, "a call begins at its depth");
        ++calls;
    }
    void ended(std::uint64_t thread, const Call& call, Ending ending, std::size_t depth) override
    {
        require(--open_[thread] == depth, "the innermost call ends first");
        ++endings;
        exits += ending == Ending::exited ? 1 : 0;
        errors += call.errors;
    }
    void told(const TraceLine& line, Place /*place*/, std::size_t depth) override
    {
        errors += line.kind == Kind::error && depth == 0 ? 1 : 0;
    }
    void exitAlone(std::size_t /*procedure*/, Place /*place*/, bool /*early*/) override { ++exits; }

    std::uint64_t calls = 0, endings = 0, exits = 0, errors = 0;

private:
    std::map<std::uint64_t, std::size_t> open_;
};

/// Writes a line as a log does, with a time of the first day.
std::string written(const TraceLine& line)
{
    constexpr const char* kWords[] = {"enter ", "exit  ", "error ", "show  "};
    return "1970-01-01 00:00:00.000 " + std::to_string(line.thread) + (line.depth < 10 ? "  " : " ") +
           std::to_string(line.depth) + std::string(1 + 2 * line.depth, ' ') +
           kWords[static_cast<std::size_t>(line.kind)] + std::string(line.text);
}

} // namespace

void runTarget(std::string_view input)
{
    Procedures procedures;
    Checker checker;
    Calls calls(procedures, checker);
    LineParser parser;
    std::uint64_t seen[4] = {};
    for (std::uint64_t number = 1; !input.empty(); ++number) {
        const std::string_view text = takeLine(input);
        const auto line = parser.parse(text);
        if (!line) {
            continue;
        }
        LineParser other;
        const std::string again = written(*line);
        const auto reread = other.parse(again);
        require(reread && reread->thread == line->thread && reread->depth == line->depth &&
                    reread->kind == line->kind && reread->text == line->text && reread->time == 0,
                "a line that is written is read again");
        ++seen[static_cast<std::size_t>(line->kind)];
        calls.add(*line, {0, number});
    }
    calls.endLog();
    require(checker.calls == seen[0] && checker.endings == seen[0], "each entry is a call that ends");
    require(checker.exits == seen[1], "each exit ends a call or stands alone");
    require(checker.errors == seen[2], "each error is counted once");
}

} // namespace orvan::fuzz
