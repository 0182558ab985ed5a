#include "Calls.h"

#include <algorithm>

namespace orvan::trace_reader {

namespace {

constexpr std::size_t kMostLabels = 20'000;
constexpr std::size_t kMostThreads = 10'000;
constexpr std::size_t kMostOpen = 1'000; // the log itself counts no further than 64

} // namespace

std::size_t Procedures::of(std::string_view label)
{
    const auto known = positions_.find(label);
    if (known != positions_.end()) {
        return known->second;
    }
    if (list_.size() > kMostLabels) {
        return 0;
    }
    list_.push_back({std::string(label), knownProcedure(label)});
    positions_.emplace(label, list_.size() - 1);
    return list_.size() - 1;
}

Habit Calls::habit(const Call& call) const
{
    const KnownProcedure* const known = procedures_[call.procedure].known;
    return known == nullptr ? Habit::usual : known->habit;
}

Calls::Thread& Calls::threadOf(const TraceLine& line)
{
    if (latest_ != nullptr && latest_->number == line.thread) {
        return *latest_;
    }
    if (threads_.size() >= kMostThreads && !threads_.contains(line.thread)) {
        endLog(); // most of these threads have ended, but the log does not say which
    }
    const auto [found, isNew] = threads_.try_emplace(line.thread);
    latest_ = &found->second;
    if (isNew) {
        latest_->number = line.thread;
        latest_->before = line.depth + (line.kind == Kind::exit || line.kind == Kind::error ? 1 : 0);
        // An exit or an error at the very beginning of a thread can as well have no procedure around it.
        if (line.depth == 0 && line.kind == Kind::error) {
            latest_->before = 0;
        }
    }
    return *latest_;
}

void Calls::add(const TraceLine& line, Place place)
{
    Thread& thread = threadOf(line);
    switch (line.kind) {
    case Kind::enter: enter(thread, line, place); break;
    case Kind::exit: exit(thread, line, place); break;
    case Kind::error: fail(thread, line, place); break;
    case Kind::show: watcher_.told(line, place, thread.open); break;
    }
}

void Calls::enter(Thread& thread, const TraceLine& line, Place place)
{
    endDownTo(thread, thread.open);
    while (thread.open > 0 && habit(thread.calls.back()) == Habit::entryOnly) {
        endInnermost(thread, Ending::entryOnly); // it calls no traced procedure, so it has ended
    }
    const bool goingOn = !thread.calls.empty() && thread.calls.front().errors > 0;
    if ((line.depth == 0 && !goingOn) || thread.open == kMostOpen) {
        endDownTo(thread, 0, true); // the thread's number has been given to another thread
        thread.before = 0;
    }
    Call call{.procedure = procedures_.of(line.text), .place = place, .entered = line.time, .ended = line.time};
    call.nested = std::any_of(thread.calls.begin(), thread.calls.end(),
                              [&](const Call& outer) { return outer.procedure == call.procedure; });
    thread.calls.push_back(call);
    watcher_.began(line, thread.calls.back(), thread.open);
    ++thread.open;
}

void Calls::exit(Thread& thread, const TraceLine& line, Place place)
{
    const std::size_t procedure = procedures_.of(line.text);
    const auto isIts = [&](const Call& call) { return call.procedure == procedure; };
    const auto opened = thread.calls.begin() + static_cast<std::ptrdiff_t>(thread.open);
    const auto innermost = std::find_if(std::make_reverse_iterator(opened), thread.calls.rend(), isIts);
    auto found = innermost == thread.calls.rend() ? thread.calls.end() : std::prev(innermost.base());
    if (found == thread.calls.end()) {
        found = std::find_if(opened, thread.calls.end(), isIts);
        if (found == thread.calls.end()) {
            const bool early = thread.before > line.depth;
            thread.before = std::min(thread.before, line.depth);
            watcher_.exitAlone(procedure, place, early);
            return;
        }
        for (auto around = opened; around != found; ++around) { // these have not ended, the errors were the call's own
            --around->errors;
            ++found->errors;
        }
    }
    const auto position = static_cast<std::size_t>(found - thread.calls.begin());
    endDownTo(thread, position + 1);
    thread.calls.back().ended = line.time;
    endInnermost(thread, Ending::exited);
}

void Calls::fail(Thread& thread, const TraceLine& line, Place place)
{
    watcher_.told(line, place, thread.open);
    if (thread.open == 0) {
        thread.before = std::min(thread.before, line.depth);
        return;
    }
    Call& call = thread.calls[thread.open - 1];
    ++call.errors;
    call.ended = line.time;
    if (habit(call) == Habit::entryOnly) {
        ++thread.owed;
    }
    if (habit(call) != Habit::goesOn) {
        --thread.open;
    }
}

/// Ends the calls that are left open within the first `count`.
void Calls::endDownTo(Thread& thread, std::size_t count, bool logEnds)
{
    while (thread.calls.size() > count) {
        const Call& call = thread.calls.back();
        Ending ending = logEnds ? Ending::openAtEnd : Ending::left;
        if (call.errors > 0) {
            ending = Ending::failed;
        } else if (habit(call) == Habit::entryOnly) {
            ending = Ending::entryOnly;
        } else if (!logEnds && thread.owed > 0) {
            --thread.owed;
            ending = Ending::failed;
        }
        endInnermost(thread, ending);
    }
}

void Calls::endInnermost(Thread& thread, Ending ending)
{
    const Call call = thread.calls.back();
    thread.calls.pop_back();
    thread.open = std::min(thread.open, thread.calls.size());
    if (!thread.calls.empty()) {
        Call& outer = thread.calls.back();
        outer.children += std::max<std::int64_t>(call.ended - call.entered, 0);
        outer.ended = std::max(outer.ended, call.ended);
    } else {
        thread.owed = 0;
    }
    watcher_.ended(thread.number, call, ending, thread.calls.size());
}

void Calls::endLog()
{
    for (auto& [number, thread] : threads_) {
        endDownTo(thread, 0, true);
    }
    threads_.clear();
    latest_ = nullptr;
}

const Call* Calls::outermost(std::uint64_t thread) const
{
    const auto found = threads_.find(thread);
    return found == threads_.end() || found->second.calls.empty() ? nullptr : &found->second.calls.front();
}

std::vector<Call> Calls::open(std::uint64_t thread) const
{
    const auto found = threads_.find(thread);
    if (found == threads_.end()) {
        return {};
    }
    const auto& [number, its] = *found;
    return {its.calls.begin(), its.calls.begin() + static_cast<std::ptrdiff_t>(its.open)};
}

} // namespace orvan::trace_reader
