#include "orvan/components/trace/TraceLog.h"
#include "orvan/core/modInit.h"
#include "orvan/ui/headless/HeadlessPlatform.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>
#include <thread>

#include <unistd.h>

namespace orvan {
namespace {

using test::Rows;

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
        std::string name = testing::TempDir() + "orvan-trace-XXXXXX";
        directory = ::mkdtemp(name.data());
        options.file = directory / "trace.log";
        options.report = [this](std::string_view text) { reports.emplace_back(text); };
        messageBox.onWaiting = [&](const ui::Message&) { messageBox.answer(ui::MessageResult::ok); };
    }
    ~TraceLogTest() override { fs::remove_all(directory); }

    std::shared_ptr<Trace> makeTrace()
    {
        return std::dynamic_pointer_cast<Trace>(traceLogFactory(options, messageBox)());
    }

    fs::path directory;
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
    // "+A" enters, "-A" leaves, "!" records an error.
    for (const auto& [calls, depths] : Rows<const char*, const char*>{
             {"+A +B +C ! ! !", "0 1 2 2 1 0"},             // a failing chain is recorded on the way up
             {"+A +B ! +R -R +C -C -A", "0 1 1 1 1 1 1 0"}, // a recovering procedure ends, its caller goes on
             {"+A +B ! ! -B +C -C -A", "0 1 1 0 1 1 1 0"},  // one that resumes exits after its errors
             {"+A +left +B -B -A", "0 1 2 2 0"},            // an exit closes what was left open within
             {"+A -other +B -B -A", "0 1 1 1 0"},           // an exit under a label of nobody changes nothing
             {"+A +A ! -A +B -B", "0 1 1 0 0 0"},           // of two equal labels the open one is closed
             {"! ! +B -B", "0 0 0 0"}}) {                   // errors of nobody do not go below zero
        options.file = directory / calls;
        auto trace = makeTrace();
        std::istringstream words(calls);
        for (std::string word; words >> word;) {
            word == "!"      ? test::traceErrorOf(*trace, 13)
            : word[0] == '+' ? trace->TraceEnter(word.substr(1))
                             : trace->TraceExit(word.substr(1));
        }
        trace.reset(); // closes the file
        std::string found;
        for (const Lines lines = linesOf(options.file)[""]; const std::string& line : lines) {
            found.append(found.empty() ? "" : " ").append(std::to_string(std::stoi(line)));
        }
        EXPECT_EQ(found, depths) << calls;
    }
    options.file = directory / "texts";
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
        shown += std::to_string(message.ownerWindow) + ' ' + message.title + ": " + message.text + '\n';
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
    options.file = directory / "." / "trace.log";
    const auto second = makeTrace(); // shares it: two streams would rotate it from under each other
    for (int i = 0; i < 1000; ++i) {
        (i % 2 == 0 ? first : second)->TraceError(std::to_string(i));
    }
    int next = -1;
    for (const char* name : {"trace.2.log", "trace.1.log", "trace.log"}) {
        EXPECT_LE(fs::file_size(directory / name), options.maxFileSize) << name;
        const Lines lines = linesOf(directory / name)[""];
        for (const std::string& line : lines) {
            const int number = std::stoi(line.substr(line.rfind(' ')));
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
    options.report = [this](std::string_view text) {
        reports.emplace_back(text);
        makeTrace()->TraceError("from the report"); // must not wait for itself
        throw RuntimeError(5);
    };
    for (const auto& [file, maxFileSize] : Rows<fs::path, std::size_t>{{directory / "file" / "trace.log", 1000},
                                                                       {"", 1000},
                                                                       {"/dev/full", 1000},
                                                                       {directory, 1000},
                                                                       {directory / "zero.log", 0}}) {
        reports.clear();
        options.file = file;
        options.maxFileSize = maxFileSize;
        const auto trace = makeTrace();
        const auto second = makeTrace();
        for (int i = 0; i < 100; ++i) {
            trace->TraceEnter("a");
            test::traceErrorOf(*trace, 13);
            second->TraceError("");
        }
        EXPECT_EQ(trace->LastErrorNumber(), 13) << file;
        ASSERT_EQ(reports.size(), 1U) << file;
        EXPECT_NE(reports[0].find('"' + file.string() + '"'), std::string::npos) << reports[0];
    }
}

TEST_F(TraceLogTest, FilesOfProcessesLongGoneAreRemoved)
{
    const std::string living = "trace-" + std::to_string(::getppid()) + ".log";
    const Rows<std::string, int, bool> rows = {{"trace-99999999.log", 8, false},  {"trace-99999999.2.log", 8, false},
                                               {"trace-99999998.log", 6, true},   {living, 8, true},
                                               {"trace-.log", 8, true},           {"trace-99999999.txt", 8, true},
                                               {"trace-99999999.x.log", 8, true}, {"notes.log", 8, true}};
    for (const auto& [name, days, kept] : rows) {
        std::ofstream(directory / name) << "old";
        fs::last_write_time(directory / name, fs::file_time_type::clock::now() - std::chrono::hours(24 * days));
    }
    makeTrace()->TraceError("");
    EXPECT_TRUE(fs::exists(directory / "trace-99999999.log")) << "a host's own file name tidies nothing";
    options.file = directory / ("trace-" + std::to_string(::getpid()) + ".log");
    makeTrace()->TraceError("");
    for (const auto& [name, days, kept] : rows) {
        EXPECT_EQ(fs::exists(directory / name), kept) << name;
    }
}

TEST_F(TraceLogTest, DefaultFileIsInTheUsersStateDirectory)
{
    const char* const variable = std::getenv("HOME");
    const std::string before = variable == nullptr ? "" : variable;
    const std::string own = "/orvan/trace-" + std::to_string(::getpid()) + ".log";
    for (const auto& [state, home, file] :
         Rows<const char*, const char*, std::string>{{"/s", "/h", "/s" + own},
                                                     {"", "/h", "/h/.local/state" + own},
                                                     {"relative", "/h", "/h/.local/state" + own},
                                                     {"", "", ""}}) {
        ::setenv("XDG_STATE_HOME", state, 1);
        ::setenv("HOME", home, 1);
        EXPECT_EQ(defaultTraceFile().string(), file) << state << " " << home;
    }
    ::setenv("HOME", before.c_str(), 1);
    ::unsetenv("XDG_STATE_HOME"); // nothing else here looks at it
}

} // namespace
} // namespace orvan
