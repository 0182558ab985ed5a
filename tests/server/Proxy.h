// Proxy: stands between a program and the tests' PostgreSQL, and can stop passing bytes on, as a dead network does, or
// cut all connections. Counts the bytes. Thread: any.
#pragma once

#include <atomic>
#include <cstring>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace orvan::test {

class Proxy {
public:
    /// Listens at a socket in the folder, under the name that the server's own socket has.
    Proxy(const std::filesystem::path& server, const std::filesystem::path& folder)
        : server_(server), path_(folder / server.filename()),
          listener_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        const sockaddr_un address = addressOf(path_);
        if (::bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
            ::listen(listener_, 10) != 0) {
            std::perror("proxy");
        }
        thread_ = std::thread([this] { run(); });
    }
    ~Proxy()
    {
        ends_ = true;
        thread_.join();
        closeAll();
        ::close(listener_);
    }
    Proxy(const Proxy&) = delete;
    Proxy& operator=(const Proxy&) = delete;

    std::atomic<bool> drops = false; ///< Bytes are taken and not passed on.
    std::atomic<bool> cuts = false;  ///< Connections are closed, and new ones too.
    std::atomic<std::int64_t> bytes = 0;

private:
    struct Pair {
        int client, server;
    };

    static sockaddr_un addressOf(const std::filesystem::path& path)
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
        return address;
    }
    void accept()
    {
        const Pair pair{::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC),
                        ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)};
        const sockaddr_un address = addressOf(server_);
        if (::connect(pair.server, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
            ::close(pair.client);
            ::close(pair.server);
            return;
        }
        pairs_.push_back(pair);
    }
    /// False at the end.
    bool pass(int from, int to)
    {
        char buffer[65536];
        const ssize_t count = ::read(from, buffer, sizeof buffer);
        if (count > 0) {
            bytes += count;
        }
        return count > 0 && (drops || ::send(to, buffer, static_cast<std::size_t>(count), MSG_NOSIGNAL) == count);
    }
    void closeAll()
    {
        for (const Pair& pair : pairs_) {
            ::close(pair.client);
            ::close(pair.server);
        }
        pairs_.clear();
    }
    void run()
    {
        while (!ends_) {
            std::vector<pollfd> waiting{{listener_, POLLIN, 0}};
            for (const Pair& pair : pairs_) {
                waiting.push_back({pair.client, POLLIN, 0});
                waiting.push_back({pair.server, POLLIN, 0});
            }
            ::poll(waiting.data(), waiting.size(), 20);
            std::vector<Pair> open;
            for (std::size_t i = 0; i < pairs_.size(); ++i) {
                const bool goesOn = (waiting[2 * i + 1].revents == 0 || pass(pairs_[i].client, pairs_[i].server)) &&
                                    (waiting[2 * i + 2].revents == 0 || pass(pairs_[i].server, pairs_[i].client));
                if (goesOn) {
                    open.push_back(pairs_[i]);
                } else {
                    ::close(pairs_[i].client);
                    ::close(pairs_[i].server);
                }
            }
            pairs_ = std::move(open);
            if (waiting[0].revents != 0) {
                accept();
            }
            if (cuts) {
                closeAll();
            }
        }
    }

    const std::filesystem::path server_, path_;
    const int listener_;
    std::atomic<bool> ends_ = false;
    std::vector<Pair> pairs_;
    std::thread thread_;
};

} // namespace orvan::test
