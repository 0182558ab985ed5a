#include "tests/server/PostgresCluster.h"

#include <chrono>
#include <csignal>
#include <fstream>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <pwd.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orvan::test {

namespace {

namespace fs = std::filesystem;
constexpr char kUnprivileged[] = "nobody";

std::string program(const char* name)
{
    return std::string(ORVAN_POSTGRES_FOLDER "/") + name;
}

[[noreturn]] void fail(const std::string& what)
{
    throw std::runtime_error("the tests' PostgreSQL: " + what);
}

} // namespace

PostgresCluster::PostgresCluster(const std::string& settings)
{
    std::string name = "/tmp/orvan-pg-XXXXXX"; // short, because the name of a socket has 107 bytes at most
    if (!::mkdtemp(name.data())) {
        fail("no temporary folder");
    }
    folder_ = name;
    watch(); // before anything is written, because this program may end at any time
    if (::getuid() == 0) {
        const passwd* const user = ::getpwnam(kUnprivileged);
        if (!user || ::chown(name.c_str(), user->pw_uid, user->pw_gid) != 0) {
            fail("no unprivileged user");
        }
    }
    int status = 0;
    const pid_t initdb = run({program("initdb"), "-D", folder_ / "data", "-U", "owner", "-A", "trust", "-E", "UTF8",
                              "--locale=C", "--no-sync", "--no-instructions"});
    if (::waitpid(initdb, &status, 0) != initdb || status != 0) {
        fail("initdb failed");
    }
    std::ofstream(folder_ / "data/postgresql.conf", std::ios::app)
        << "listen_addresses = ''\nunix_socket_directories = '" << folder_.string()
        << "'\nfsync = off\nfull_page_writes = off\nlog_destination = stderr\n"
        << "password_encryption = 'scram-sha-256'\n"
        << settings << '\n';
    // Members of the role with_password have to give a password.
    std::ofstream(folder_ / "data/pg_hba.conf") << "local all +with_password scram-sha-256\nlocal all all trust\n";
    start();
    ServerConnection(ServerUri(uri("postgres"))).run("CREATE ROLE with_password NOLOGIN");
}

PostgresCluster::~PostgresCluster()
{
    kill();
    ::close(lifeline_); // the watching process removes the folder
}

PostgresCluster& PostgresCluster::shared()
{
    static PostgresCluster cluster;
    return cluster;
}

/// Starts a program, as an unprivileged user if this one is root. It ends with this program.
pid_t PostgresCluster::run(const std::vector<std::string>& command) const
{
    std::vector<std::string> words = command;
    if (::getuid() == 0) {
        words.insert(words.begin(), {"setpriv", std::string("--reuid=") + kUnprivileged, "--regid=nogroup",
                                     "--clear-groups", "--pdeathsig=QUIT"});
    }
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    const std::string log = folder_ / "log";
    const pid_t child = ::fork();
    if (child == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGQUIT);
        const int output = ::open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
        ::dup2(output, STDOUT_FILENO);
        ::dup2(output, STDERR_FILENO);
        ::execvp(pointers.front(), pointers.data());
        ::_exit(127);
    }
    return child;
}

void PostgresCluster::start()
{
    fs::remove(folder_ / "data/postmaster.pid"); // of a server that was killed
    server_ = run({program("postgres"), "-D", folder_ / "data"});
    for (int tries = 0; tries < 600; ++tries) {
        try {
            const ServerConnection connection(ServerUri(uri("postgres")));
            return;
        } catch (const ServerError&) {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        if (::waitpid(server_, nullptr, WNOHANG) == server_) {
            break;
        }
    }
    std::ifstream log(folder_ / "log");
    fail("it does not start: " + std::string(std::istreambuf_iterator<char>(log), {}));
}

void PostgresCluster::kill()
{
    if (server_ > 0) {
        ::kill(server_, SIGQUIT);
        ::waitpid(server_, nullptr, 0);
        server_ = 0;
    }
}

/// Starts the process that outlives this program by a moment, and removes the folder.
void PostgresCluster::watch()
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) {
        fail("no pipe");
    }
    const pid_t child = ::fork();
    if (child == 0) {
        ::setsid(); // a signal for the program's group does not end it
        if (::fork() == 0) {
            ::close(ends[1]);
            char ignored = 0;
            while (::read(ends[0], &ignored, 1) > 0) {
            }
            // The server ends with the program that started it, but may be about to write.
            for (int tries = 0; tries < 100 && fs::exists(folder_ / "data/postmaster.pid"); ++tries) {
                std::this_thread::sleep_for(std::chrono::milliseconds(50));
            }
            std::error_code error;
            for (int tries = 0; tries < 100 && fs::exists(folder_, error); ++tries) {
                fs::remove_all(folder_, error); // fails where a program that ends has just written
                std::this_thread::sleep_for(std::chrono::milliseconds(50));
            }
        }
        ::_exit(0);
    }
    ::waitpid(child, nullptr, 0);
    ::close(ends[0]);
    lifeline_ = ends[1];
}

std::string PostgresCluster::uri(const std::string& database, const std::string& user) const
{
    return "postgresql://" + user + "@/" + database + "?host=" + folder_.string();
}

std::string PostgresCluster::newDatabase()
{
    std::string name = "test" + std::to_string(++databases_);
    ServerConnection(ServerUri(uri("postgres"))).run(("CREATE DATABASE " + name).c_str());
    return name;
}

fs::path PostgresCluster::socket() const
{
    return folder_ / ".s.PGSQL.5432";
}

} // namespace orvan::test
