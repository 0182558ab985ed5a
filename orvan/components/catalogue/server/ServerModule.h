// ServerModule: what the module orvan_postgres gives to the library that loads it, and what it gets.
//
// Both are built from the same sources with the same compiler. No exception passes between them: the module gives each
// failure as a value. Thread: one at a time for a link; what else may be called from other threads says so.
#pragma once

#include "orvan/base/UserText.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvan {

struct ServerFailure {
    enum class Kind {
        none,
        unreachable, ///< There is no connection, or no longer.
        timedOut,    ///< The server said nothing for too long; there is no connection any more.
        cancelled,   ///< The caller ended it; there is no connection any more.
        refused,     ///< The server refused the statement, or the user.
        outOfMemory
    };
    Kind kind = Kind::none;
    std::string state = {}; ///< The server's five characters for its reason (SQLSTATE); may be empty.
    UserText reason = {};
};

/// Asked by a link while it waits.
class ServerWatch {
public:
    virtual ~ServerWatch() = default;
    /// A file descriptor that can be read once the link shall stop waiting.
    virtual int descriptor() const noexcept = 0;
    /// Called several times a second while a statement is waited for. False ends the statement and the connection.
    virtual bool goesOn() noexcept = 0;
};

enum class ServerWait { notified, woken, timedOut, failed };

class ServerLink {
public:
    using Parameters = std::vector<std::pair<std::string, std::string>>;
    using Value = std::optional<std::string_view>; ///< Without a text it is NULL.

    virtual ~ServerLink() = default;
    /// Each function that returns false has failed, if failure() says so.
    virtual const ServerFailure& failure() const noexcept = 0;

    virtual bool connect(const Parameters& parameters, std::chrono::milliseconds limit) noexcept = 0;
    /// How long the server may say nothing while a statement is waited for; 0 for ever.
    virtual void setSilence(std::chrono::milliseconds limit) noexcept = 0;

    /// Sends one statement with values for $1, $2 ..., or several without values, separated by ';'.
    virtual bool send(const char* sql, const std::vector<Value>& values) noexcept = 0;
    /// Goes to the next row of the statement. False at its end, and where a copy begins.
    virtual bool next() noexcept = 0;
    virtual Value value(int column) const noexcept = 0;
    /// How many rows the last statement changed or gave.
    virtual std::int64_t changed() const noexcept = 0;

    /// Gives bytes to the server, within a statement COPY ... FROM STDIN for which next() has returned false.
    virtual bool put(std::string_view bytes) noexcept = 0;
    /// Ends the copy; next() then says whether the server has taken it.
    virtual bool endPut() noexcept = 0;
    /// Gets the next row of COPY ... TO STDOUT, with its line break. False at the end.
    virtual bool get(std::string_view& row) noexcept = 0;

    /// Waits until the server notifies, the watch's descriptor can be read, or the time is over.
    virtual ServerWait wait(std::chrono::milliseconds time) noexcept = 0;
    /// Whether the connection can be used for another statement.
    virtual bool usable() const noexcept = 0;
    /// Closes the connection. The server then takes back the transaction that has not been committed.
    virtual void close() noexcept = 0;
};

/// Makes a link without a connection; `watch` outlives it. Null where memory runs out.
using MakeServerLink = ServerLink* (*)(ServerWatch& watch);
inline constexpr const char* kMakeServerLink = "orvanMakeServerLink";

} // namespace orvan
