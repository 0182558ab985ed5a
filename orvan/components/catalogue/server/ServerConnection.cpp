#include "orvan/components/catalogue/server/ServerConnection.h"

#include "orvan/components/catalogue/LoadedModule.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <utility>

#include <sys/eventfd.h>
#include <unistd.h>

namespace orvan {

namespace {

using Kind = ServerFailure::Kind;

std::int32_t numberOf(const ServerFailure& failure)
{
    constexpr std::string_view kNoRight = "42501", kNoLogin = "28";
    const bool allowed = failure.kind == Kind::refused && failure.state != kNoRight && !failure.state.empty() &&
                         !failure.state.starts_with(kNoLogin);
    return failure.kind == Kind::outOfMemory ? ErrorNumber::outOfMemory
           : allowed                         ? ErrorNumber::invalidFileFormat
                                             : ErrorNumber::pathFileAccess;
}

MakeServerLink loadedModule()
{
    std::string reasons;
    if (void* const function = moduleFunction("orvan_postgres", kMakeServerLink, reasons)) {
        return reinterpret_cast<MakeServerLink>(function);
    }
    throw RuntimeError(ErrorNumber::cannotCreateComponent, {},
                       userText("a server cannot be used, because a part of this program is missing (%1)", reasons));
}

/// What is set where the URI says nothing. A dead network is noticed after a minute: data without an answer by the
/// time-out, an idle connection by keep-alive packets.
constexpr std::pair<const char*, const char*> kDefaults[] = {
    {"tcp_user_timeout", "60000"}, {"keepalives_idle", "30"}, {"keepalives_interval", "10"}, {"keepalives_count", "3"}};
/// What is always as this library needs it.
constexpr std::pair<const char*, const char*> kFixed[] = {{"client_encoding", "UTF8"}};

std::vector<std::string> partsOf(const std::string& list)
{
    std::vector<std::string> parts(1);
    for (const char c : list) {
        if (c == ',') {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

/// The parameters for each of several hosts alone, so that one that does not answer has a limit of its own; libpq would
/// have one limit for all. Only libpq itself can do a search that needs to know all hosts.
std::vector<ServerUri::Parameters> perHost(const ServerUri::Parameters& parameters)
{
    constexpr std::string_view kListed[] = {"host", "hostaddr", "port"};
    std::size_t hosts = 1;
    for (const auto& [name, value] : parameters) {
        if (value == "prefer-standby") {
            return {parameters};
        }
        if (name == "host" || name == "hostaddr") {
            hosts = std::max(hosts, partsOf(value).size());
        }
    }
    std::vector<ServerUri::Parameters> each(hosts, parameters);
    for (std::size_t host = 0; host < hosts; ++host) {
        for (auto& [name, value] : each[host]) {
            const auto parts = partsOf(value);
            const bool listed = std::find(std::begin(kListed), std::end(kListed), name) != std::end(kListed);
            if (listed && parts.size() == hosts) {
                value = parts[host];
            }
        }
    }
    return each;
}

ServerUri::Parameters completed(const ServerUri& uri, const std::string& application)
{
    ServerUri::Parameters all(std::begin(kDefaults), std::end(kDefaults));
    all.emplace_back("fallback_application_name", application);
    all.insert(all.end(), uri.parameters().begin(), uri.parameters().end()); // of equal names the last one counts
    all.insert(all.end(), std::begin(kFixed), std::end(kFixed));
    return all;
}

} // namespace

ServerError::ServerError(const ServerUri& uri, const ServerFailure& failure)
    : RuntimeError(numberOf(failure), {},
                   orvan::userText("%1: %2", uri.shown(), failure.reason.empty() ? UserText("?") : failure.reason)),
      kind_(failure.kind), state_(failure.state)
{
}

bool ServerError::isTemporary() const noexcept
{
    // Of what a server refuses, these pass: too few connections, starting or stopping, a conflict with others.
    constexpr std::string_view kPassing[] = {"53", "57P", "40", "55P03"};
    return kind_ == Kind::unreachable || kind_ == Kind::timedOut ||
           std::any_of(std::begin(kPassing), std::end(kPassing),
                       [&](std::string_view state) { return state_.starts_with(state); });
}

ServerSignal::ServerSignal() : descriptor_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    if (descriptor_ < 0) {
        throw RuntimeError(ErrorNumber::outOfMemory);
    }
}

ServerSignal::~ServerSignal()
{
    ::close(descriptor_);
}

void ServerSignal::wake() noexcept
{
    const int former = errno; // a signal's handler must not change it
    static_cast<void>(::eventfd_write(descriptor_, 1));
    errno = former;
}

void ServerSignal::cancel() noexcept
{
    cancelled_.store(true);
    wake();
}

void ServerSignal::calm() noexcept
{
    eventfd_t count = 0;
    static_cast<void>(::eventfd_read(descriptor_, &count));
}

/// Asks the options' function and the signal for the link; no exception passes into the module.
class ServerConnection::Watch final : public ServerWatch {
public:
    explicit Watch(const ServerConnectionOptions& options) : options_(options) {}

    int descriptor() const noexcept override { return options_.signal ? options_.signal->descriptor_ : -1; }
    bool goesOn() noexcept override
    {
        try {
            return !(options_.signal && options_.signal->isCancelled()) && (!options_.goOn || options_.goOn());
        } catch (...) {
            thrown_ = std::current_exception();
            return false;
        }
    }
    void rethrow()
    {
        if (thrown_) {
            std::rethrow_exception(std::exchange(thrown_, nullptr));
        }
    }

private:
    const ServerConnectionOptions& options_;
    std::exception_ptr thrown_;
};

ServerConnection::ServerConnection(ServerUri uri, ServerConnectionOptions options)
    : uri_(std::move(uri)), options_(std::move(options)), watch_(std::make_unique<Watch>(options_))
{
    static const MakeServerLink makeLink = loadedModule();
    link_.reset(makeLink(*watch_));
    if (!link_) {
        raise({Kind::outOfMemory});
    }
    link_->setSilence(options_.silence);
    connect();
}

ServerConnection::~ServerConnection() = default;

void ServerConnection::connect()
{
    for (const ServerUri::Parameters& host : perHost(completed(uri_, options_.application))) {
        if (link_->connect(host, options_.connecting) || link_->failure().kind == Kind::cancelled) {
            break;
        }
    }
    check();
}

void ServerConnection::raise(const ServerFailure& failure)
{
    watch_->rethrow();
    const std::string reason = failure.reason.english(), safe = uri_.withoutPasswords(reason);
    throw ServerError(uri_, {failure.kind, failure.state, safe == reason ? failure.reason : UserText(safe)});
}

void ServerConnection::check()
{
    if (link_->failure().kind != Kind::none) {
        raise(link_->failure());
    }
}

void ServerConnection::send(const char* sql, const std::vector<Text>& values)
{
    std::vector<Value> views;
    views.reserve(values.size());
    for (const Text& value : values) {
        views.push_back(value.isNull ? Value() : Value(value.kept));
    }
    static_cast<void>(link_->send(sql, views));
    check();
}

void ServerConnection::run(const char* sql)
{
    execute(sql);
}

std::int64_t ServerConnection::copyIn(const char* sql, const std::function<void(const Put&)>& fill)
{
    constexpr std::size_t kBatch = std::size_t{64} * 1024;
    send(sql, {});
    static_cast<void>(link_->next());
    check();
    std::string batch;
    const auto put = [&] {
        static_cast<void>(link_->put(batch));
        check();
        batch.clear();
    };
    try {
        fill([&](std::string_view bytes) {
            batch.append(bytes);
            if (batch.size() >= kBatch) {
                put();
            }
        });
        if (!batch.empty()) {
            put();
        }
    } catch (...) {
        link_->close();
        throw;
    }
    static_cast<void>(link_->endPut());
    check();
    static_cast<void>(link_->next());
    check();
    return link_->changed();
}

void ServerConnection::copyOut(const char* sql, const std::function<void(std::string_view row)>& take)
{
    send(sql, {});
    static_cast<void>(link_->next());
    check();
    try {
        for (std::string_view row; link_->get(row);) {
            take(row);
        }
    } catch (...) {
        link_->close();
        throw;
    }
    check();
}

ServerWait ServerConnection::wait(std::chrono::milliseconds time)
{
    if (!watch_->goesOn()) {
        raise({Kind::cancelled, {}, userText("it was cancelled")});
    }
    const ServerWait waited = link_->wait(time);
    check();
    if (waited == ServerWait::woken) {
        if (!watch_->goesOn()) {
            raise({Kind::cancelled, {}, userText("it was cancelled")});
        }
        options_.signal->calm();
    }
    return waited;
}

void ServerConnection::rollBack() noexcept
{
    try {
        if (link_->usable()) {
            run("ROLLBACK");
        }
    } catch (...) { // without a connection the server takes the transaction back
        link_->close();
    }
}

ServerRows::~ServerRows()
{
    while (!ended_ && connection_.link_->next()) {
    }
}

bool ServerRows::next()
{
    if (ended_ || connection_.link_->next()) {
        return !ended_;
    }
    ended_ = true;
    connection_.check();
    return false;
}

std::string_view ServerRows::text(int column) const
{
    return connection_.link_->value(column).value_or(std::string_view());
}

std::int64_t ServerRows::integer(int column) const
{
    const std::string_view digits = text(column);
    std::int64_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

bool ServerRows::isNull(int column) const
{
    return !connection_.link_->value(column);
}

} // namespace orvan
