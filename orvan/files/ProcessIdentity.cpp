#include "orvan/files/ProcessIdentity.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include <limits.h>
#include <pwd.h>
#include <signal.h>
#include <unistd.h>

namespace orvan::files {

namespace {

/// When the process was started: the kernel's clock ticks from the start of the computer, as text.
std::string startOf(std::int64_t process)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string line;
    std::getline(file, line);
    // The program's name is the second field, in parentheses, and may hold blanks and parentheses itself.
    // The start is the twentieth field after it.
    const auto end = line.rfind(')');
    if (end == line.npos) {
        return {};
    }
    std::istringstream fields(line.substr(end + 1));
    std::string field;
    for (int i = 0; i < 20; ++i) {
        fields >> field;
    }
    return field;
}

} // namespace

std::string userName()
{
    const passwd* const user = ::getpwuid(::getuid());
    return user && user->pw_name ? user->pw_name : std::to_string(::getuid());
}

std::string hostName()
{
    char name[HOST_NAME_MAX + 1] = {};
    return ::gethostname(name, sizeof name - 1) == 0 ? name : "";
}

std::string processIdentity(std::int64_t process)
{
    std::ifstream file("/proc/sys/kernel/random/boot_id");
    std::string boot;
    std::getline(file, boot);
    const std::string start = startOf(process);
    return start.empty() ? std::string() : boot + "/" + start;
}

bool isRunning(std::int64_t process, const std::string& identity)
{
    if (process <= 0) {
        return false;
    }
    if (::kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH) {
        return false;
    }
    const std::string now = processIdentity(process);
    return identity.empty() || now.empty() || now == identity;
}

} // namespace orvan::files
