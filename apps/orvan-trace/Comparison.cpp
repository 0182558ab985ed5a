#include "Reading.h"

#include <tuple>
#include <unordered_map>
#include <utility>

namespace orvan::trace_reader {

namespace {

/// The lines of one thread of a log. The threads are numbered in the order in which they appear.
class ThreadLines {
public:
    ThreadLines(const Log& log, std::size_t ordinal) : log_(log), ordinal_(ordinal), calls_(procedures_, watcher_) {}

    /// Goes to the thread's next line; false at the end of the log.
    bool next()
    {
        if (line_) {
            calls_.add(*line_, {});
            line_.reset();
        }
        for (; file_ < log_.size(); ++file_, reader_.reset()) {
            if (!reader_) {
                reader_.emplace(log_[file_]);
            }
            while (const auto text = reader_->next()) {
                const auto line = parser_.parse(*text);
                if (line && threads_.try_emplace(line->thread, threads_.size()).first->second == ordinal_) {
                    thread_ = line->thread;
                    line_ = line;
                    return true;
                }
            }
        }
        return false;
    }

    /// The kind of the present line, and its label or its error's number, which is what is compared.
    [[nodiscard]] std::tuple<Kind, std::string_view, std::int32_t> compared() const
    {
        const bool hasLabel = line_->kind == Kind::enter || line_->kind == Kind::exit;
        return {line_->kind, hasLabel ? line_->text : std::string_view(), hasLabel ? 0 : errorNumber(line_->text)};
    }

    /// Where the log is: the present line, which has not been counted among the open procedures yet.
    [[nodiscard]] Side side() const
    {
        Side side;
        side.file = log_[line_ ? file_ : log_.size() - 1];
        if (line_) {
            constexpr const char* kWords[] = {"enter ", "exit ", "error ", "show "};
            side.line = reader_->number();
            side.text = std::string(kWords[static_cast<std::size_t>(line_->kind)]).append(line_->text);
        }
        if (thread_) {
            for (const Call& call : calls_.open(*thread_)) {
                side.open.push_back(procedures_[call.procedure].label);
            }
        }
        return side;
    }

    /// The order in which partings are told: by the place in the log, its end last.
    [[nodiscard]] std::pair<std::size_t, std::uint64_t> order() const { return {file_, line_ ? reader_->number() : 0}; }

private:
    const Log& log_;
    std::size_t ordinal_;
    Procedures procedures_;
    CallWatcher watcher_;
    Calls calls_;
    LineParser parser_;
    std::unordered_map<std::uint64_t, std::size_t> threads_;
    std::size_t file_ = 0;
    std::optional<LineReader> reader_;
    std::optional<TraceLine> line_;
    std::optional<std::uint64_t> thread_;
};

} // namespace

std::optional<Parting> compare(const Log& left, const Log& right)
{
    std::optional<Parting> first;
    std::pair<std::size_t, std::uint64_t> firstOrder;
    // Each thread by itself, in a reading of its own: how far the threads were in relation to each other is chance.
    for (std::size_t ordinal = 0;; ++ordinal) {
        ThreadLines one(left, ordinal);
        ThreadLines other(right, ordinal);
        for (std::uint64_t alike = 0;; ++alike) {
            const bool more = one.next();
            const bool otherMore = other.next();
            if (!more && !otherMore) {
                if (alike == 0) {
                    return first; // no log has this thread
                }
                break;
            }
            if (more != otherMore || one.compared() != other.compared()) {
                if (!first || one.order() < firstOrder) {
                    first = Parting{alike, one.side(), other.side()};
                    firstOrder = one.order();
                }
                break;
            }
        }
    }
}

} // namespace orvan::trace_reader
