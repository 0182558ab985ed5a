#include "components/TraceLog.h"
#include "core/modInit.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <thread>

#include <unistd.h>

namespace orvan {
namespace {

using test::Rows;

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

struct KeepingMessageBox final : ui::MessageBox {
    ui::MessageResult show(const ui::Message& message) override
    {
        shown.push_back(message);
        return ui::MessageResult::ok;
    }
    std::vector<ui::Message> shown;
};

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
    }
    ~TraceLogTest() override { fs::remove_all(directory); }

    std::shared_ptr<Trace> makeTrace()
    {
        return std::dynamic_pointer_cast<Trace>(traceLogFactory(options, messageBox)());
    }

    fs::path directory;
    TraceLogOptions options;
    std::vector<std::string> reports;
    KeepingMessageBox messageBox;
};

void fail()
{
    throw RuntimeError(9, "list", "No row 7");
}

void failIn(const char* label)
{
    tracePropagate(label, fail);
}

void work(const char* label)
{
    tracePropagate(label, [] {});
}

const std::string k9 = " error 9 No row 7 [list]";

const Rows<const char*, std::function<void()>, Lines> kShapes = {
    {"a failing chain is recorded on the way up, then shown",
     [] { traceShowToUser("A", [] { tracePropagate("B", [] { failIn("C"); }); }, [] { return 77; }); },
     {" 0 enter A", " 1   enter B", " 2     enter C", " 2    " + k9, " 1  " + k9, " 0" + k9,
      " 0 show  9 No row 7 [list]"}},
    {"a recovering procedure ends, its caller goes on",
     [] { tracePropagate("A", [] { traceRecover("B", fail, [] { work("R"); }); work("C"); }); },
     {" 0 enter A", " 1   enter B", " 1  " + k9, " 1   enter R", " 1   exit  R", " 1   enter C", " 1   exit  C",
      " 0 exit  A"}},
    {"a closing procedure traces its closing",
     [] { tracePropagate("A", [] { traceCloseDialog("B", [] { failIn("C"); }, [] { work("Close"); }); }); },
     {" 0 enter A", " 1   enter B", " 2     enter C", " 2    " + k9, " 1  " + k9, " 1   enter Close",
      " 1   exit  Close", " 0 exit  A"}},
    {"procedures that go on exit after errors, and their caller is still open",
     [] { tracePropagate("A", [] { traceResume("B", [](auto step) { step(fail); step(fail); }); work("C"); }); },
     {" 0 enter A", " 1   enter B", " 1  " + k9, " 0" + k9, " 1   exit  B", " 1   enter C", " 1   exit  C",
      " 0 exit  A"}},
    {"what is ignored is not recorded",
     [] { traceIgnore("A", [](auto step) { step(fail); step([] { work("B"); }); }); },
     {" 0 enter A", " 1   enter B", " 1   exit  B", " 0 exit  A"}},
    {"an exit closes what was left open within",
     [] { tracePropagate("A", [] { traceObject().TraceEnter("left"); work("B"); }); },
     {" 0 enter A", " 1   enter left", " 2     enter B", " 2     exit  B", " 0 exit  A"}},
    {"an exit under a label of nobody changes nothing",
     [] { tracePropagate("A", [] { traceObject().TraceExit("other"); work("B"); }); },
     {" 0 enter A", " 1   exit  other", " 1   enter B", " 1   exit  B", " 0 exit  A"}},
    {"of two equal labels the open one is closed",
     [] { tracePropagate("A", [] { traceRecover("A", fail, [] {}); }); work("B"); },
     {" 0 enter A", " 1   enter A", " 1  " + k9, " 0 exit  A", " 0 enter B", " 0 exit  B"}},
    {"errors of nobody do not go below zero",
     [] { traceIgnore("A", [](auto) {}); detail::recordError(); detail::recordError(); work("B"); },
     {" 0 enter A", " 0 exit  A", " 0 error none", " 0 error none", " 0 enter B", " 0 exit  B"}},
    {"a line stays one line",
     [] { work("two\nlines\t\x7F"); },
     {R"( 0 enter two\x0Alines\x09\x7F)", R"( 0 exit  two\x0Alines\x09\x7F)"}},
};

TEST_F(TraceLogTest, EveryShapeLeavesItsLinesAtTheirDepth)
{
    for (const auto& [name, run, expected] : kShapes) {
        options.file = directory / name;
        gobjTrace = makeTrace();
        run();
        gobjTrace.reset(); // closes the file
        EXPECT_EQ(linesOf(options.file)[""], expected) << name;
    }
}

