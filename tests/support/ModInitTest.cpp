#include "core/modInit.h"

#include "tests/support/RecordingTrace.h"
#include "ui/headless/HeadlessPlatform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <optional>
#include <stdexcept>
#include <thread>

namespace orvan {
namespace {

using test::RecordingTrace;
using test::ScopedTrace;
using test::TraceCall;
using ::testing::ElementsAre;

/// A thread that has never used the library.
template <class Body>
void inFreshThread(Body&& body)
{
    std::thread thread([&] { EXPECT_NO_THROW(body()); });
    thread.join();
}

template <class Action>
std::optional<RuntimeError> raisedBy(Action&& action)
{
    try {
        action();
    } catch (const RuntimeError& error) {
        return error;
    }
    return std::nullopt;
}

template <class Action>
std::int32_t numberRaisedBy(Action&& action)
{
    const auto error = raisedBy(std::forward<Action>(action));
    return error ? error->number() : 0;
}

std::string joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines) {
        text += (text.empty() ? "" : ", ") + line;
    }
    return text;
}

enum Shape { propagate, recover, closeDialog, showToUser, resume, ignore };
enum Failing { nothing, body, enter, exitCall, record, lastNumber, show, recovery, trace };

/// A traced procedure of two statements, of which the first may fail.
void runShape(Shape shape, RecordingTrace& notes, Failing failing)
{
    const auto first = [&] {
        notes.note("work");
        if (failing == body || failing == record || failing == lastNumber || failing == show || failing == recovery) {
            throw RuntimeError(13, "deep", "text");
        }
    };
    const auto second = [&] { notes.note("more"); };
    const auto both = [&] { first(), second(); };
    const auto guarded = [&](const auto& step) { step(first), step(second); };
    const auto recoverWith = [&](const char* name) {
        notes.note(name);
        if (failing == recovery) {
            throw RuntimeError(75);
        }
    };
    switch (shape) {
    case propagate: return tracePropagate("L", both);
    case recover: return traceRecover("L", both, [&] { recoverWith("recover"); });
    case closeDialog: return traceCloseDialog("L", both, [&] { recoverWith("close"); });
    case showToUser: return traceShowToUser("L", both, [&] { return recoverWith("window"), 7; });
    case resume: return traceResume("L", guarded);
    case ignore: return traceIgnore("L", guarded);
    }
}

