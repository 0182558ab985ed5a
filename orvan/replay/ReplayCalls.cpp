// How a replay answers the calls that leave the library.

#include "orvan/replay/Replay.h"

#include <utility>

namespace orvan::replay {

namespace {

using recording::CallLine;
using recording::DoneLine;
using recording::Line;
using recording::Outcome;
using recording::TraceLine;
using End = ReplayResult::End;

/// Calls that the replay does not answer itself, but has done: they make something.
bool makesSomething(std::string_view name)
{
    return name == "components.create" || name == "platform.loadForm" || name == "timer.schedule";
}

/// The line with which a recording has this call.
Line lineOf(CallLine call)
{
    const auto& arguments = call.arguments;
    if (call.name == "trace.TraceEnter" || call.name == "trace.TraceExit") {
        return TraceLine{call.name == "trace.TraceEnter" ? TraceLine::What::enter : TraceLine::What::exit,
                         outside::partOf<std::string>(arguments)};
    }
    if (call.name == "trace.TraceError") {
        return TraceLine{TraceLine::What::error, outside::partOf<std::string>(arguments, 1),
                         outside::partOf<std::int32_t>(arguments)};
    }
    return call;
}

} // namespace

bool Replay::begin(std::string_view name, outside::CallArguments arguments, outside::CallValues& answer)
{
    CallLine call{
        .name = std::string(name), .arguments = outside::valuesOf(arguments), .knowledge = outside::isQuestion(name)};
    if (options_.fail && !over()) {
        outside::CallValues none;
        failing_.begin(name, arguments, none);
    }
    if (name == "trace.TraceError") {
        lastError_ = outside::partOf<std::int32_t>(call.arguments);
    }
    if (call.knowledge) {
        return askedOutside(std::move(call), answer);
    }
    if (over()) {
        tell(lineOf(call));
        answer = answerAfterEnd(call);
        return makesSomething(name);
    }
    // What is outside answers as it did. A call of a trace has a line of its own kind, unless it failed.
    if (const auto* const recorded = nextAs<CallLine>(); recorded && recorded->name == name) {
        call.outcome = recorded->outcome;
    } else if (const Line line = lineOf(call); std::holds_alternative<TraceLine>(line)) {
        expect(line);
        return false;
    }
    expect(call);
    if (!over() && call.outcome.what == Outcome::What::open) {
        playEvents();
        if (const auto* const done = nextAs<DoneLine>()) {
            call.outcome = done->outcome;
            tell(DoneLine{call.outcome});
            advance();
        } else {
            stopAt(End::different, "(nothing)");
        }
    }
    if (over()) {
        answer = answerAfterEnd(call);
        return makesSomething(name);
    }
    take(call.outcome, answer);
    return makesSomething(name);
}

bool Replay::askedOutside(CallLine question, outside::CallValues& answer)
{
    if (const Outcome* const known = lines_.answer(question, at_)) {
        question.outcome = *known;
        tell(question);
        take(*known, answer);
        return false;
    }
    if (!over() && !options_.namesOnly && !options_.liveCatalogue && !stage_.paints()) {
        stopAt(End::different, recording::lineText(question));
    }
    const bool formats = question.name.starts_with("locale."); // the stage's own serve what it paints
    asked_ = formats ? std::optional(std::move(question)) : std::nullopt;
    return formats;
}

void Replay::end(const outside::CallValues& answer)
{
    if (asked_) {
        asked_->outcome = {.what = Outcome::What::values, .values = answer};
        tell(*std::exchange(asked_, std::nullopt));
    }
}

outside::CallValues Replay::answerAfterEnd(const CallLine& call) const
{
    if (call.name == "box.show") { // what may still ask is to end without saving
        const bool tells = outside::partOf<std::int64_t>(call.arguments, 2) == 0;
        return outside::callValues(tells ? ui::MessageResult::ok : ui::MessageResult::no);
    }
    return call.name == "trace.LastErrorNumber" ? outside::callValues(lastError_) : outside::CallValues();
}

void Replay::take(const Outcome& outcome, outside::CallValues& answer)
{
    if (outcome.what == Outcome::What::error) {
        throw outcome.error;
    }
    answer = outcome.values;
}

} // namespace orvan::replay
