#include "benchmarks/Machine.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <sys/sysinfo.h>
#include <unicode/uversion.h>

#include <QtGlobal>
#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <thread>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace orvan::bench {

namespace {

/// The value of the first line that begins with `key`, without the separator and without quotes.
std::string valueIn(const char* file, const std::string& key)
{
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with(key)) {
            const std::size_t from = line.find_first_not_of(" \t:=\"", key.size());
            return from == line.npos ? "" : line.substr(from, line.find_last_not_of('"') + 1 - from);
        }
    }
    return "unknown";
}

} // namespace

std::string machineDescription()
{
    struct sysinfo info = {};
    sysinfo(&info);
    double load = 0;
    getloadavg(&load, 1);
    std::ostringstream text;
    text << "- processor: " << valueIn("/proc/cpuinfo", "model name") << ", " << std::thread::hardware_concurrency()
         << " of them, cache " << valueIn("/proc/cpuinfo", "cache size") << '\n'
         << "- memory: " << info.totalram * info.mem_unit / (1UL << 20U) << " MiB; load at the start "
         << std::setprecision(2) << load << '\n'
         << "- system: " << valueIn("/etc/os-release", "PRETTY_NAME") << "; compiler " << __VERSION__ << '\n'
         << "- peers: Qt " << qVersion() << ", ICU " << U_ICU_VERSION << ", SQLite " << sqlite3_libversion() << '\n';
    return text.str();
}

#if defined(__x86_64__)
[[gnu::target("avx")]] void clearWideRegisters()
{
    if (__builtin_cpu_supports("avx")) {
        _mm256_zeroupper();
    }
}
#else
void clearWideRegisters() {}
#endif

} // namespace orvan::bench
