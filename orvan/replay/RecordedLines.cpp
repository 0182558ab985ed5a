#include "orvan/replay/RecordedLines.h"

#include "orvan/base/RuntimeError.h"

namespace orvan::replay {

namespace {

template <class Read>
auto readLine(std::size_t number, const Read& read)
{
    try {
        return read();
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.number(), error.source(), "Line " + std::to_string(number) + ": " + error.text());
    }
}

recording::CallLine asQuestion(recording::CallLine call)
{
    call.outcome = {};
    call.knowledge = true;
    return call;
}

} // namespace

RecordedLines::RecordedLines(std::string_view text)
{
    std::size_t number = 0;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        if (end == std::string_view::npos && number > 0) {
            break;
        }
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        ++number;
        if (number == 1) {
            heading_ = readLine(number, [&] { return recording::headingOfText(line); });
            continue;
        }
        recording::Line read = readLine(number, [&] { return recording::lineOfText(line); });
        auto* const call = std::get_if<recording::CallLine>(&read);
        if (call && call->knowledge) {
            recording::Outcome outcome = std::move(call->outcome);
            answers_[recording::lineText(asQuestion(std::move(*call)))].push_back({lines_.size(), std::move(outcome)});
        } else {
            lines_.push_back({number, std::move(read)});
        }
    }
    if (number == 0) {
        throw RuntimeError(ErrorNumber::invalidFileFormat, {}, "The recording is empty");
    }
}

const recording::Outcome* RecordedLines::answer(const recording::CallLine& question, std::size_t at) const
{
    const auto found = answers_.find(recording::lineText(asQuestion(question)));
    if (found == answers_.end()) {
        return nullptr;
    }
    const recording::Outcome* answer = &found->second.front().outcome;
    for (const Answer& each : found->second) {
        if (each.at <= at) {
            answer = &each.outcome;
        }
    }
    return answer;
}

std::multimap<std::size_t, recording::CallLine> RecordedLines::questions() const
{
    std::multimap<std::size_t, recording::CallLine> questions;
    for (const auto& [text, answers] : answers_) {
        for (const Answer& answer : answers) {
            auto question = std::get<recording::CallLine>(recording::lineOfText(text));
            question.outcome = answer.outcome;
            questions.emplace(answer.at, std::move(question));
        }
    }
    return questions;
}

void RecordedLines::dropCalls(std::string_view role)
{
    const std::string beginning = std::string(role) + ".";
    std::erase_if(lines_, [&](const Numbered& each) {
        const auto* const call = std::get_if<recording::CallLine>(&each.line);
        return call && call->name.starts_with(beginning);
    });
}

} // namespace orvan::replay
