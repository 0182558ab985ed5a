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

using test::Raised;
using test::raisedBy;
using test::RecordingTrace;
using test::Rows;
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
enum Failing { nothing, body, enter, exitCall, record, lastNumber, show, handler, trace };

/// A traced procedure of two statements, of which the first may fail.
void runShape(Shape shape, RecordingTrace& notes, Failing failing)
{
    const auto first = [&] {
        notes.note("work");
        if (failing == body || failing == record || failing == lastNumber || failing == show || failing == handler) {
            throw RuntimeError(13, "deep", "text");
        }
    };
    const auto second = [&] { notes.note("more"); };
    const auto both = [&] { first(), second(); };
    const auto guarded = [&](const auto& step) { step(first), step(second); };
    const auto handle = [&] {
        notes.note("handled");
        if (failing == handler) {
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
    const Rows<std::vector<Shape>, Failing, const char*, std::int32_t> rows = {
        {{propagate, recover, closeDialog, showToUser, resume, ignore}, nothing, "enter L, work, more, exit L", 0},
        {{propagate}, body, "enter L, work, error 13", 13},
        {{recover, closeDialog}, body, "enter L, work, error 13, handled", 0},
        {{showToUser}, body, "enter L, work, error 13, handled, show 7", 0},
        {{resume}, body, "enter L, work, error 13, more, exit L", 0},
        {{ignore}, body, "enter L, work, more, exit L", 0},
        {{propagate}, enter, "enter L (fails), error 70", 70},
        {{recover, closeDialog}, enter, "enter L (fails), error 70, handled", 0},
        {{showToUser}, enter, "enter L (fails), error 70, handled, show 7", 0},
        {{resume}, enter, "enter L (fails), error 70, work, more, exit L", 0},
        {{ignore}, enter, "enter L (fails), work, more, exit L", 0},
        {{propagate}, exitCall, "enter L, work, more, exit L (fails), error 71", 71},
        {{recover, closeDialog}, exitCall, "enter L, work, more, exit L (fails), error 71, handled", 0},
        {{showToUser}, exitCall, "enter L, work, more, exit L (fails), error 71, handled, show 7", 0},
        {{resume}, exitCall, "enter L, work, more, exit L (fails), error 71", 0},
        {{ignore}, exitCall, "enter L, work, more, exit L (fails)", 0},
        {{propagate, recover, closeDialog, showToUser, resume}, record, "enter L, work, error 13 (fails)", 72},
        {{propagate}, lastNumber, "enter L, work, error 13", 73},
        {{showToUser}, show, "enter L, work, error 13, handled, show 7 (fails)", 74},
        {{recover, closeDialog, showToUser}, handler, "enter L, work, error 13, handled", 75},
        {{propagate, recover, closeDialog, showToUser, resume}, trace, "", 91},
        {{ignore}, trace, "work, more", 0},
    };
    for (const auto& [shapes, failing, lines, raised] : rows) {
        for (const Shape shape : shapes) {
            SCOPED_TRACE("shape " + std::to_string(shape) + ", failing " + std::to_string(failing));
            ScopedTrace object;
            switch (failing) {
            case enter: object->failNext(TraceCall::enter, 70); break;
            case exitCall: object->failNext(TraceCall::exit, 71); break;
            case record: object->failNext(TraceCall::error, 72); break;
            case lastNumber: object->failNext(TraceCall::lastErrorNumber, 73); break;
            case show: object->failNext(TraceCall::show, 74); break;
            case trace: gobjTrace = nullptr; break;
            default: break;
            }
            EXPECT_EQ(raisedBy([&, &failing = failing] { runShape(shape, *object.trace(), failing); }).number, raised);
            EXPECT_EQ(joined(object->lines()), lines);
            for (const std::int32_t number : object->numbersSince(0)) {
                object->declareError(number);
            }
        }
    }
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
    for (const auto& [name, make, number] : Rows<const char*, OneClass::Make, std::int32_t>{
             {"missing", []() -> std::shared_ptr<ui::Component> { throw RuntimeError(429, "src", "no class"); }, 429},
             {"own number", []() -> std::shared_ptr<ui::Component> { throw RuntimeError(-5, "src", "x"); }, -5},
             {"foreign type", []() -> std::shared_ptr<ui::Component> { throw std::runtime_error("x"); }, 440},
             {"wrong kind", [] { return std::make_shared<ui::Component>(); }, 430}}) {
        for (int thread = 0; thread < 2; ++thread) { // each thread is told
            SCOPED_TRACE(name);
            inFreshThread([&, &make = make, &number = number] {
                OneClass factory(make);
                headless::HeadlessPlatform platform(locale, factory);
                platform.messageBox().answer(ui::MessageResult::ok);
                const Raised error = raisedBy([&] { enterLibrary(platform); });
                EXPECT_EQ(error.number, number);
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
    }
}

/// What a static does that outlives its thread's trace object.
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

TEST(Main, WhoOutlivesTheThreadFindsNoTrace)
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