TEST_F(TraceLogTest, DepthStaysBoundedWhenProceduresAreNeverLeft)
{
    const auto trace = makeTrace();
    for (int i = 0; i < 1000; ++i) {
        trace->TraceEnter("left");
    }
    trace->TraceError("flushes");
    const Lines lines = linesOf(options.file)[""];
    ASSERT_EQ(lines.size(), 1001U);
    for (const std::string& line : lines) {
        EXPECT_LT(std::stoi(line), 64) << line;
    }
}

TEST_F(TraceLogTest, ShowLastErrorShowsTheTextTheErrorBeganWith)
{
    gobjTrace = makeTrace();
    gobjTrace->ShowLastError(5);
    EXPECT_EQ(messageBox.shown.size(), 0U) << "no error yet";
    EXPECT_EQ(gobjTrace->LastErrorNumber(), 0);
    EXPECT_EQ(gobjTrace->AppErrorNumber(), -2147220991);
    traceShowToUser("A", [] { tracePropagate("B", [] { failIn("C"); }); }, [] { return 77; });
    EXPECT_EQ(gobjTrace->LastErrorNumber(), 9);
    traceShowToUser("A", [] { throw RuntimeError(9); }, [] { return 78; });
    traceShowToUser("A", [] { throw std::runtime_error("gone"); }, [] { return 79; });
    gobjTrace.reset();
    std::string shown;
    for (const ui::Message& message : messageBox.shown) {
        shown += std::to_string(message.ownerWindow) + ' ' + message.title + ": " + message.text + '\n';
        EXPECT_EQ(message.icon, ui::MessageIcon::exclamation);
        EXPECT_EQ(message.buttons, ui::MessageButtons::ok);
    }
    EXPECT_EQ(shown, "77 Orvan: Error 9: No row 7\n78 Orvan: Error 9: Subscript out of range\n"
                     "79 Orvan: Error 440: gone\n");
}

TEST_F(TraceLogTest, ThreadsShareTheFileAndKeepTheirOwnDepth)
{
    constexpr std::size_t kRounds = 2000;
    const auto factory = traceLogFactory(options, messageBox);
    const auto run = [&](const char* outer) {
        const auto trace = std::dynamic_pointer_cast<Trace>(factory());
        for (std::size_t i = 0; i < kRounds; ++i) {
            trace->TraceEnter(outer);
            trace->TraceEnter("b");
            trace->TraceExit("b");
            trace->TraceExit(outer);
        }
    };
    std::thread other(run, "A");
    run("a");
    other.join();
    auto lines = linesOf(options.file);
    lines.erase("");
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_NE(lines.begin()->second, lines.rbegin()->second) << "two outer names";
    for (const auto& [thread, its] : lines) {
        const std::string outer = its.at(0).substr(9);
        const Lines round = {" 0 enter " + outer, " 1   enter b", " 1   exit  b", " 0 exit  " + outer};
        ASSERT_EQ(its.size(), 4 * kRounds) << outer;
        for (std::size_t i = 0; i < its.size(); ++i) {
            ASSERT_EQ(its[i], round[i % 4]) << outer << ", line " << i;
        }
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
    for (const auto& [file, maxFileSize] : Rows<fs::path, std::size_t>{
             {directory / "file" / "trace.log", 1000}, {"", 1000}, {"/dev/full", 1000}, {directory, 1000},
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
    EXPECT_EQ(linesOf(options.file)[""].size(), 1U);
    fs::remove_all(directory / "below");
    std::ofstream(directory / "below") << "no directory any more";
    for (int i = 0; i < 100; ++i) {
        trace->TraceError("");
    }
    EXPECT_EQ(reports.size(), 1U);
}

TEST_F(TraceLogTest, FilesOfProcessesLongGoneAreRemoved)
{
    const std::string living = "trace-" + std::to_string(::getppid()) + ".log";
    const Rows<std::string, int, bool> rows = {
        {"trace-99999999.log", 8, false}, {"trace-99999999.2.log", 8, false}, {"trace-99999998.log", 6, true},
        {living, 8, true}, {"trace-.log", 8, true}, {"trace-99999999.txt", 8, true}, {"trace--5.log", 8, true},
        {"trace-99999999.x.log", 8, true}, {"trace-99999999..log", 8, true}, {"notes.log", 8, true}};
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
    for (const auto& [state, home, file] : Rows<const char*, const char*, std::string>{
             {"/s", "/h", "/s" + own}, {"", "/h", "/h/.local/state" + own},
             {"relative", "/h", "/h/.local/state" + own}, {"", "", ""}}) {
        ::setenv("XDG_STATE_HOME", state, 1);
        ::setenv("HOME", home, 1);
        EXPECT_EQ(defaultTraceFile().string(), file) << state << " " << home;
    }
    ::setenv("HOME", before.c_str(), 1);
    ::unsetenv("XDG_STATE_HOME"); // nothing else here looks at it
}

} // namespace
} // namespace orvan
