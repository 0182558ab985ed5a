// RecordedLines: a recording as it is in memory.
//
// Thread: any. Errors: see each function.
#pragma once

#include "orvan/recording/RecordingLine.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvan::replay {

class ORVAN_CATALOGUE_INTERNAL RecordedLines {
public:
    /// Raises 321 for a text that is no recording; the description names the line, from 1. A last line without a line
    /// end, which a crash has cut, is left out.
    explicit RecordedLines(std::string_view text);

    const recording::Heading& heading() const { return heading_; }
    std::size_t size() const { return lines_.size(); }
    const recording::Line& operator[](std::size_t at) const { return lines_[at].line; }
    /// The number of the line in the file, from 1.
    std::size_t number(std::size_t at) const { return lines_[at].number; }
    /// What was answered to a question at that point of the recording; null if it was never asked.
    const recording::Outcome* answer(const recording::CallLine& question, std::size_t at) const;

    /// All questions with their answers, each before the line at that place.
    [[nodiscard]] std::multimap<std::size_t, recording::CallLine> questions() const;

    /// Removes all calls of components of this role ("catalogue").
    void dropCalls(std::string_view role);

private:
    struct Numbered {
        std::size_t number;
        recording::Line line;
    };
    struct Answer {
        std::size_t at; ///< The next line that is no answer.
        recording::Outcome outcome;
    };

    recording::Heading heading_;
    std::vector<Numbered> lines_;
    std::map<std::string, std::vector<Answer>> answers_; ///< By the text of the question.
};

} // namespace orvan::replay
