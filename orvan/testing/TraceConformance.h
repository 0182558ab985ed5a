// TraceConformance: the requirements on a trace component (orvan/core/Trace.h), as tests. See Conformance.h.
#pragma once

#include "orvan/core/Trace.h"
#include "orvan/testing/Conformance.h"

#include <functional>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>

namespace orvan::conformance {

struct TraceSubject {
    /// What the host registers under kTraceClassName.
    std::function<std::shared_ptr<ui::Component>()> make;
    /// Called before each ShowLastError, so that the test answers the message box; may be empty.
    std::function<void()> beforeShow = {};
    /// How many messages the user has seen so far; if it is empty, the rows that count messages are skipped.
    std::function<std::size_t()> messages = {};
};

namespace traces {

inline std::shared_ptr<Trace> made(const TraceSubject& subject)
{
    return madeAs<Trace>(subject.make, "The factory made no Trace");
}

/// Records `error` as a procedure of the library does: while it handles it.
template <class Error>
void record(Trace& trace, const Error& error)
{
    try {
        throw error;
    } catch (...) {
        trace.TraceError("");
    }
}

inline void show(const TraceSubject& subject, Trace& trace)
{
    if (subject.beforeShow) {
        subject.beforeShow();
    }
    trace.ShowLastError(0);
}

using Subject = TraceSubject;

inline constexpr std::int32_t kNumber = 1234;
inline constexpr const char* kNotCounted = "TraceSubject::messages is empty";

inline constexpr Row<Subject> kRows[] = {
    {"EachCallMakesATraceOfItsOwn",
     [](const Subject& subject) {
         const auto one = made(subject), other = made(subject);
         EXPECT_NE(one, other);
         record(*one, RuntimeError(kNumber));
         record(*other, RuntimeError(ErrorNumber::overflow));
         EXPECT_EQ(one->LastErrorNumber(), kNumber) << "a trace tells the error of another one";
     }},
    {"NumberIsThatOfTheHandledError",
     [](const Subject& subject) {
         const auto trace = made(subject);
         record(*trace, RuntimeError(kNumber, "Source", "Description"));
         EXPECT_EQ(trace->LastErrorNumber(), kNumber);
     }},
    {"NumberIsThatOfTheLastError",
     [](const Subject& subject) {
         const auto trace = made(subject);
         for (const std::int32_t number : {13, 9, 6}) {
             record(*trace, RuntimeError(number));
             EXPECT_EQ(trace->LastErrorNumber(), number);
         }
     }},
    {"NegativeNumberIsKept",
     [](const Subject& subject) {
         const auto trace = made(subject);
         record(*trace, RuntimeError(-2147220991));
         EXPECT_EQ(trace->LastErrorNumber(), -2147220991);
     }},
    {"StandardExceptionHasItsNumber",
     [](const Subject& subject) {
         const auto trace = made(subject);
         record(*trace, std::out_of_range("beyond"));
         EXPECT_EQ(trace->LastErrorNumber(), ErrorNumber::subscriptOutOfRange);
     }},
    {"LackOfMemoryHasItsNumber",
     [](const Subject& subject) {
         const auto trace = made(subject);
         record(*trace, std::bad_alloc());
         EXPECT_EQ(trace->LastErrorNumber(), ErrorNumber::outOfMemory);
     }},
    {"ObjectThatIsNoExceptionHasANumber",
     [](const Subject& subject) {
         const auto trace = made(subject);
         record(*trace, 42);
         EXPECT_EQ(trace->LastErrorNumber(), ErrorNumber::automationError);
     }},
    {"NumberStaysWhileProceduresRun",
     [](const Subject& subject) {
         const auto trace = made(subject);
         record(*trace, RuntimeError(kNumber));
         trace->TraceEnter("KTVOrvanProduct.frmProduct::Init");
         trace->TraceExit("KTVOrvanProduct.frmProduct::Init");
         EXPECT_EQ(trace->LastErrorNumber(), kNumber);
     }},
    {"NumberIsAskedAsOftenAsNeeded",
     [](const Subject& subject) {
         const auto trace = made(subject);
         record(*trace, RuntimeError(kNumber));
         static_cast<void>(trace->LastErrorNumber());
         EXPECT_EQ(trace->LastErrorNumber(), kNumber);
     }},
    {"ApplicationErrorHasANumber",
     [](const Subject& subject) { EXPECT_NE(made(subject)->AppErrorNumber(), 0) << "0 means no error"; }},
    {"ExitNeedsNoEnter",
     [](const Subject& subject) {
         const auto trace = made(subject);
         EXPECT_EQ(errorOf([&] { trace->TraceExit("KTVOrvanProduct.frmProduct::Init"); }), 0);
     }},
    {"EnterNeedsNoExit",
     [](const Subject& subject) {
         const auto trace = made(subject);
         EXPECT_EQ(errorOf([&] {
                       for (int call = 0; call < 1000; ++call) {
                           trace->TraceEnter("KTVOrvanProduct.frmProduct::cboPartNum_Change");
                       }
                   }),
                   0);
     }},
    {"AnyLabelIsTaken",
     [](const Subject& subject) {
         const auto trace = made(subject);
         for (const std::string& label : {std::string(), std::string(5000, 'l'), std::string("two\nlines"),
                                          std::string("nul\0 inside", 11), std::string("\xFF is no UTF-8")}) {
             EXPECT_EQ(errorOf([&] {
                           trace->TraceEnter(label);
                           trace->TraceExit(label);
                       }),
                       0)
                 << "a label of " << label.size() << " bytes";
         }
     }},
    {"AnyErrorTextIsTaken",
     [](const Subject& subject) {
         const auto trace = made(subject);
         EXPECT_EQ(errorOf([&] { record(*trace, RuntimeError(kNumber, "\n\xFF", std::string(5000, 't'))); }), 0);
     }},
    {"ShowLastErrorTellsTheUserOnce",
     [](const Subject& subject) {
         if (!subject.messages) {
             GTEST_SKIP() << kNotCounted;
         }
         const auto trace = made(subject);
         record(*trace, RuntimeError(kNumber));
         const std::size_t before = subject.messages();
         show(subject, *trace);
         EXPECT_EQ(subject.messages(), before + 1);
     }},
    {"ShowLastErrorKeepsTheNumber",
     [](const Subject& subject) {
         const auto trace = made(subject);
         record(*trace, RuntimeError(kNumber));
         show(subject, *trace);
         EXPECT_EQ(trace->LastErrorNumber(), kNumber);
     }},
    {"WorksInTheThreadThatMadeIt",
     [](const Subject& subject) {
         std::int32_t number = 0, raised = 0;
         std::thread([&] {
             raised = errorOf([&] {
                 const auto trace = made(subject);
                 trace->TraceEnter("KTVOrvanProduct.modInit::Main");
                 record(*trace, RuntimeError(kNumber));
                 number = trace->LastErrorNumber();
             });
         }).join();
         EXPECT_EQ(raised, 0);
         EXPECT_EQ(number, kNumber);
     }},
};

} // namespace traces

/// Makes the tests "<name>Trace.<row>".
inline std::size_t addTraceTests(const std::string& name, const TraceSubject& subject)
{
    return addTests<TraceSubject>(name + "Trace", traces::kRows, subject);
}

} // namespace orvan::conformance