TEST(TracedProcedure, EachShapeCallsTheTraceInItsOrder)
{
    struct Row {
        Shape shape;
        Failing failing;
        const char* lines;
        std::int32_t raised;
    };
    const Row rows[] = {
        {propagate, nothing, "enter L, work, more, exit L", 0},
        {propagate, body, "enter L, work, error 13", 13},
        {propagate, enter, "enter L (fails), error 70", 70},
        {propagate, exitCall, "enter L, work, more, exit L (fails), error 71", 71},
        {propagate, record, "enter L, work, error 13 (fails)", 72},
        {propagate, lastNumber, "enter L, work, error 13", 73},
        {propagate, trace, "", 91},
        {recover, nothing, "enter L, work, more, exit L", 0},
        {recover, body, "enter L, work, error 13, recover", 0},
        {recover, enter, "enter L (fails), error 70, recover", 0},
        {recover, exitCall, "enter L, work, more, exit L (fails), error 71, recover", 0},
        {recover, record, "enter L, work, error 13 (fails)", 72},
        {recover, recovery, "enter L, work, error 13, recover", 75},
        {recover, trace, "", 91},
        {closeDialog, nothing, "enter L, work, more, exit L", 0},
        {closeDialog, body, "enter L, work, error 13, close", 0},
        {closeDialog, enter, "enter L (fails), error 70, close", 0},
        {closeDialog, exitCall, "enter L, work, more, exit L (fails), error 71, close", 0},
        {closeDialog, record, "enter L, work, error 13 (fails)", 72},
        {closeDialog, recovery, "enter L, work, error 13, close", 75},
        {closeDialog, trace, "", 91},
        {showToUser, nothing, "enter L, work, more, exit L", 0},
        {showToUser, body, "enter L, work, error 13, window, show 7", 0},
        {showToUser, enter, "enter L (fails), error 70, window, show 7", 0},
        {showToUser, exitCall, "enter L, work, more, exit L (fails), error 71, window, show 7", 0},
        {showToUser, record, "enter L, work, error 13 (fails)", 72},
        {showToUser, show, "enter L, work, error 13, window, show 7 (fails)", 74},
        {showToUser, recovery, "enter L, work, error 13, window", 75},
        {showToUser, trace, "", 91},
        {resume, nothing, "enter L, work, more, exit L", 0},
        {resume, body, "enter L, work, error 13, more, exit L", 0},
        {resume, enter, "enter L (fails), error 70, work, more, exit L", 0},
        {resume, exitCall, "enter L, work, more, exit L (fails), error 71", 0},
        {resume, record, "enter L, work, error 13 (fails)", 72},
        {resume, trace, "", 91},
        {ignore, nothing, "enter L, work, more, exit L", 0},
        {ignore, body, "enter L, work, more, exit L", 0},
        {ignore, enter, "enter L (fails), work, more, exit L", 0},
        {ignore, exitCall, "enter L, work, more, exit L (fails)", 0},
        {ignore, trace, "work, more", 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE("shape " + std::to_string(row.shape) + ", failing " + std::to_string(row.failing));
        ScopedTrace object;
        switch (row.failing) {
        case enter: object->failAt(TraceCall::enter, 1, 70); break;
        case exitCall: object->failAt(TraceCall::exit, 1, 71); break;
        case record: object->failAt(TraceCall::error, 1, 72); break;
        case lastNumber: object->failAt(TraceCall::lastErrorNumber, 1, 73); break;
        case show: object->failAt(TraceCall::show, 1, 74); break;
        case trace: gobjTrace = nullptr; break;
        default: break;
        }
        EXPECT_EQ(numberRaisedBy([&] { runShape(row.shape, *object.trace(), row.failing); }), row.raised);
        EXPECT_EQ(joined(object->lines()), row.lines);
        for (const RuntimeError& error : object->errors()) {
            object->declareError(error.number());
        }
    }
}

TEST(TracedProcedure, PassesValuesOut)
{
    ScopedTrace trace;
    trace->declareError(440);
    EXPECT_EQ(tracePropagate("A", [] { return 42; }), 42);
    EXPECT_EQ(traceRecover(
                  "B", []() -> int { throw std::runtime_error("any type"); }, [] { return 43; }),
              43);
}

TEST(TracedProcedure, ErrorIsRecordedOncePerLevelAndLosesAllButItsNumber)
{
    /// Answers with a number of its own: that one is passed on, not the first.
    struct Renumbering : RecordingTrace {
        std::int32_t number = 0;
        std::int32_t LastErrorNumber() override { return number ? number : RecordingTrace::LastErrorNumber(); }
    };
    struct Row {
        std::int32_t given;
        const char* lines;
    };
    for (const Row& row :
         std::initializer_list<Row>{{0, "enter click, enter A, enter B, error 13, error 13, error 13, show 7"},
                                    {-4, "enter click, enter A, enter B, error 13, error -4, error -4, show 7"}}) {
        const auto trace = std::make_shared<Renumbering>();
        trace->number = row.given;
        gobjTrace = trace;
        const auto b = [] { tracePropagate("B", [] { throw RuntimeError(13, "deep", "text"); }); };
        const auto a = [&] { tracePropagate("A", b); };
        traceShowToUser("click", a, [] { return 7; });
        gobjTrace = nullptr;
        EXPECT_EQ(joined(trace->lines()), row.lines);
        ASSERT_EQ(trace->errors().size(), 3U);
        EXPECT_EQ(trace->errors()[0].source() + "/" + trace->errors()[0].description(), "deep/text");
        EXPECT_EQ(trace->errors()[1].source() + "/" + trace->errors()[1].description(), "/");
        EXPECT_EQ(trace->errors()[2].source() + "/" + trace->errors()[2].description(), "/");
    }
}

TEST(TracedProcedure, OwnErrorsCarryNumberLabelAndMessage)
{
    ScopedTrace trace;
    trace->appErrorNumber = -2147220991;
    const auto error = raisedBy([] { raiseApplicationError("K.L::M", "Invalid column index"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), -2147220991);
    EXPECT_EQ(error->source(), "K.L::M");
    EXPECT_EQ(error->description(), "Invalid column index");
    trace->failAt(TraceCall::appErrorNumber, 1, 70);
    EXPECT_EQ(numberRaisedBy([] { raiseApplicationError("L", "m"); }), 70);
    gobjTrace = nullptr;
    EXPECT_EQ(numberRaisedBy([] { raiseApplicationError("L", "m"); }), 91);
}

/// No part of the start may ask for a locale.
class NoLocale final : public ui::LocaleService {
public:
    std::int32_t getLocaleInfo(std::int32_t, ui::LocaleItem, std::span<char>) override { throw RuntimeError(51); }
    std::string formatCurrency(Currency, int) override { throw RuntimeError(51); }
    std::string formatNumber(Currency, int) override { throw RuntimeError(51); }
    Currency textToCurrency(std::string_view) override { throw RuntimeError(51); }
};

struct OneClass final : ui::ComponentFactory {
    using Make = std::function<std::shared_ptr<ui::Component>()>;
    explicit OneClass(Make how) : make(std::move(how)) {}
    std::shared_ptr<ui::Component> create(std::string_view className) override
    {
        ++asked;
        EXPECT_EQ(className, "OrvnTWrp.Trace");
        return make();
    }
    Make make;
    std::atomic<int> asked = 0;
};

TEST(Main, TellsOnceThatThereIsNoTraceAndRaisesTheNumberAlone)
{
    struct Row {
        const char* name;
        OneClass::Make make;
        std::int32_t number;
    };
    for (const Row& row : std::initializer_list<Row>{
             {"missing", []() -> std::shared_ptr<ui::Component> { throw RuntimeError(429, "src", "no class"); }, 429},
             {"own number", []() -> std::shared_ptr<ui::Component> { throw RuntimeError(-5, "src", "x"); }, -5},
             {"foreign type", []() -> std::shared_ptr<ui::Component> { throw std::runtime_error("x"); }, 440},
             {"wrong kind", [] { return std::make_shared<ui::Component>(); }, 430}}) {
        for (int thread = 0; thread < 2; ++thread) { // each thread is told
            SCOPED_TRACE(row.name);
            inFreshThread([&] {
                NoLocale locale;
                OneClass factory(row.make);
                headless::HeadlessPlatform platform(locale, factory);
                platform.messageBox().answer(ui::MessageResult::ok);
                const auto error = raisedBy([&] { enterLibrary(platform); });
                ASSERT_TRUE(error);
                EXPECT_EQ(error->number(), row.number);
                EXPECT_EQ(error->source() + error->description(), "");
                EXPECT_NO_THROW(enterLibrary(platform)) << "tried again in the same thread";
                EXPECT_EQ(factory.asked, 1);
                EXPECT_FALSE(gobjTrace);
                ASSERT_EQ(platform.messageBox().shown().size(), 1U);
                const ui::Message& message = platform.messageBox().shown()[0];
                EXPECT_EQ(message.text, "Could not create trace object. Module:KTVOrvanProduct.modInit::Main");
                EXPECT_EQ(message.title, "Automation error");
                EXPECT_EQ(message.buttons, ui::MessageButtons::ok);
                EXPECT_EQ(message.icon, ui::MessageIcon::exclamation);
                EXPECT_EQ(message.ownerWindow, 0);
                EXPECT_EQ(numberRaisedBy([] { tracePropagate("L", [] {}); }), 91);
            });
        }
    }
}

TEST(Main, GivesEachThreadATraceOfItsOwnOnce)
{
    NoLocale locale;
    OneClass factory([] { return std::make_shared<RecordingTrace>(); });
    std::vector<std::shared_ptr<RecordingTrace>> traces(2);
    const auto work = [&](std::size_t i) {
        headless::HeadlessPlatform platform(locale, factory);
        enterLibrary(platform);
        enterLibrary(platform);
        traces[i] = std::dynamic_pointer_cast<RecordingTrace>(gobjTrace);
        while (factory.asked < 2) { // both are tracing at once
            std::this_thread::yield();
        }
        const std::string label = "T" + std::to_string(i);
        for (int round = 0; round < 100; ++round) {
            tracePropagate(label, [] {});
        }
        EXPECT_TRUE(platform.messageBox().shown().empty());
    };
    std::thread other([&] { work(1); });
    inFreshThread([&] { work(0); });
    other.join();
    EXPECT_EQ(factory.asked, 2);
    EXPECT_FALSE(gobjTrace) << "this thread never used the library";
    for (std::size_t i = 0; i < traces.size(); ++i) {
        ASSERT_TRUE(traces[i]);
        EXPECT_THAT(traces[i]->unpaired(), ElementsAre());
        ASSERT_EQ(traces[i]->lines().size(), 200U) << "Main itself calls nothing on the trace";
        for (const std::string& line : traces[i]->lines()) {
            EXPECT_EQ(line.back(), static_cast<char>('0' + i)) << line;
        }
    }
}

} // namespace
} // namespace orvan
