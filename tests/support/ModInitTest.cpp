#include "orvan/ui/headless/HeadlessPlatform.h"
#include "orvan/ui/icu/IcuLocaleService.h"
#include "tests/support/Raised.h"
#include "tests/support/RecordingTrace.h"
#include "tests/support/Rows.h"

#include <atomic>
#include <functional>
#include <thread>

namespace orvan {
namespace {

using test::forEachRow;
using test::Raised;
using test::raisedBy;
using test::RecordingTrace;
using test::ScopedTrace;
using test::TraceCall;

std::string joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines) {
        text += (text.empty() ? "" : ", ") + line;
    }
    return text;
}

/// A thread that has never used the library.
template <class Body>
void inFreshThread(Body&& body)
{
    std::thread([&] { EXPECT_NO_THROW(body()); }).join();
}

enum Shape { propagate, recover, closeDialog, showToUser, resume, ignore };
constexpr const char* kShapeNames[] = {"propagate", "recover", "closeDialog", "showToUser", "resume", "ignore"};

/// A traced procedure of two statements. The first one fails where the trace or the handler is to fail for its error.
void runShape(Shape shape, RecordingTrace& notes, std::string_view failing)
{
    const auto first = [&] {
        notes.note("work");
        if (failing != "nothing" && failing != "entering" && failing != "leaving" && failing != "no trace") {
            throw RuntimeError(13, "deep", "text");
        }
    };
    const auto second = [&] { notes.note("more"); };
    const auto both = [&] { first(), second(); };
    const auto guarded = [&](const auto& step) { step(first), step(second); };
    const auto handle = [&] {
        notes.note("handled");
        if (failing == "the handler") {
            throw RuntimeError(75);
        }
    };
    switch (shape) {
    case propagate: return tracePropagate("L", both);
    case recover: return traceRecover("L", both, handle);
    case closeDialog: return traceCloseDialog("L", both, handle);
    case showToUser: return traceShowToUser("L", both, [&] { return handle(), 7; });
    case resume: return traceResume("L", guarded);
    case ignore: return traceIgnore("L", guarded);
    }
}

TEST(TracedProcedure, EachShapeCallsTheTraceInItsOrder)
{
    struct Row {
        std::string_view name; // what fails
        std::vector<Shape> shapes;
        const char* lines;
        std::int32_t raised = 0;
    };
    const std::vector<Shape> all = {propagate, recover, closeDialog, showToUser, resume, ignore};
    const std::vector<Shape> allButIgnore(all.begin(), all.end() - 1);
    // clang-format off
    const Row rows[] = {
        {"nothing", all, "enter L, work, more, exit L"},
        {"the body", {propagate}, "enter L, work, error 13", 13},
        {"the body", {recover, closeDialog}, "enter L, work, error 13, handled"},
        {"the body", {showToUser}, "enter L, work, error 13, handled, show 7"},
        {"the body", {resume}, "enter L, work, error 13, more, exit L"},
        {"the body", {ignore}, "enter L, work, more, exit L"},
        {"entering", {propagate}, "enter L (fails), error 70", 70},
        {"entering", {recover, closeDialog}, "enter L (fails), error 70, handled"},
        {"entering", {showToUser}, "enter L (fails), error 70, handled, show 7"},
        {"entering", {resume}, "enter L (fails), error 70, work, more, exit L"},
        {"entering", {ignore}, "enter L (fails), work, more, exit L"},
        {"leaving", {propagate}, "enter L, work, more, exit L (fails), error 71", 71},
        {"leaving", {recover, closeDialog}, "enter L, work, more, exit L (fails), error 71, handled"},
        {"leaving", {showToUser}, "enter L, work, more, exit L (fails), error 71, handled, show 7"},
        {"leaving", {resume}, "enter L, work, more, exit L (fails), error 71"},
        {"leaving", {ignore}, "enter L, work, more, exit L (fails)"},
        {"recording", allButIgnore, "enter L, work, error 13 (fails)", 72},
        {"reading the number", {propagate}, "enter L, work, error 13", 73},
        {"showing", {showToUser}, "enter L, work, error 13, handled, show 7 (fails)", 74},
        {"the handler", {recover, closeDialog, showToUser}, "enter L, work, error 13, handled", 75},
        {"no trace", allButIgnore, "", 91},
        {"no trace", {ignore}, "work, more"},
    };
    // clang-format on
    forEachRow(rows, [](const Row& row) {
        for (const Shape shape : row.shapes) {
            SCOPED_TRACE(kShapeNames[shape]);
            ScopedTrace object;
            if (row.name == "entering") {
                object->failNext(TraceCall::enter, 70);
            } else if (row.name == "leaving") {
                object->failNext(TraceCall::exit, 71);
            } else if (row.name == "recording") {
                object->failNext(TraceCall::error, 72);
            } else if (row.name == "reading the number") {
                object->failNext(TraceCall::lastErrorNumber, 73);
            } else if (row.name == "showing") {
                object->failNext(TraceCall::show, 74);
            } else if (row.name == "no trace") {
                gobjTrace = nullptr;
            }
            EXPECT_EQ(raisedBy([&] { runShape(shape, *object.trace(), row.name); }).number, row.raised);
            EXPECT_EQ(joined(object->lines()), row.lines);
            for (const std::int32_t number : object->numbersSince(0)) {
                object->declareError(number);
            }
        }
    });
}

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
    icu::IcuLocaleService locale{icu::LocaleNames{}};
    struct Row {
        const char* name;
        OneClass::Make make;
        std::int32_t number;
    };
    const Row rows[] = {
        {"missing", []() -> std::shared_ptr<ui::Component> { throw RuntimeError(429, "src", "no class"); }, 429},
        {"own number", []() -> std::shared_ptr<ui::Component> { throw RuntimeError(-5, "src", "x"); }, -5},
        {"foreign type", []() -> std::shared_ptr<ui::Component> { throw std::runtime_error("x"); }, 440},
        {"wrong kind", [] { return std::make_shared<ui::Component>(); }, 430},
    };
    forEachRow(rows, [&](const Row& row) {
        for (int thread = 0; thread < 2; ++thread) { // each thread is told
            inFreshThread([&] {
                SCOPED_TRACE(row.name); // which belongs to its thread
                OneClass factory(row.make);
                headless::HeadlessPlatform platform(locale, factory);
                platform.messageBox().answer(ui::MessageResult::ok);
                const Raised error = raisedBy([&] { enterLibrary(platform); });
                EXPECT_EQ(error.number, row.number);
                EXPECT_EQ(error.source + error.description, "");
                EXPECT_NO_THROW(enterLibrary(platform)) << "tried again in the same thread";
                EXPECT_EQ(factory.asked, 1);
                EXPECT_FALSE(gobjTrace);
                ASSERT_EQ(platform.messageBox().shown().size(), 1U);
                const ui::Message& message = platform.messageBox().shown()[0];
                EXPECT_EQ(message.text, "Could not create trace object. Module:KTVOrvanProduct.modInit::Main");
                EXPECT_EQ(message.title, "Automation error");
                EXPECT_TRUE(message.buttons == ui::MessageButtons::ok && message.ownerWindow == 0);
                EXPECT_EQ(message.icon, ui::MessageIcon::exclamation);
                EXPECT_EQ(raisedBy([] { tracePropagate("L", [] {}); }).number, 91);
            });
        }
    });
}

