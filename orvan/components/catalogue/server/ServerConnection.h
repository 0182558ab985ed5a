// ServerConnection: a connection to a PostgreSQL server, and the statements run on it.
//
// libpq stands in a shared library of its own, the module orvan_postgres, which is loaded when the first connection is
// made (orvan/components/catalogue/LoadedModule.h), so that programs start without it. A network that is dead is
// noticed: connecting has a limit, and so has the server's silence where the options set one; without one, the
// system's keep-alive packets tell after a minute. No prepared statements are used, nor anything else that lasts
// longer than a transaction, except listening, so that a pooler of connections may stand between.
//
// Ownership: signal and URI are copied or outlive the connection, as said below. Thread: one at a time; ServerSignal
// may be used from any thread. Errors: ServerError, whose description begins with the URI without its password; 429
// where the module is missing.
#pragma once

#include "orvan/base/RuntimeError.h"
#include "orvan/catalogue_export.h"
#include "orvan/components/catalogue/server/ServerModule.h"
#include "orvan/components/catalogue/server/ServerUri.h"

#include <atomic>
#include <chrono>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace orvan {

/// Number 75 if there is no connection or no right, 321 for anything else that the server refuses.
class ServerError : public RuntimeError {
public:
    ServerError(const ServerUri& uri, const ServerFailure& failure);

    ServerFailure::Kind kind() const noexcept { return kind_; }
    /// Whether another connection, later, may do better.
    bool isTemporary() const noexcept;
    /// The server's five characters for the reason (SQLSTATE), such as "23505"; may be empty.
    const std::string& state() const noexcept { return state_; }

private:
    ServerFailure::Kind kind_;
    std::string state_;
};

/// Ends what a connection waits for, from any thread and from the handler of a system's signal.
class ServerSignal {
public:
    ServerSignal();
    ~ServerSignal();
    ServerSignal(const ServerSignal&) = delete;
    ServerSignal& operator=(const ServerSignal&) = delete;

    /// Ends the present or the next ServerConnection::wait.
    void wake() noexcept;
    /// Ends all that a connection does, now and from now on: its calls raise a ServerError of the kind `cancelled`.
    void cancel() noexcept;
    bool isCancelled() const noexcept { return cancelled_.load(); }

private:
    friend class ServerConnection;
    void calm() noexcept;

    int descriptor_;
    std::atomic<bool> cancelled_ = false;
};

struct ServerConnectionOptions {
    std::chrono::milliseconds connecting{10'000}; ///< For each of the hosts that the URI names.
    std::chrono::milliseconds silence{0}; ///< How long the server may say nothing during a statement; 0 for ever.
    ServerSignal* signal = nullptr;       ///< Outlives the connection.
    /// Called several times a second while the server is waited for. Returning false cancels; an exception is passed
    /// on.
    std::function<bool()> goOn = {};
    std::string application = "orvan"; ///< The name that the server's administrator sees.
};

class ServerConnection;

/// The rows of a statement. The destructor reads the rest, because the connection is free only then.
class ORVAN_CATALOGUE_INTERNAL ServerRows {
public:
    ServerRows(const ServerRows&) = delete;
    ServerRows& operator=(const ServerRows&) = delete;
    ~ServerRows();

    /// Goes to the next row. Returns false when there is none.
    bool next();
    /// The value in a column, counted from 0; a NULL is empty. Valid until the next call of next().
    std::string_view text(int column) const;
    std::int64_t integer(int column) const;
    bool isNull(int column) const;

private:
    friend class ServerConnection;
    explicit ServerRows(ServerConnection& connection) : connection_(connection) {}

    ServerConnection& connection_;
    bool ended_ = false;
};

class ORVAN_CATALOGUE_INTERNAL ServerConnection {
public:
    using Value = ServerLink::Value;

    /// Connects.
    explicit ServerConnection(ServerUri uri, ServerConnectionOptions options = {});
    ~ServerConnection();
    ServerConnection(const ServerConnection&) = delete;
    ServerConnection& operator=(const ServerConnection&) = delete;

    const ServerUri& uri() const noexcept { return uri_; }

    /// Runs several statements without results, separated by ';'.
    void run(const char* sql);
    /// Runs one statement with values for $1, $2 ...: texts, whole numbers, Value.
    template <class... Values>
    ServerRows query(const char* sql, const Values&... values)
    {
        send(sql, {text(values)...});
        return ServerRows(*this);
    }
    /// Runs the statement to its end and returns how many rows it changed.
    template <class... Values>
    std::int64_t execute(const char* sql, const Values&... values)
    {
        {
            ServerRows rows = query(sql, values...);
            while (rows.next()) {
            }
        }
        return link_->changed();
    }
    /// The first column of the first row; 0 if there is none.
    template <class... Values>
    std::int64_t number(const char* sql, const Values&... values)
    {
        ServerRows rows = query(sql, values...);
        return rows.next() ? rows.integer(0) : 0;
    }

    /// Runs COPY ... FROM STDIN. `fill` is called with a function that sends bytes. If `fill` throws, the connection is
    /// closed, and with it the transaction ends without effect. Returns how many rows came in.
    using Put = std::function<void(std::string_view bytes)>;
    std::int64_t copyIn(const char* sql, const std::function<void(const Put&)>& fill);
    /// Runs COPY ... TO STDOUT, and calls `take` with each row and its line break. If `take` throws, the connection is
    /// closed.
    void copyOut(const char* sql, const std::function<void(std::string_view row)>& take);

    /// Waits until the server notifies, ServerSignal::wake is called, or the time is over. Never returns `failed`.
    ServerWait wait(std::chrono::milliseconds time);

    /// Runs `body` as one transaction; `begin` is "BEGIN" with what the transaction needs.
    template <class Body>
    void transaction(const char* begin, Body&& body)
    {
        run(begin);
        try {
            body();
        } catch (...) {
            rollBack();
            throw;
        }
        run("COMMIT");
    }
    /// Takes back the transaction; does nothing where the connection is lost, because the server does it then.
    void rollBack() noexcept;

private:
    friend class ServerRows;
    class Watch;

    struct Text {
        std::string kept;
        bool isNull = false;
    };
    template <class Number, std::enable_if_t<std::is_integral_v<Number>, int> = 0>
    static Text text(Number value)
    {
        return {std::to_string(value)};
    }
    static Text text(const Value& value) { return value ? Text{std::string(*value)} : Text{{}, true}; }

    void connect();
    void send(const char* sql, const std::vector<Text>& values);
    /// Raises the link's failure, if it has failed.
    void check();
    [[noreturn]] void raise(const ServerFailure& failure);

    const ServerUri uri_;
    const ServerConnectionOptions options_;
    std::unique_ptr<Watch> watch_;
    std::unique_ptr<ServerLink> link_;
};

} // namespace orvan
