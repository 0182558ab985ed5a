// Link: a connection by libpq, which never blocks longer than the caller wants.
//
// Every call of libpq is one that returns at once; what has to be waited for is waited for here, with the watch's
// descriptor and with a limit. Only the look-up of a host's name blocks, and it has the system's own limit.
//
// Thread and failures: as ServerModule.h says.
#pragma once

#include "orvan/components/catalogue/server/ServerModule.h"

#include <libpq-fe.h>

#include <memory>

namespace orvan::libpq {

class Link final : public ServerLink {
public:
    explicit Link(ServerWatch& watch) noexcept : watch_(watch) {}

    const ServerFailure& failure() const noexcept override { return failure_; }
    bool connect(const Parameters& parameters, std::chrono::milliseconds limit) noexcept override;
    void setSilence(std::chrono::milliseconds limit) noexcept override { silence_ = limit; }
    bool send(const char* sql, const std::vector<Value>& values) noexcept override;
    bool next() noexcept override;
    Value value(int column) const noexcept override;
    std::int64_t changed() const noexcept override { return changed_; }
    bool put(std::string_view bytes) noexcept override;
    bool endPut() noexcept override;
    bool get(std::string_view& row) noexcept override;
    ServerWait wait(std::chrono::milliseconds time) noexcept override;
    bool usable() const noexcept override { return connection_ != nullptr; }
    void close() noexcept override { connection_.reset(); }

private:
    using Kind = ServerFailure::Kind;
    using Clock = std::chrono::steady_clock;
    struct Finish {
        void operator()(PGconn* connection) const noexcept { ::PQfinish(connection); }
        void operator()(PGresult* result) const noexcept { ::PQclear(result); }
        void operator()(char* bytes) const noexcept { ::PQfreemem(bytes); }
    };

    /// Runs a step that may run out of memory.
    template <class Step>
    bool attempt(Step&& step) noexcept;
    bool start(const Parameters& parameters);
    bool finishConnecting(Clock::time_point end);
    bool fail(Kind kind, const UserText& reason);
    bool failByConnection();
    bool await(bool toWrite, Clock::time_point end);
    bool awaitResult();
    bool flush();
    bool takeResult();
    void take(const PGresult& error);
    void stopServer(std::chrono::milliseconds patience) noexcept;

    ServerWatch& watch_;
    ServerFailure failure_;
    std::unique_ptr<PGconn, Finish> connection_;
    std::unique_ptr<PGresult, Finish> result_;
    std::unique_ptr<char, Finish> copied_;
    std::chrono::milliseconds silence_{0};
    std::int64_t changed_ = 0;
};

} // namespace orvan::libpq
