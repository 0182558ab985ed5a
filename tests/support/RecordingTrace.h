// RecordingTrace: a trace component that writes down what it is asked, and fails on demand.
//
// Every call becomes a line: "enter L", "exit L", "error 91" (and the extra text, if any),
// "show 7"; the two numbers leave no line. A call that was told to fail ends in " (fails)".
// ScopedTrace makes one the thread's trace object and fails the test for whatever unpaired() finds,
// so that a test checks its trace without saying so. Thread: one at a time.
#pragma once

#include "orvan/core/modInit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <set>

namespace orvan::test {

enum class TraceCall { lastErrorNumber, error, enter, exit, show };

class RecordingTrace : public Trace {
public:
    /// Runs when an error is recorded, to see how things stand at that moment.
    std::function<void()> onError;

    /// The next call of `call` raises `number`.
    void failNext(TraceCall call, std::int32_t number) { failures_[call] = number; }
    /// From now on entering `label` raises `number`; an empty label: no more.
    void failEntering(std::string label, std::int32_t number) { failingLabel_ = {std::move(label), number}; }
    /// The test expects the error `number` to be recorded `times` times (more).
    void declareError(std::int32_t number, int times = 1)
    {
        const std::vector<std::int32_t> numbers(static_cast<std::size_t>(times), number);
        declared_.insert(numbers.begin(), numbers.end());
    }

    /// Any number of procedures of that label may leave without reporting their exit.
    void allowNoExit(std::string label) { allowedNoExits_.insert(std::move(label)); }

    /// Adds a line of the test's own, to see what happened between the calls.
    void note(std::string line) { lines_.push_back(std::move(line)); }
    const std::vector<std::string>& lines() const { return lines_; }
    /// The recorded errors with their sources and descriptions, oldest first.
    const std::vector<RuntimeError>& errors() const { return errors_; }

    /// The numbers of the errors recorded after the first `count`.
    std::vector<std::int32_t> numbersSince(std::size_t count) const
    {
        std::vector<std::int32_t> numbers;
        for (; count < errors_.size(); ++count) {
            numbers.push_back(errors_[count].number());
        }
        return numbers;
    }

    /// What does not add up: an enter that neither an exit nor an error ended, an exit without its
    /// enter, an error recorded but not declared or declared but not recorded, a failure not reached.
    std::vector<std::string> unpaired() const
    {
        RecordingTrace rest = *this;
        rest.closeDownTo(0);
        std::vector<std::string> found = rest.found_;
        const std::vector<std::int32_t> numbers = numbersSince(0);
        const std::multiset<std::int32_t> recorded(numbers.begin(), numbers.end());
        if (recorded != declared_) {
            found.push_back("errors " + testing::PrintToString(recorded) + ", declared " +
                            testing::PrintToString(declared_));
        }
        for (const auto& [call, number] : failures_) {
            found.push_back("failure not reached: " + std::to_string(number));
        }
        return found;
    }

    std::int32_t LastErrorNumber() override
    {
        raiseIfTold(TraceCall::lastErrorNumber);
        return errors_.empty() ? 0 : errors_.back().number();
    }

    void TraceError(std::string_view text) override
    {
        const RuntimeError error = currentError();
        if (!open_.empty()) {
            ++open_.back().errors; // ended even when told to fail, as in TraceExit
        }
        write(TraceCall::error, "error " + std::to_string(error.number()) + std::string(text));
        errors_.push_back(error);
        if (onError) {
            onError();
        }
    }

    void TraceEnter(std::string_view label) override
    {
        failedEnters_.emplace_back(label);
        if (label == failingLabel_.first) {
            lines_.push_back("enter " + std::string(label) + " (fails)");
            throw RuntimeError(failingLabel_.second, "RecordingTrace", "told to fail");
        }
        write(TraceCall::enter, "enter " + std::string(label));
        failedEnters_.pop_back();
        open_.push_back({std::string(label), 0});
    }

    void TraceExit(std::string_view label) override
    {
        // Ended even when told to fail: the procedure did report its exit.
        const auto innermost =
            std::find_if(open_.rbegin(), open_.rend(), [&](const Open& procedure) { return procedure.label == label; });
        if (innermost == open_.rend()) {
            // A procedure that resumes reports its exit also after its enter has failed.
            if (std::erase(failedEnters_, label) == 0) {
                found_.push_back("exit without enter: " + std::string(label));
            }
        } else {
            closeDownTo(static_cast<std::size_t>(open_.rend() - innermost));
            open_.pop_back();
        }
        write(TraceCall::exit, "exit " + std::string(label));
    }

    std::int32_t AppErrorNumber() override { return 1000; }

    void ShowLastError(std::int32_t hWnd) override { write(TraceCall::show, "show " + std::to_string(hWnd)); }

private:
    struct Open {
        std::string label;
        int errors; ///< recorded since its enter, and not yet taken as the end of a procedure it called
    };
    /// Each procedure left open must have been ended by an error; one error ends one procedure, and
    /// those left over belong to its caller (which may have resumed, or failed to enter).
    void closeDownTo(std::size_t count)
    {
        while (open_.size() > count) {
            const Open ended = open_.back();
            open_.pop_back();
            const bool allowed = allowedNoExits_.contains(ended.label);
            if (!allowed && ended.errors == 0) {
                found_.push_back("enter without exit: " + ended.label);
            } else if (!open_.empty()) { // one that is allowed took errors while it seemed to be the innermost
                open_.back().errors += ended.errors - (allowed ? 0 : 1);
            }
        }
    }

    void raiseIfTold(TraceCall call)
    {
        if (const auto failure = failures_.extract(call)) {
            throw RuntimeError(failure.mapped(), "RecordingTrace", "told to fail");
        }
    }

    void write(TraceCall call, const std::string& line)
    {
        lines_.push_back(failures_.contains(call) ? line + " (fails)" : line);
        raiseIfTold(call);
    }

    std::vector<std::string> lines_;
    std::vector<RuntimeError> errors_;
    std::multiset<std::int32_t> declared_;
    std::set<std::string> allowedNoExits_;
    std::vector<std::string> found_;
    std::vector<Open> open_;
    std::vector<std::string> failedEnters_;
    std::map<TraceCall, std::int32_t> failures_;
    std::pair<std::string, std::int32_t> failingLabel_;
};

/// Makes a RecordingTrace the thread's trace object until the end of its scope, and fails the test
/// there for each line of unpaired(). A component factory of the test hands out trace().
class ScopedTrace {
public:
    ScopedTrace() : previous_(std::exchange(gobjTrace, trace_)) {}
    ScopedTrace(const ScopedTrace&) = delete;
    ScopedTrace& operator=(const ScopedTrace&) = delete;
    ~ScopedTrace()
    {
        gobjTrace = previous_;
        for (const std::string& line : trace_->unpaired()) {
            ADD_FAILURE() << "trace: " << line;
        }
    }

    const std::shared_ptr<RecordingTrace>& trace() const { return trace_; }
    RecordingTrace* operator->() const { return trace_.get(); }

private:
    std::shared_ptr<RecordingTrace> trace_ = std::make_shared<RecordingTrace>();
    std::shared_ptr<Trace> previous_;
};

} // namespace orvan::test
