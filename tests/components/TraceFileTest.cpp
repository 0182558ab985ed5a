#include "tests/components/TraceLogFixture.h"

#include <chrono>
#include <cstdlib>
#include <map>
#include <thread>

namespace orvan {
namespace {

namespace fs = std::filesystem;

TEST_F(TraceLogTest, ThreadsShareTheFileAndKeepTheirOwnDepth)
{
    constexpr int kRounds = 2000;
    const auto factory = traceLogFactory(options, messageBox);
    const auto run = [&](const char* outer, const char* inner) {
        const auto trace = std::dynamic_pointer_cast<Trace>(factory());
        for (int i = 0; i < kRounds; ++i) {
            trace->TraceEnter(outer);
            trace->TraceEnter(inner);
            trace->TraceExit(inner);
            trace->TraceExit(outer);
        }
    };
    std::thread one(run, "a", "b");
    std::thread two(run, "c", "d");
    one.join();
    two.join();
    std::map<std::string, std::string> rests; // by thread
    for (const TraceLine& line : linesOf(options.file)) {
        rests[line.thread] += line.rest + '\n';
    }
    ASSERT_EQ(rests.size(), 2U);
    for (const auto& [thread, rest] : rests) {
        const std::string round = rest[9] == 'a' ? " 0 enter a\n 1   enter b\n 1   exit  b\n 0 exit  a\n"
                                                 : " 0 enter c\n 1   enter d\n 1   exit  d\n 0 exit  c\n";
        std::string expected;
        for (int i = 0; i < kRounds; ++i) {
            expected += round;
        }
        EXPECT_TRUE(rest == expected) << "thread " << thread << " begins with\n" << rest.substr(0, 400);
    }
}

TEST_F(TraceLogTest, RotationKeepsTheNewestLinesWithinTheSizes)
{
    options.maxFileSize = 3000;
    options.maxFiles = 2;
    const auto first = makeTrace();
    options.file = directory / "." / "trace.log";
    const auto second = makeTrace(); // shares it: two streams would rotate it from under each other
    for (int i = 0; i < 1000; ++i) {
        (i % 2 == 0 ? first : second)->TraceError(std::to_string(i));
    }
    int next = -1;
    for (const char* name : {"trace.2.log", "trace.1.log", "trace.log"}) {
        EXPECT_LE(fs::file_size(directory / name), options.maxFileSize) << name;
        for (const TraceLine& line : linesOf(directory / name)) {
            const int number = std::stoi(line.rest.substr(line.rest.rfind(' ')));
            EXPECT_EQ(number, next < 0 ? number : next) << name;
            next = number + 1;
        }
    }
    EXPECT_EQ(next, 1000);
    EXPECT_FALSE(fs::exists(directory / "trace.3.log"));
}

TEST_F(TraceLogTest, FileThatCannotBeWrittenIsReportedOnce)
{
    std::ofstream(directory / "file") << "no directory";
    struct Row {
        fs::path file;
        std::size_t maxFileSize;
    };
    for (const Row& row : {Row{directory / "file" / "trace.log", 1000}, Row{"", 1000}, Row{"/dev/full", 1000},
                           Row{directory, 1000}, Row{directory / "zero.log", 0}}) {
        reports.clear();
        options.file = row.file;
        options.maxFileSize = row.maxFileSize;
        const auto trace = makeTrace();
        const auto second = makeTrace();
        for (int i = 0; i < 100; ++i) {
            trace->TraceEnter("a");
            try {
                throw RuntimeError(13);
            } catch (...) {
                trace->TraceError("");
            }
            second->TraceError("");
        }
        EXPECT_EQ(trace->LastErrorNumber(), 13) << row.file;
        ASSERT_EQ(reports.size(), 1U) << row.file;
        EXPECT_NE(reports[0].find('"' + row.file.string() + '"'), std::string::npos) << reports[0];
    }
}

TEST_F(TraceLogTest, FileThatIsTakenAwayIsReportedOnce)
{
    options.file = directory / "below" / "trace.log";
    options.maxFileSize = 1000;
    options.report = [this](std::string_view text) {
        reports.emplace_back(text);
        makeTrace()->TraceError("from the report"); // must not wait for itself
        throw RuntimeError(5);
    };
    const auto trace = makeTrace();
    trace->TraceError("");
    EXPECT_EQ(linesOf(options.file).size(), 1U);
    fs::remove_all(directory / "below");
    std::ofstream(directory / "below") << "no directory any more";
    for (int i = 0; i < 100; ++i) {
        trace->TraceError("");
    }
    EXPECT_EQ(reports.size(), 1U);
}

TEST_F(TraceLogTest, FilesOfProcessesLongGoneAreRemoved)
{
    struct Row {
        std::string name;
        int days;
        bool kept;
    };
    const std::string living = "trace-" + std::to_string(::getppid()) + ".log";
    const Row rows[] = {{"trace-99999999.log", 8, false}, {"trace-99999999.2.log", 8, false},
                        {"trace-99999998.log", 6, true},  {living, 8, true},
                        {"trace-.log", 8, true},          {"trace-99999999.txt", 8, true},
                        {"trace-99999999.x.log", 8, true}, {"trace-99999999..log", 8, true},
                        {"trace--5.log", 8, true},        {"notes.log", 8, true}};
    for (const Row& row : rows) {
        std::ofstream(directory / row.name) << "old";
        fs::last_write_time(directory / row.name, fs::file_time_type::clock::now() - std::chrono::hours(24 * row.days));
    }
    makeTrace()->TraceError("");
    EXPECT_TRUE(fs::exists(directory / "trace-99999999.log")) << "a host's own file name tidies nothing";
    options.file = directory / ("trace-" + std::to_string(::getpid()) + ".log");
    makeTrace()->TraceError("");
    for (const Row& row : rows) {
        EXPECT_EQ(fs::exists(directory / row.name), row.kept) << row.name;
    }
}

TEST_F(TraceLogTest, DefaultFileIsInTheUsersStateDirectory)
{
    const auto valueOf = [](const char* variable) {
        const char* const value = std::getenv(variable);
        return value == nullptr ? std::string() : std::string(value);
    };
    const std::string home = valueOf("HOME");
    const std::string state = valueOf("XDG_STATE_HOME");
    const std::string name = "/orvan/trace-" + std::to_string(::getpid()) + ".log";
    struct Row {
        const char* state;
        const char* home;
        std::string file;
    };
    for (const Row& row : {Row{"/s", "/h", "/s" + name}, Row{"", "/h", "/h/.local/state" + name},
                           Row{"relative", "/h", "/h/.local/state" + name}, Row{"", "", ""}}) {
        ::setenv("XDG_STATE_HOME", row.state, 1);
        ::setenv("HOME", row.home, 1);
        EXPECT_EQ(defaultTraceFile().string(), row.file) << row.state << " " << row.home;
    }
    ::setenv("HOME", home.c_str(), 1);
    ::setenv("XDG_STATE_HOME", state.c_str(), 1); // empty counts as not set
}

} // namespace
} // namespace orvan
