#include "apps/orvan-trace/Report.h"
#include "orvan/base/RuntimeError.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iomanip>
#include <sstream>
#include <tuple>

namespace orvan::trace_reader {
namespace {

using test::Example;
using test::forEachRow;

/// A log out of "milliseconds thread depth kind text" for each line, with "|" between lines.
std::string logOf(const std::string& shorthand)
{
    std::ostringstream log;
    std::istringstream lines(shorthand);
    for (std::string line; std::getline(lines, line, '|');) {
        std::istringstream words(line);
        int milliseconds = 0;
        std::size_t depth = 0;
        std::string thread, kind, text;
        words >> milliseconds >> thread >> depth >> kind;
        std::getline(words >> std::ws, text);
        log << "2026-01-31 09:15:" << std::setfill('0') << std::setw(2) << milliseconds / 1000 << '.' << std::setw(3)
            << milliseconds % 1000 << ' ' << thread << ' ' << std::setfill(' ') << std::setw(2) << depth
            << std::string(1 + 2 * depth, ' ') << std::left << std::setw(6) << kind << std::right << text << '\n';
    }
    return log.str();
}

class TraceReaderTest : public testing::Test {
protected:
    std::filesystem::path write(const std::string& name, const std::string& text)
    {
        std::ofstream(folder / name, std::ios::binary) << text;
        return folder / name;
    }

    /// What is printed, without the folder's name.
    template <class Found>
    std::string printed(const Found& found, bool json = false)
    {
        std::ostringstream out;
        json ? printJson(out, found) : printText(out, found);
        std::string text = out.str();
        const std::string prefix = folder.path().string() + "/";
        for (std::size_t at = 0; (at = text.find(prefix, at)) != std::string::npos;) {
            text.erase(at, prefix.size());
        }
        return text;
    }

