#include "tests/components/TraceLogFixture.h"

#include <functional>

namespace orvan {
namespace {

using Lines = std::vector<std::string>;

void fail()
{
    throw RuntimeError(9, "list", "No row 7");
}

void failAgain()
{
    throw RuntimeError(9, {}, "No row 8");
}

void failIn(const char* label)
{
    tracePropagate(label, [] { fail(); });
}

void work(const char* label)
{
    tracePropagate(label, [] {});
}

const std::string k9 = " error 9 No row 7 [list]";

struct Shape {
    const char* name;
    std::function<void()> run;
    Lines expected;
};

const Shape kShapes[] = {
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
     [] { tracePropagate("A", [] { traceResume("B", [](auto step) { step(fail); step(failAgain); }); work("C"); }); },
     {" 0 enter A", " 1   enter B", " 1  " + k9, " 0 error 9 No row 8", " 1   exit  B", " 1   enter C", " 1   exit  C",
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
    for (const Shape& shape : kShapes) {
        SCOPED_TRACE(shape.name);
        options.file = directory / shape.name;
        gobjTrace = makeTrace();
        shape.run();
        gobjTrace.reset(); // closes the file
        Lines rests;
        for (const TraceLine& line : linesOf(options.file)) {
            rests.push_back(line.rest);
        }
        EXPECT_EQ(rests, shape.expected);
    }
}

TEST_F(TraceLogTest, DepthStaysBoundedWhenProceduresAreNeverLeft)
{
    const auto trace = makeTrace();
    for (int i = 0; i < 1000; ++i) {
        trace->TraceEnter("left");
    }
    trace->TraceError("flushes");
    for (const TraceLine& line : linesOf(options.file)) {
        EXPECT_LT(std::stoi(line.rest), 64) << line.rest;
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
    struct Row {
        std::int32_t owner;
        const char* text;
    };
    const Row rows[] = {{77, "Error 9: No row 7"}, {78, "Error 9: Subscript out of range"}, {79, "Error 440: gone"}};
    ASSERT_EQ(messageBox.shown.size(), std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const ui::Message& shown = messageBox.shown[i];
        EXPECT_EQ(shown.ownerWindow, rows[i].owner);
        EXPECT_EQ(shown.text, rows[i].text);
        EXPECT_EQ(shown.title, "Orvan");
        EXPECT_EQ(shown.icon, ui::MessageIcon::exclamation);
        EXPECT_EQ(shown.buttons, ui::MessageButtons::ok);
    }
}

} // namespace
} // namespace orvan
