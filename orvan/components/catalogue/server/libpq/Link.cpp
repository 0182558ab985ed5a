#include "orvan/components/catalogue/server/libpq/Link.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <future>
#include <limits>
#include <thread>

#include <poll.h>

namespace orvan::libpq {

namespace {

using std::chrono::milliseconds;

/// How often the watch is asked whether to go on.
constexpr milliseconds kBetweenQuestions(100);
/// How long a server that is told to stop a statement may take to answer.
constexpr milliseconds kStopping(2000);

/// The message in one line.
UserText trimmedReason(const char* message)
{
    std::string reason;
    for (const char* at = message ? message : ""; *at != '\0'; ++at) {
        const bool isBlank = *at == ' ' || *at == '\n' || *at == '\t';
        if (!isBlank) {
            reason += *at;
        } else if (!reason.empty() && reason.back() != ' ') {
            reason += ' ';
        }
    }
    reason.erase(reason.find_last_not_of(' ') + 1);
    return reason;
}

std::string text(const char* field)
{
    return field ? field : "";
}

/// How long to wait until the end comes, but not longer than `part`.
int pollTime(std::chrono::steady_clock::time_point end, milliseconds part)
{
    const auto left = std::chrono::ceil<milliseconds>(end - std::chrono::steady_clock::now());
    return static_cast<int>(std::clamp(left, milliseconds(0), part).count());
}

} // namespace

template <class Step>
bool Link::attempt(Step&& step) noexcept
{
    try {
        failure_ = {};
        return step();
    } catch (...) { // only memory can run out
        failure_.kind = Kind::outOfMemory;
        connection_.reset();
        return false;
    }
}

bool Link::fail(Kind kind, const UserText& reason)
{
    failure_ = {kind, {}, reason};
    result_.reset();
    connection_.reset();
    return false;
}

bool Link::failByConnection()
{
    return fail(Kind::unreachable,
                connection_ ? trimmedReason(::PQerrorMessage(connection_.get())) : userText("there is no connection"));
}

bool Link::connect(const Parameters& parameters, milliseconds limit) noexcept
{
    return attempt([&] { return start(parameters) && finishConnecting(Clock::now() + limit); });
}

bool Link::start(const Parameters& parameters)
{
    std::vector<const char*> names, values;
    for (const auto& [name, value] : parameters) {
        names.push_back(name.c_str());
        values.push_back(value.c_str());
    }
    names.push_back(nullptr);
    values.push_back(nullptr);
    result_.reset();
    connection_.reset(::PQconnectStartParams(names.data(), values.data(), 0));
    if (!connection_) {
        throw std::bad_alloc();
    }
    ::PQsetNoticeProcessor(
        connection_.get(), [](void*, const char*) {}, nullptr); // it would write to stderr
    return ::PQstatus(connection_.get()) != CONNECTION_BAD || failByConnection();
}

bool Link::finishConnecting(Clock::time_point end)
{
    for (PostgresPollingStatusType status = PGRES_POLLING_WRITING; status != PGRES_POLLING_OK;) {
        if (status == PGRES_POLLING_FAILED) {
            return failByConnection();
        }
        if (!await(status == PGRES_POLLING_WRITING, end)) {
            return false;
        }
        status = ::PQconnectPoll(connection_.get());
    }
    return ::PQsetnonblocking(connection_.get(), 1) == 0 || failByConnection();
}

/// Waits until the socket can be read, or written. Fails when the end comes, or the watch says so.
bool Link::await(bool toWrite, Clock::time_point end)
{
    for (;;) {
        if (!watch_.goesOn()) {
            stopServer(kStopping);
            return fail(Kind::cancelled, userText("it was cancelled"));
        }
        const short events = toWrite ? POLLIN | POLLOUT : POLLIN;
        pollfd socket = {::PQsocket(connection_.get()), events, 0};
        const int ready = ::poll(&socket, 1, pollTime(end, kBetweenQuestions));
        if (ready > 0) {
            return true;
        }
        if (ready < 0 && errno != EINTR) {
            return fail(Kind::unreachable, UserText(std::strerror(errno)));
        }
        if (Clock::now() >= end) {
            stopServer(milliseconds(0)); // it may be the network that is dead
            return fail(Kind::timedOut, userText("the server does not answer"));
        }
    }
}

/// Tells the server to stop the statement, and waits for its answer for a while. A thread of its own does so, because
/// libpq's call blocks, and may do so for minutes where the network is dead.
void Link::stopServer(milliseconds patience) noexcept
{
    const bool connected = connection_ && ::PQstatus(connection_.get()) == CONNECTION_OK;
    PGcancel* const cancel = connected ? ::PQgetCancel(connection_.get()) : nullptr;
    if (!cancel) {
        return;
    }
    try {
        auto done = std::make_shared<std::promise<void>>();
        std::future<void> answered = done->get_future();
        std::thread([cancel, done] {
            char reason[256];
            static_cast<void>(::PQcancel(cancel, reason, sizeof reason)); // the connection is closed in any case
            ::PQfreeCancel(cancel);
            done->set_value();
        }).detach();
        static_cast<void>(answered.wait_for(patience));
    } catch (...) { // no thread can be started; the server notices when the connection is closed
        ::PQfreeCancel(cancel);
    }
}

bool Link::flush()
{
    for (;;) {
        const int left = ::PQflush(connection_.get());
        if (left == 0) {
            return true;
        }
        const auto end = silence_.count() > 0 ? Clock::now() + silence_ : Clock::time_point::max();
        if (left < 0) {
            return failByConnection();
        }
        if (!await(true, end)) {
            return false;
        }
        if (::PQconsumeInput(connection_.get()) == 0) {
            return failByConnection();
        }
    }
}

bool Link::awaitResult()
{
    while (::PQisBusy(connection_.get()) != 0) {
        const auto end = silence_.count() > 0 ? Clock::now() + silence_ : Clock::time_point::max();
        if (!await(false, end)) {
            return false;
        }
        if (::PQconsumeInput(connection_.get()) == 0) {
            return failByConnection();
        }
    }
    return true;
}

bool Link::send(const char* sql, const std::vector<Value>& values) noexcept
{
    return attempt([&] {
        if (!connection_) {
            return failByConnection();
        }
        std::vector<std::string> texts;
        std::vector<const char*> pointers;
        texts.reserve(values.size());
        for (const Value& value : values) {
            if (value && value->find('\0') != value->npos) { // libpq would take the text up to there
                failure_ = {Kind::refused, {}, userText("a text has a character 0, which the server cannot keep")};
                return false;
            }
            pointers.push_back(value ? texts.emplace_back(*value).c_str() : nullptr);
        }
        const int sent = values.empty() ? ::PQsendQuery(connection_.get(), sql)
                                        : ::PQsendQueryParams(connection_.get(), sql, static_cast<int>(values.size()),
                                                              nullptr, pointers.data(), nullptr, nullptr, 0);
        changed_ = 0;
        if (sent == 0 || ::PQsetSingleRowMode(connection_.get()) == 0) {
            return failByConnection();
        }
        return flush();
    });
}

bool Link::next() noexcept
{
    const bool refused = failure_.kind == Kind::refused;
    return !refused && attempt([&] { return takeResult(); });
}

/// Goes through the results up to the next row, to the begin of a copy, or to the end of the statement. The server's
/// refusal is kept until the end, because libpq takes the next statement only then.
bool Link::takeResult()
{
    while (connection_ && awaitResult()) {
        result_.reset(::PQgetResult(connection_.get()));
        if (!result_) {
            return false;
        }
        const ExecStatusType status = ::PQresultStatus(result_.get());
        if (status == PGRES_SINGLE_TUPLE) {
            return true;
        }
        if (status == PGRES_COPY_IN || status == PGRES_COPY_OUT) {
            return false;
        }
        if (status == PGRES_TUPLES_OK || status == PGRES_COMMAND_OK) {
            const std::string_view count = ::PQcmdTuples(result_.get());
            std::from_chars(count.data(), count.data() + count.size(), changed_);
        } else if (status != PGRES_EMPTY_QUERY) {
            take(*result_);
        }
    }
    return false;
}

void Link::take(const PGresult& error)
{
    if (::PQstatus(connection_.get()) == CONNECTION_BAD) {
        failByConnection();
        return;
    }
    const std::string detail = text(::PQresultErrorField(&error, PG_DIAG_MESSAGE_DETAIL));
    std::string reason = text(::PQresultErrorField(&error, PG_DIAG_MESSAGE_PRIMARY));
    reason.append(detail.empty() ? "" : " (" + detail + ")");
    failure_ = {Kind::refused, text(::PQresultErrorField(&error, PG_DIAG_SQLSTATE)),
                trimmedReason(reason.empty() ? ::PQresultErrorMessage(&error) : reason.c_str())};
}

ServerLink::Value Link::value(int column) const noexcept
{
    if (!result_ || ::PQgetisnull(result_.get(), 0, column) != 0) {
        return std::nullopt;
    }
    return std::string_view(::PQgetvalue(result_.get(), 0, column),
                            static_cast<std::size_t>(::PQgetlength(result_.get(), 0, column)));
}

bool Link::put(std::string_view bytes) noexcept
{
    return attempt([&] {
        while (connection_) {
            const int taken = ::PQputCopyData(connection_.get(), bytes.data(), static_cast<int>(bytes.size()));
            if (taken < 0) {
                return failByConnection();
            }
            if (!flush()) {
                return false;
            }
            if (taken > 0) {
                return true;
            }
        }
        return failByConnection();
    });
}

bool Link::endPut() noexcept
{
    return attempt([&] {
        for (int ended = 0; connection_ && ended == 0;) {
            ended = ::PQputCopyEnd(connection_.get(), nullptr);
            if (ended < 0) {
                return failByConnection();
            }
            if (!flush()) {
                return false;
            }
        }
        return connection_ ? true : failByConnection();
    });
}

bool Link::get(std::string_view& row) noexcept
{
    return attempt([&] {
        while (connection_) {
            char* bytes = nullptr;
            const int size = ::PQgetCopyData(connection_.get(), &bytes, 1);
            copied_.reset(bytes);
            if (size > 0) {
                row = {bytes, static_cast<std::size_t>(size)};
                return true;
            }
            if (size < 0) { // the end, or an error, which the result tells
                return takeResult();
            }
            const auto end = silence_.count() > 0 ? Clock::now() + silence_ : Clock::time_point::max();
            if (!await(false, end)) {
                return false;
            }
            if (::PQconsumeInput(connection_.get()) == 0) {
                return failByConnection();
            }
        }
        return failByConnection();
    });
}

ServerWait Link::wait(milliseconds time) noexcept
{
    const auto end = Clock::now() + time;
    ServerWait outcome = ServerWait::failed;
    attempt([&] {
        while (connection_) {
            bool notified = false;
            while (PGnotify* const notice = ::PQnotifies(connection_.get())) {
                notified = true;
                ::PQfreemem(notice);
            }
            if (notified) {
                outcome = ServerWait::notified;
                return true;
            }
            pollfd either[] = {{::PQsocket(connection_.get()), POLLIN, 0}, {watch_.descriptor(), POLLIN, 0}};
            const int ready = ::poll(either, 2, pollTime(end, milliseconds(std::numeric_limits<int>::max())));
            if (ready < 0 && errno != EINTR) {
                return fail(Kind::unreachable, UserText(std::strerror(errno)));
            }
            if (ready > 0 && either[1].revents != 0) {
                outcome = ServerWait::woken;
                return true;
            }
            if (ready > 0 && ::PQconsumeInput(connection_.get()) == 0) {
                return failByConnection();
            }
            if (ready <= 0 && Clock::now() >= end) {
                outcome = ServerWait::timedOut;
                return true;
            }
        }
        return failByConnection();
    });
    return outcome;
}

} // namespace orvan::libpq
