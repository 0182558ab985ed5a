#include "orvan/testing/Patched.h"
#include "tests/conformance/Subjects.h"
#include "tests/conformance/Wrong.h"

namespace orvan::test {
namespace {

using conformance::TraceSubject;
using P = testkit::TracePatches;

/// Makes trace objects with the patches, which each gets anew.
struct Patched {
    P (*patches)();
    operator TraceSubject() const
    {
        TraceSubject subject = traceLog();
        subject.make = [make = patches] {
            return std::make_shared<testkit::PatchedTrace>(std::dynamic_pointer_cast<Trace>(traceLog().make()), make());
        };
        return subject;
    }
};

[[noreturn]] void refuse()
{
    throw RuntimeError(ErrorNumber::invalidProcedureCall);
}

/// A trace that takes errors of this type for another error.
template <class Type>
P confusing()
{
    return {.error = [](Trace& own) {
        try {
            throw;
        } catch (const Type&) {
            conformance::traces::record(own, RuntimeError(ErrorNumber::internalError));
        } catch (...) {
            own.TraceError("");
        }
    }};
}

/// Has the log forget its error: none is being handled.
void forget(Trace& own)
{
    own.TraceError("");
}

TraceSubject failingInOtherThreads()
{
    TraceSubject subject = traceLog();
    subject.make = [home = std::this_thread::get_id(), make = subject.make] {
        return std::this_thread::get_id() == home ? make() : (refuse(), nullptr);
    };
    return subject;
}

const Wrong<TraceSubject> kWrong[] = {
    {"EachCallMakesATraceOfItsOwn", Patched{[] {
         static std::int32_t number = 0;
         return P{.number = [](Trace&) { return number; },
                  .error = [](Trace& own) { own.TraceError(""), number = own.LastErrorNumber(); }};
     }}},
    {"NumberIsThatOfTheHandledError", Patched{[] {
         return P{.error = [](Trace& own) { currentError().source() == "Source" ? void() : own.TraceError(""); }};
     }}},
    {"NumberIsThatOfTheLastError",
     Patched{[] { return P{.error = [](Trace& own) { own.LastErrorNumber() == 0 ? own.TraceError("") : void(); }}; }}},
    {"NegativeNumberIsKept",
     Patched{[] { return P{.number = [](Trace& own) { return std::max(own.LastErrorNumber(), 0); }}; }}},
    {"StandardExceptionHasItsNumber", Patched{confusing<std::out_of_range>}},
    {"LackOfMemoryHasItsNumber", Patched{confusing<std::bad_alloc>}},
    {"ObjectThatIsNoExceptionHasANumber", Patched{confusing<int>}},
    {"NumberStaysWhileProceduresRun", Patched{[] {
         return P{.enter = [](Trace& own, std::string_view label) { own.TraceEnter(label), forget(own); }};
     }}},
    {"NumberIsAskedAsOftenAsNeeded", Patched{[] {
         return P{.number = [](Trace& own) {
             const std::int32_t number = own.LastErrorNumber();
             forget(own);
             return number;
         }};
     }}},
    {"ApplicationErrorHasANumber", Patched{[] { return P{.appError = 0}; }}},
    {"ExitNeedsNoEnter", Patched{[] {
         const auto open = std::make_shared<int>();
         return P{.enter = [open](Trace&, std::string_view) { ++*open; },
                  .exit = [open](Trace&, std::string_view) { (*open)-- == 0 ? refuse() : void(); }};
     }}},
    {"EnterNeedsNoExit", Patched{[] {
         return P{.enter = [open = std::make_shared<int>()](Trace&, std::string_view) {
             ++*open > 100 ? refuse() : void();
         }};
     }}},
    {"AnyLabelIsTaken", Patched{[] {
         return P{.enter = [](Trace&, std::string_view label) { label.size() > 255 ? refuse() : void(); }};
     }}},
    {"AnyErrorTextIsTaken", Patched{[] {
         return P{.error = [](Trace& own) { currentError().text().size() > 255 ? refuse() : own.TraceError(""); }};
     }}},
    {"ShowLastErrorTellsTheUserOnce", Patched{[] { return P{.show = [](Trace&, std::int32_t) {}}; }}},
    {"ShowLastErrorKeepsTheNumber", Patched{[] {
         return P{.show = [](Trace& own, std::int32_t window) { own.ShowLastError(window), forget(own); }};
     }}},
    {"WorksInTheThreadThatMadeIt", failingInOtherThreads()},
};

TEST(TraceConformance, EachRowCatchesItsOwnFault)
{
    expectEachRowToCatchItsOwn(conformance::traces::kRows, traceLog(), kWrong);
}

} // namespace
} // namespace orvan::test
