// Whatever a component or a service of a host throws, the library's operations raise a RuntimeError.

#include "orvan/editor/ProductDlg.h"
#include "orvan/hosting/ThreadMessages.h"
#include "orvan/view/ProductView.h"
#include "orvan/view/ProductViewDesign.h"
#include "orvan/view/ProductViewPrefs.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"
#include "tests/support/ViewFixture.h"

#include <stdexcept>
#include <thread>

namespace orvan::test {
namespace {

struct OwnError {};

/// What is thrown, and the number with which it arrives.
struct Kind {
    const char* name;
    void (*raise)();
    std::int32_t number;
};
const Kind kKinds[] = {
    {"an int", [] { throw 42; }, ErrorNumber::automationError},
    {"a text", [] { throw std::string("no licence"); }, ErrorNumber::automationError},
    {"a class of the host's own", [] { throw OwnError(); }, ErrorNumber::automationError},
    {"std::runtime_error", [] { throw std::runtime_error("no licence"); }, ErrorNumber::automationError},
    {"std::out_of_range", [] { throw std::out_of_range("row 7"); }, ErrorNumber::subscriptOutOfRange},
    {"std::bad_alloc", [] { throw std::bad_alloc(); }, ErrorNumber::outOfMemory},
    {"RuntimeError", [] { throw RuntimeError(1234); }, 1234},
};

/// A trace that fails when it records an error or, with `atNumber`, when it is then asked for the number.
struct FailingTrace final : Trace {
    FailingTrace(const Kind& thrown, bool atNumber) : kind(thrown), failsAtNumber(atNumber) {}
    std::int32_t LastErrorNumber() override { return kind.raise(), 0; }
    void TraceError(std::string_view) override { failsAtNumber ? void() : kind.raise(); }
    void TraceEnter(std::string_view) override {}
    void TraceExit(std::string_view) override {}
    std::int32_t AppErrorNumber() override { return 1000; }
    void ShowLastError(std::int32_t) override {}

    const Kind& kind;
    bool failsAtNumber;
};

struct FailingComponents final : ui::ComponentFactory {
    explicit FailingComponents(const Kind& thrown) : kind(thrown) {}
    std::shared_ptr<ui::Component> create(std::string_view) override { return kind.raise(), nullptr; }
    const Kind& kind;
};

struct FailingSettings final : ui::SettingsStore {
    explicit FailingSettings(const Kind& thrown) : kind(thrown) {}
    std::string get(std::string_view, std::string_view, std::string_view) override { return kind.raise(), ""; }
    void set(std::string_view, std::string_view, std::string_view, std::string_view) override {}
    const Kind& kind;
};

/// A platform of a host's own that cannot be made.
struct NoPlatform {
    NoPlatform(ui::LocaleService&, ui::ComponentFactory&, const Kind& kind) { kind.raise(); }
    void useServices(const ui::HostServices& /*services*/) {}
    ui::MessageBox& messageBox() { return box; }
    operator ui::Platform&() { throw std::logic_error("it cannot be made, so it cannot be used"); }
    headless::HeadlessMessageBox box;
    ui::EditingWay editing{};
    std::string supportAddress;
};

class ForeignErrorsTest : public ViewFixture {
protected:
    /// Each operation of the list view and of the editor fails, and while it is handled the trace fails in that way.
    void failAtTheTrace(const Kind& kind, bool atNumber)
    {
        const auto before = std::exchange(gobjTrace, std::make_shared<FailingTrace>(kind, atNumber));
        ProductDlg dialog(platform);
        const auto list = makeManager();
        list->SetProductsString(kThreeProducts, kRecordSeparator, kFieldSeparator, false);
        const std::function<void()> operations[] = {[&] { view->Show(kThreeProducts); },
                                                    [&] { static_cast<void>(view->Products()); },
                                                    [&] { static_cast<void>(view->TotalValue()); },
                                                    [&] { dialog.Show(list, 1); }, [&] { dialog.ShowAddNew(list); }};
        for (const auto& operation : operations) {
            faults.failAtCall = 1;
            EXPECT_EQ(errorOf(operation), kind.number);
            EXPECT_EQ(std::exchange(faults.failAtCall, 0), 0);
        }
        gobjTrace = before;
    }
};

TEST_F(ForeignErrorsTest, WhateverATraceThrowsArrivesAsARuntimeError)
{
    makeView().Show(kThreeProducts);
    forEachRow(kKinds, [&](const Kind& kind) {
        failAtTheTrace(kind, false);
        failAtTheTrace(kind, true);
    });
}

TEST_F(ForeignErrorsTest, WhateverAServiceThrowsArrivesAsARuntimeError)
{
    makeView(); // enters the library, which every thread does only once
    forEachRow(kKinds, [&](const Kind& kind) {
        const auto makeViewOn = [&](ui::ComponentFactory& components) {
            headless::HeadlessPlatform own(locale, components);
            headless::HeadlessSurface surface(kProductViewDesign, own);
            headless::HeadlessSite site("Host");
            const ProductView made(own, surface, site);
        };
        FailingComponents components(kind);
        FailingSettings settings(kind);
        EXPECT_EQ(errorOf([&] { makeViewOn(components); }), kind.number);
        EXPECT_EQ(errorOf([&] { static_cast<void>(ui::createComponent<Trace>(components, "X")); }), kind.number);
        EXPECT_EQ(errorOf([&] { seedProductViewPrefs(settings, "Host", "4~1~250"); }), kind.number);
        EXPECT_EQ(errorOf([&] { Host<NoPlatform> host(HostOptions(), kind); }), kind.number);
    });
}

TEST_F(ForeignErrorsTest, WhateverAMessageBoxThrowsArrivesAsARuntimeError)
{
    forEachRow(kKinds, [&](const Kind& kind) {
        headless::HeadlessMessageBox box;
        box.onWaiting = [&](const ui::Message&) { kind.raise(); };
        const ThreadMessages messages(box);
        EXPECT_EQ(errorOf([] { static_cast<void>(ThreadMessages::show({.text = "a"})); }), kind.number);
        std::int32_t raised = 0;
        std::thread([&] { // a new thread: it cannot make its trace object, and tells so in a message box
            FailingComponents components(kKinds[0]);
            headless::HeadlessPlatform own(locale, components);
            own.messageBox().onWaiting = box.onWaiting;
            try {
                ProductDlg dialog(own);
            } catch (const RuntimeError& error) {
                raised = error.number();
            } catch (...) {
                raised = -1;
            }
        })
            .join();
        EXPECT_EQ(raised, kind.number);
    });
}

} // namespace
} // namespace orvan::test
