// Recordings: the input is a recording, as somebody may have damaged or made it. It is refused with error 321, or its
// lines can be written and read again. Then it is replayed in memory, where it may ask for anything: a replay ends with
// a result, whatever the events, answers and measures are. A redaction of it replays alike, or is refused.

#include "apps/fuzzing/FuzzTarget.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/replay/Redaction.h"
#include "orvan/replay/Replay.h"

#include <optional>
#include <string>

namespace orvan::fuzz {
namespace {

using replay::RecordedLines;

std::optional<RecordedLines> readRecording(std::string_view text)
{
    try {
        return std::make_optional<RecordedLines>(text);
    } catch (const RuntimeError& error) {
        require(error.number() == ErrorNumber::invalidFileFormat, "a text that is no recording is refused as one");
        require(!error.text().empty(), "the refusal has a reason");
        return std::nullopt;
    }
}

std::string written(const RecordedLines& lines)
{
    std::string text = recording::headingText(lines.heading()) + "\n";
    const auto questions = lines.questions();
    for (std::size_t at = 0; at <= lines.size(); ++at) {
        for (auto [question, end] = questions.equal_range(at); question != end; ++question) {
            text.append(recording::lineText(question->second)).append("\n");
        }
        if (at < lines.size()) {
            text.append(recording::lineText(lines[at])).append("\n");
        }
    }
    return text;
}

void redact(std::string_view input)
{
    try {
        const std::string text = replay::redacted(input, input.size());
        require(replay::replayInMemory(RecordedLines(text)).end == replay::ReplayResult::End::same,
                "a redacted recording replays alike");
    } catch (const RuntimeError& error) {
        require(error.number() == ErrorNumber::invalidFileFormat, "what cannot be redacted is refused as it is");
    }
}

} // namespace

void runTarget(std::string_view input)
{
    const std::optional<RecordedLines> lines = readRecording(input);
    if (!lines) {
        return;
    }
    const std::string text = written(*lines);
    const std::optional<RecordedLines> again = readRecording(text);
    require(again && written(*again) == text, "lines that are written are read again");

    using End = replay::ReplayResult::End;
    const replay::ReplayResult result = replay::replayInMemory(*lines);
    require(result.end != End::stopped, "nothing stops a replay but a difference");
    require(result.line >= 1, "a replay ends at a line");
    require((result.end == End::different) == !result.recorded.empty(), "a difference has both sides");
    if (result.end == End::same || input.size() % 4 == 0) { // a redaction replays three times
        redact(input);
    }
}

} // namespace orvan::fuzz
