// PostgresCluster: a PostgreSQL of the tests' own, in a temporary folder, that can be reached by a socket in it only.
//
// It knows nothing of a PostgreSQL that may run on the computer. As root it runs as the user nobody, because PostgreSQL
// refuses root. However the test's program ends, the server ends, and its folder goes: a process of its own sees to it.
// Thread: one at a time.
#pragma once

#include "orvan/components/catalogue/server/ServerConnection.h"

#include <filesystem>
#include <string>
#include <vector>

#include <sys/types.h>

namespace orvan::test {

class PostgresCluster {
public:
    /// Makes the cluster and starts it. `settings` are lines for its postgresql.conf.
    explicit PostgresCluster(const std::string& settings = {});
    ~PostgresCluster();
    PostgresCluster(const PostgresCluster&) = delete;
    PostgresCluster& operator=(const PostgresCluster&) = delete;

    /// The one that the tests of a program share.
    static PostgresCluster& shared();

    void start();
    /// Ends the server at once, as if it were killed.
    void kill();

    /// A URI of the database, for the superuser `owner` or another user.
    [[nodiscard]] std::string uri(const std::string& database, const std::string& user = "owner") const;
    /// Makes an empty database with a name of its own, and returns the name.
    [[nodiscard]] std::string newDatabase();
    /// The socket's file, for a test that stands between.
    [[nodiscard]] std::filesystem::path socket() const;
    [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }

private:
    pid_t run(const std::vector<std::string>& command) const;
    void watch();

    std::filesystem::path folder_;
    pid_t server_ = 0;
    int lifeline_ = -1; ///< The watching process sees it closed when this program ends.
    int databases_ = 0;
};

} // namespace orvan::test