    test::TemporaryFolder folder;
};

/// "A calls/errors own total slowest", and a letter and a number for what does not pair.
std::string figuresOf(const Summary& summary)
{
    std::string text;
    for (std::size_t at = 0; at < summary.figures.size(); ++at) {
        const ProcedureFigures& its = summary.figures[at];
        const std::pair<char, const Observed*> unpaired[] = {
            {'d', &its.entryOnly}, {'l', &its.left}, {'x', &its.exitAlone}, {'o', &its.open}, {'e', &its.early}};
        std::string letters;
        for (const auto& [letter, observed] : unpaired) {
            letters += observed->count == 0 ? "" : std::string(1, letter) + std::to_string(observed->count);
        }
        if (its.calls > 0 || !letters.empty()) {
            const std::string& label = summary.procedures[at].label;
            text += (text.empty() ? "" : "; ") + label.substr(label.rfind(':') + 1) + ' ' + std::to_string(its.calls) +
                    '/' + std::to_string(its.errors) + ' ' + std::to_string(its.own) + ' ' + std::to_string(its.total) +
                    ' ' + std::to_string(its.slowest) + letters;
        }
    }
    return text + (summary.errorsOutside > 0 ? "; outside " + std::to_string(summary.errorsOutside) : "");
}

TEST_F(TraceReaderTest, AddsUpCallsTimesErrorsAndWhatDoesNotPair)
{
    const Example rows[] = {
        {"0 1 0 enter A|2 1 1 enter B|5 1 1 exit B|10 1 0 exit A", "A 1/0 7 10 10; B 1/0 3 3 3"},
        {"0 1 0 enter A|1 1 1 enter A|5 1 1 exit A|10 1 0 exit A", "A 2/0 10 10 10"}, // the total counts A once
        {"0 1 0 enter A|2 1 1 enter B|4 1 1 error 9 x|5 1 1 enter C|6 1 1 exit C|10 1 0 exit A",
         "A 1/0 7 10 10; B 1/1 2 2 2; C 1/0 1 1 1"},
        {"0 1 0 enter A|2 1 1 enter B|4 1 1 error 9 x|5 1 0 error 9 y|9 1 1 exit B|10 1 0 exit A",
         "A 1/0 3 10 10; B 1/2 7 7 7"}, // B went on, so that both errors were its own
        {"0 1 0 enter A|1 1 1 enter L|3 1 2 enter B|4 1 2 exit B|9 1 0 exit A",
         "A 1/0 6 9 9; L 1/0 2 3 3l1; B 1/0 1 1 1"}, // L lasts as long as anything is seen in it
        {"0 1 0 enter A|1 1 1 enter KTVOrvanProduct.frmProduct::cboPartNum_Change|3 1 2 enter B|4 1 2 exit B|9 1 0 "
         "exit A",
         "A 1/0 8 9 9; cboPartNum_Change 1/0 0 0 0d1; B 1/0 1 1 1"},
        {"0 1 0 enter A|1 1 1 enter L|2 1 2 enter KTVOrvanProduct.frmProduct::cboPartNum_Change|3 1 2 error 9|"
         "4 1 1 error 9|9 1 0 exit A",
         "A 1/0 6 9 9; L 1/1 2 3 3; cboPartNum_Change 1/1 1 1 1"}, // the first error may well have been L's
        {"0 1 0 enter KTVOrvanProduct.frmProduct::cmdCancel_Click|1 1 0 error 9|2 1 0 enter B|3 1 0 exit B|"
         "9 1 0 exit KTVOrvanProduct.frmProduct::cmdCancel_Click",
         "cmdCancel_Click 1/1 8 9 9; B 1/0 1 1 1"},
        {"0 1 2 exit B|1 1 1 enter C|2 1 1 exit C|3 1 0 exit A|4 1 0 exit A",
         "B 0/0 0 0 0e1; C 1/0 1 1 1; A 0/0 0 0 0x1e1"},
        {"0 1 0 enter A|5 1 1 enter B|7 1 1 exit B", "A 1/0 5 7 7o1; B 1/0 2 2 2"}, // the process ended in A
        {"0 1 0 enter A|0 2 0 enter B|5 1 0 exit A|9 2 0 exit B", "A 1/0 5 5 5; B 1/0 9 9 9"},
        {"0 1 0 enter A|5 1 0 enter B|9 1 0 exit B", "A 1/0 0 0 0o1; B 1/0 4 4 4"}, // a new thread with the same number
        {"5 1 0 enter A|3 1 0 exit A|6 1 0 error 9 x", "A 1/0 0 0 0; outside 1"},   // the clock was set back
    };
    forEachRow(rows, [&](const Example& row) {
        EXPECT_EQ(figuresOf(summarize({{write("log", logOf(row.text))}})), row.result);
    });
}

TEST_F(TraceReaderTest, TellsLinesThatAreNoneAndLeavesOutACutOne)
{
    const std::string good = logOf("0 1 0 enter A");
    struct Row {
        const char* name;
        std::string text;
        std::uint64_t bad = 1;
    };
    const Row rows[] = {
        {"empty", ""},
        {"only a day", "2026-01-31"},
        {"no month", "2026-13-31 09:15:00.000 1  0 enter A"},
        {"no hour", "2026-01-31 24:15:00.000 1  0 enter A"},
        {"no thread", "2026-01-31 09:15:00.000 x  0 enter A"},
        {"not indented as deep as it says", "2026-01-31 09:15:00.000 1  1 enter A"},
        {"too deep", "2026-01-31 09:15:00.000 1 99999999999999999999 enter A"},
        {"deeper than the line is long", "2026-01-31 09:15:00.000 1 9999999999999999999 enter A"},
        {"another kind", "2026-01-31 09:15:00.000 1  0 entry A"},
        {"too long", std::string(3'000'000, 'x')},
        {"any bytes", std::string("\0\xFF\r", 3)},
        {"any bytes in a label", "2026-01-31 09:15:00.000 1  0 enter \xFF\xC3", 0},
    };
    forEachRow(rows, [&](const Row& row) {
        const Summary summary = summarize({{write("log", good + row.text + '\n' + good + "2026-01-31 09:1")}});
        EXPECT_EQ(summary.badLines, row.bad);
        EXPECT_EQ(summary.lines + summary.badLines, 3U);
        EXPECT_TRUE(summary.badPlaces.empty() || summary.badPlaces[0].line == 2);
    });
}

TEST_F(TraceReaderTest, TakesTheFilesOfALogInTheirOrder)
{
    write("trace-9.2.log", logOf("0 1 0 enter A"));
    write("trace-9.1.log", logOf("1 1 1 enter B|2 1 1 exit B"));
    write("trace-9.log", logOf("9 1 0 exit A"));
    write("trace-7.log", logOf("5 1 0 enter A|7 1 0 exit A")); // another process, which began later
    write("notes.txt", "none");
    struct Row {
        const char* name;
        std::vector<const char*> named;
        const char* files;
    };
    const Row rows[] = {
        {"a folder", {""}, "trace-9.2.log trace-9.1.log trace-9.log; trace-7.log; "},
        {"as a shell names them",
         {"trace-7.log", "trace-9.1.log", "trace-9.2.log", "trace-9.log"},
         "trace-7.log; trace-9.2.log trace-9.1.log trace-9.log; "},
        {"a file twice", {"trace-7.log", "trace-7.log"}, "trace-7.log; "},
        {"a rotated file alone", {"trace-9.1.log"}, "trace-9.1.log; "},
    };
    forEachRow(rows, [&](const Row& row) {
        std::vector<std::filesystem::path> named;
        for (const char* name : row.named) {
            named.push_back(folder / name);
        }
        std::string files;
        for (const Log& log : findLogs(named)) {
            for (const auto& file : log) {
                files += (&file == &log.front() ? "" : " ") + file.filename().string();
            }
            files += "; ";
        }
        EXPECT_EQ(files, row.files);
    });
    EXPECT_EQ(figuresOf(summarize(findLogs({folder.path()}))), "A 2/0 10 11 9; B 1/0 1 1 1");
    for (const auto& unreadable : {folder.path(), folder / "missing.log"}) {
        EXPECT_EQ(test::errorOf([&] { std::ignore = summarize({{unreadable}}); }), ErrorNumber::pathFileAccess);
    }
}

TEST_F(TraceReaderTest, ShowsTheTreeOfOneCall)
{
    const auto file = write("a.log", logOf("0 1 0 enter K.V::Before|1 1 0 exit K.V::Before|2 1 0 enter K.V::Top|"
                                           "3 2 0 enter K.V::Other|4 1 1 enter K.V::Part|5 1 1 error 9 No row|"
                                           "6 1 1 enter K.V::Part|8 1 1 exit K.V::Part|9 1 0 error 9 No row|"
                                           "9 1 0 show 9 No row|20 1 0 enter K.V::After"));
    const std::string top = "thread 1, from a.log:3\nK.V::Top  7 ms, own 4 ms, 1 error, ended by its error  (:3)\n"
                            "  K.V::Part  1 ms, 1 error, ended by its error  (:5)\n    error 9 No row\n"
                            "  K.V::Part  2 ms  (:7)\n  error 9 No row\n";
    const std::string part = "thread 1, from a.log:7\nK.V::Part  2 ms  (:7)\n";
    struct Row {
        const char* name;
        TreeChoice choice;
        std::string tree;
    };
    const Row rows[] = {
        {"the line that begins it", {.line = 3}, top},
        {"a line within", {.file = "a.log", .line = 7}, top},
        {"the line that ends it", {.line = 9}, top},
        {"a label", {.procedure = "Top"}, top},
        {"the second call of a label", {.procedure = "V::Part", .number = 2}, part},
        {"one that is open at the end",
         {.line = 11},
         "thread 1, from a.log:11\nK.V::After  0 ms, open when the log ends  (:11)\n"},
        {"no third call", {.procedure = "Part", .number = 3}, ""},
        {"only a part of a name", {.procedure = "art"}, ""},
        {"no such line", {.line = 12}, ""},
        {"no such file", {.file = "b.log", .line = 3}, ""},
    };
    forEachRow(rows, [&](const Row& row) {
        const Tree tree = findTree({{file}}, row.choice);
        EXPECT_EQ(tree.nodes.empty() ? "" : printed(tree), row.tree);
    });
}

TEST_F(TraceReaderTest, FindsWhereTwoLogsPart)
{
    const std::string log = "0 1 0 enter A|1 2 0 enter T|2 1 1 enter B|3 1 1 error 9 x|4 1 0 exit A|5 2 0 exit T";
    const Example rows[] = {
        {"7 8 0 enter A|7 8 1 enter B|7 8 1 error 9 another text|8 8 0 exit A|9 5 0 enter T|9 5 0 exit T",
         "The logs are alike.\n"}, // other times, threads and order of the threads
        {"0 1 0 enter A|1 2 0 enter T|2 1 1 enter B|3 1 1 error 7 x|4 1 0 exit A|5 2 0 exit T",
         "The logs part after 2 lines of the thread:\nleft:4: error 9 x\n  open:\n    A\n      B\n"
         "right:4: error 7 x\n  open:\n    A\n      B\n"},
        {"0 1 0 enter A|2 1 1 enter B|3 1 1 error 9 x|4 1 0 exit A",
         "The logs part after 0 lines of the thread:\nleft:2: enter T\n  no procedure is open\n"
         "right: the log has ended\n  no procedure is open\n"},
        {"0 1 0 enter A|1 2 0 enter T|2 1 1 enter B|5 2 0 exit T",
         "The logs part after 2 lines of the thread:\nleft:4: error 9 x\n  open:\n"
         "    A\n      B\nright: the log has ended\n  open:\n    A\n      B\n"},
    };
    forEachRow(rows, [&](const Example& row) {
        const Log left{write("left", logOf(log))};
        const Log right{write("right", logOf(row.text))};
        EXPECT_EQ(printed(compare(left, right)), row.result);
    });
}

TEST_F(TraceReaderTest, WritesJsonThatHoldsAnyText)
{
    const Log log{write("log", logOf("0 1 0 enter \"\\\xC3\xA4\xFF\xED\xA0\x80\xE2\x80\xAE|1 1 1 enter B"))};
    EXPECT_EQ(
        printed(summarize({log}), true),
        R"({"files":["log"],"lines":2,"badLines":0,"errorsOutside":0,"procedures":[)"
        R"({"label":"\"\\ä\ufffd\ufffd\ufffd\ufffd\u202e","calls":1,"errors":0,"ownMs":1,"totalMs":1,"slowestMs":1,)"
        R"("slowestAt":{"file":"log","line":1}},{"label":"B","calls":1,"errors":0,"ownMs":0,"totalMs":0,)"
        R"("slowestMs":0,"slowestAt":{"file":"log","line":2}}],"unpaired":[)"
        R"({"kind":"open","deliberate":false,"label":"\"\\ä\ufffd\ufffd\ufffd\ufffd\u202e","count":1,"reason":"",)"
        R"("first":{"file":"log","line":1}},{"kind":"open","deliberate":false,"label":"B","count":1,"reason":"",)"
        R"("first":{"file":"log","line":2}}]})"
        "\n");
    EXPECT_EQ(printed(compare(log, log), true), "{\"alike\":true}\n");
    EXPECT_EQ(printed(findTree({log}, {.line = 2}), true).substr(0, 60),
              R"({"thread":1,"lines":[{"kind":"call","depth":0,"text":"\"\\ä)");
}

} // namespace
} // namespace orvan::trace_reader