/// A static that asks for the trace object when the thread has let that go.
struct LateUser {
    std::int32_t* raised = nullptr;
    ~LateUser()
    {
        try {
            traceObject();
        } catch (const RuntimeError& error) {
            *raised = error.number();
        }
    }
};

TEST(Main, AStaticThatOutlivesTheTraceObjectFindsNone)
{
    std::int32_t raised = 0;
    inFreshThread([&] {
        thread_local LateUser late;
        late.raised = &raised; // made before the trace object, so it goes after it
        OneClass factory([] { return std::make_shared<RecordingTrace>(); });
        icu::IcuLocaleService locale{icu::LocaleNames{}};
        headless::HeadlessPlatform platform(locale, factory);
        enterLibrary(platform);
        EXPECT_NO_THROW(traceObject());
    });
    EXPECT_EQ(raised, ErrorNumber::objectNotSet);
}

TEST(Main, GivesEachThreadATraceOfItsOwnOnce)
{
    icu::IcuLocaleService locale{icu::LocaleNames{}};
    OneClass factory([] { return std::make_shared<RecordingTrace>(); });
    const auto work = [&](const std::string& label) {
        headless::HeadlessPlatform platform(locale, factory);
        enterLibrary(platform);
        enterLibrary(platform);
        while (factory.asked < 2) { // both are tracing at once
            std::this_thread::yield();
        }
        for (int round = 0; round < 100; ++round) {
            tracePropagate(label.c_str(), [] {});
        }
        const std::vector<std::string> lines = std::dynamic_pointer_cast<RecordingTrace>(gobjTrace)->lines();
        EXPECT_EQ(lines.size(), 200U) << "Main itself calls nothing on the trace";
        EXPECT_EQ(std::set(lines.begin(), lines.end()), (std::set<std::string>{"enter " + label, "exit " + label}));
        EXPECT_TRUE(platform.messageBox().shown().empty());
    };
    std::thread other([&] { work("T1"); });
    inFreshThread([&] { work("T0"); });
    other.join();
    EXPECT_EQ(factory.asked, 2);
    EXPECT_FALSE(gobjTrace) << "this thread never used the library";
}

} // namespace
} // namespace orvan
