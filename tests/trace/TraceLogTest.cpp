#include "orvan/components/trace/TraceLog.h"
#include "orvan/core/modInit.h"
#include "orvan/ui/headless/HeadlessPlatform.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

namespace orvan {
namespace {

using test::Example;
using test::forEachRow;

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

/// The written lines without their times, by thread; all of them together under "".
std::map<std::string, Lines> linesOf(const fs::path& file)
{
    static const std::regex layout(R"((\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3}) (\d+) (.*))");
    std::map<std::string, Lines> lines;
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        std::smatch parts;
        EXPECT_TRUE(std::regex_match(line, parts, layout)) << line;
        lines[parts[2]].push_back(parts[3]);
        lines[""].push_back(parts[3]);
    }
    return lines;
}

class TraceLogTest : public testing::Test {
protected:
    TraceLogTest()
    {
        options.file = folder / "trace.log";
        options.report = [this](const UserText& text) { reports.push_back(text.english()); };
        messageBox.onWaiting = [&](const ui::Message&) { messageBox.answer(ui::MessageResult::ok); };
    }

    std::shared_ptr<Trace> makeTrace()
    {
        return std::dynamic_pointer_cast<Trace>(traceLogFactory(options, messageBox)());
    }

    test::TemporaryFolder folder;
    TraceLogOptions options;
    std::vector<std::string> reports;
    headless::HeadlessMessageBox messageBox;
};

void fail()
{
    throw RuntimeError(9, "list", "No row 7");
}

TEST_F(TraceLogTest, EveryCallLeavesItsLineAtItsDepth)
{
    // "+A" enters, "-A" leaves, "!" records an error; the result is the depth of each line.
    const Example rows[] = {
        {"+A +B +C ! ! !", "0 1 2 2 1 0"},             // a failing chain is recorded on the way up
        {"+A +B ! +R -R +C -C -A", "0 1 1 1 1 1 1 0"}, // a recovering procedure ends, its caller goes on
        {"+A +B ! ! -B +C -C -A", "0 1 1 0 1 1 1 0"},  // one that resumes exits after its errors
        {"+A +left +B -B -A", "0 1 2 2 0"},            // an exit closes what was left open within
        {"+A -other +B -B -A", "0 1 1 1 0"},           // an exit under an unknown label changes nothing
        {"+A +A ! -A +B -B", "0 1 1 0 0 0"},           // of two equal labels the open one is closed
        {"! ! +B -B", "0 0 0 0"},                      // errors outside of procedures do not go below zero
    };
    forEachRow(rows, [&](const Example& row) {
        options.file = folder / row.text;
        auto trace = makeTrace();
        std::istringstream words(row.text);
        for (std::string word; words >> word;) {
            word == "!"      ? test::traceErrorOf(*trace, 13)
            : word[0] == '+' ? trace->TraceEnter(word.substr(1))
                             : trace->TraceExit(word.substr(1));
        }
        trace.reset(); // closes the file
        std::string depths;
        for (const Lines lines = linesOf(options.file)[""]; const std::string& line : lines) {
            depths.append(depths.empty() ? "" : " ").append(std::to_string(std::stoi(line)));
        }
        EXPECT_EQ(depths, row.result);
    });
    options.file = folder / "texts";
    gobjTrace = makeTrace();
    traceShowToUser(
        "A", [] { tracePropagate("two\nlines\t\x7F", fail); }, [] { return 77; });
    traceIgnore("B", [](auto step) { step(fail); });
    gobjTrace.reset();
    EXPECT_EQ(linesOf(options.file)[""],
              (Lines{" 0 enter A", R"( 1   enter two\x0Alines\x09\x7F)", " 1   error 9 No row 7 [list]",
                     " 0 error 9 No row 7 [list]", " 0 show  9 No row 7 [list]", " 0 enter B", " 0 exit  B"}));
}

TEST_F(TraceLogTest, DepthStaysBoundedWhenProceduresAreNeverLeft)
{
    const auto trace = makeTrace();
    for (int i = 0; i < 1000; ++i) {
        trace->TraceEnter("left");
    }
    trace->TraceError("flushes");
    EXPECT_LT(std::stoi(linesOf(options.file)[""].at(1000)), 64);
}

TEST_F(TraceLogTest, ShowLastErrorShowsTheTextTheErrorBeganWith)
{
    gobjTrace = makeTrace();
    gobjTrace->ShowLastError(5);
    EXPECT_EQ(messageBox.shown().size(), 0U) << "no error yet";
    EXPECT_EQ(gobjTrace->LastErrorNumber(), 0);
    EXPECT_EQ(gobjTrace->AppErrorNumber(), -2147220991);
    traceShowToUser(
        "A", [] { tracePropagate("B", [] { tracePropagate("C", fail); }); }, [] { return 77; });
    EXPECT_EQ(gobjTrace->LastErrorNumber(), 9);
    traceShowToUser(
        "A", [] { throw RuntimeError(9); }, [] { return 78; });
    traceShowToUser(
        "A", [] { throw std::runtime_error("gone"); }, [] { return 79; });
    gobjTrace.reset();
    std::string shown;
    for (const ui::Message& message : messageBox.shown()) {
        shown += std::to_string(message.ownerWindow) + ' ' + message.title + ": " + message.text.english() + '\n';
        EXPECT_TRUE(message.icon == ui::MessageIcon::exclamation && message.buttons == ui::MessageButtons::ok);
    }
    EXPECT_EQ(shown, "77 Orvan: Error 9: No row 7\n78 Orvan: Error 9: Subscript out of range\n"
                     "79 Orvan: Error 440: gone\n");
}

TEST_F(TraceLogTest, ThreadsShareTheFileAndKeepTheirOwnDepth)
{
    constexpr std::size_t kRounds = 2000;
    const auto factory = traceLogFactory(options, messageBox);
    const auto run = [&](const char* outer) {
        gobjTrace = std::dynamic_pointer_cast<Trace>(factory());
        for (std::size_t i = 0; i < kRounds; ++i) {
            tracePropagate(outer, [] { tracePropagate("b", [] {}); });
        }
        gobjTrace.reset();
    };
    std::thread other(run, "A");
    run("a");
    other.join();
    std::string outers;
    for (const auto& [thread, its] : linesOf(options.file)) {
        for (std::size_t i = 0; !thread.empty() && i < its.size(); ++i) {
            const std::string outer = its[0].substr(9);
            const Lines round = {" 0 enter " + outer, " 1   enter b", " 1   exit  b", " 0 exit  " + outer};
            ASSERT_EQ(its[i], round[i % 4]) << outer << ", line " << i;
            outers += i == 4 * kRounds - 1 ? outer : ""; // the last of its lines is there
        }
    }
    EXPECT_TRUE(outers == "aA" || outers == "Aa") << outers;
}

TEST_F(TraceLogTest, RotationKeepsTheNewestLinesWithinTheSizes)
{
    options.maxFileSize = 3000;
    options.maxFiles = 2;
    const auto first = makeTrace();
    options.file = folder / "." / "trace.log";
    const auto second = makeTrace(); // shares it: two streams would rotate it from under each other
    for (int i = 0; i < 1000; ++i) {
        (i % 2 == 0 ? first : second)->TraceError(std::to_string(i));
    }
    int next = -1;
    for (const char* name : {"trace.2.log", "trace.1.log", "trace.log"}) {
        EXPECT_LE(fs::file_size(folder / name), options.maxFileSize) << name;
        const Lines lines = linesOf(folder / name)[""];
        for (const std::string& line : lines) {
            const int number = std::stoi(line.substr(line.rfind(' ')));
            EXPECT_EQ(number, next < 0 ? number : next) << name;
            next = number + 1;
        }
    }
    EXPECT_EQ(next, 1000);
    EXPECT_FALSE(fs::exists(folder / "trace.3.log"));
}

TEST_F(TraceLogTest, FileThatCannotBeWrittenIsReportedOnce)
{
    std::ofstream(folder / "file") << "no directory";
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    options.report = [this](const UserText& text) {
        reports.push_back(text.english());
        makeTrace()->TraceError("from the report"); // must not wait for itself
        throw RuntimeError(5);
    };
    struct Row {
        const char* name;
        fs::path file;
        std::size_t maxFileSize = 1000;
    };
    const Row rows[] = {
        {.name = "below a file", .file = folder / "file" / "trace.log"},
        {.name = "no name", .file = ""},
        {.name = "full disk", .file = "/dev/full"},
        {.name = "a folder", .file = folder.path()},
        {.name = "a pipe without a reader", .file = folder / "pipe"},
        {.name = "no size", .file = folder / "zero.log", .maxFileSize = 0},
    };
    forEachRow(rows, [&](const Row& row) {
        reports.clear();
        options.file = row.file;
        options.maxFileSize = row.maxFileSize;
        const auto trace = makeTrace();
        const auto second = makeTrace();
        for (int i = 0; i < 100; ++i) {
            trace->TraceEnter("a");
            test::traceErrorOf(*trace, 13);
            second->TraceError("");
        }
        EXPECT_EQ(trace->LastErrorNumber(), 13);
        ASSERT_EQ(reports.size(), 1U);
        EXPECT_NE(reports[0].find('"' + row.file.string() + '"'), std::string::npos) << reports[0];
    });
}

TEST_F(TraceLogTest, FilesOfProcessesLongGoneAreRemoved)
{
    const std::string living = "trace-" + std::to_string(::getppid()) + ".log";
    struct Row {
        std::string name;
        int days;
        bool kept;
    };
    const Row rows[] = {
        {.name = "trace-99999999.log", .days = 8, .kept = false},
        {.name = "trace-99999999.2.log", .days = 8, .kept = false},
        {.name = "trace-99999998.log", .days = 6, .kept = true},
        {.name = living, .days = 8, .kept = true},
        {.name = "trace-.log", .days = 8, .kept = true},
        {.name = "trace-99999999.txt", .days = 8, .kept = true},
        {.name = "trace-99999999.x.log", .days = 8, .kept = true},
        {.name = "notes.log", .days = 8, .kept = true},
    };
    for (const Row& row : rows) {
        std::ofstream(folder / row.name) << "old";
        fs::last_write_time(folder / row.name, fs::file_time_type::clock::now() - std::chrono::hours(24 * row.days));
    }
    makeTrace()->TraceError("");
    EXPECT_TRUE(fs::exists(folder / "trace-99999999.log")) << "a host's own file name tidies nothing";
    options.file = folder / ("trace-" + std::to_string(::getpid()) + ".log");
    makeTrace()->TraceError("");
    forEachRow(rows, [&](const Row& row) { EXPECT_EQ(fs::exists(folder / row.name), row.kept); });
}

TEST_F(TraceLogTest, DefaultFileIsInTheUsersStateDirectory)
{
    const char* const variable = std::getenv("HOME");
    const std::string homeBefore = variable == nullptr ? "" : variable;
    const std::string own = "/orvan/trace-" + std::to_string(::getpid()) + ".log";
    struct Row {
        const char *name, *state, *home;
        std::string file;
    };
    const Row rows[] = {
        {"state folder set", "/s", "/h", "/s" + own},
        {"state folder empty", "", "/h", "/h/.local/state" + own},
        {"state folder relative", "relative", "/h", "/h/.local/state" + own},
        {"nothing set", "", "", ""},
    };
    forEachRow(rows, [](const Row& row) {
        ::setenv("XDG_STATE_HOME", row.state, 1);
        ::setenv("HOME", row.home, 1);
        EXPECT_EQ(defaultTraceFile().string(), row.file);
    });
    ::setenv("HOME", homeBefore.c_str(), 1);
    ::unsetenv("XDG_STATE_HOME"); // nothing else in this program looks at it
}

} // namespace
} // namespace orvan
