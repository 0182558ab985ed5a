#include "orvan/hosting/ComponentRegistry.h"

#include "orvan/components/catalogue/CatalogueImport.h"
#include "orvan/core/modInit.h"
#include "orvan/hosting/ComponentLibrary.h"
#include "orvan/hosting/DefaultComponents.h"
#include "orvan/hosting/HeadlessProductView.h"
#include "orvan/hosting/ThreadMessages.h"
#include "orvan/lookup/ProductLkpMgr.h"
#include "orvan/ui/headless/HeadlessPlatform.h"
#include "tests/hosting/HostServices.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <dlfcn.h>

#include <fstream>
#include <thread>

namespace orvan {
namespace {

using test::forEachRow;
using test::raisedBy;
using ::testing::HasSubstr;

struct Plain : ui::Component {
    explicit Plain(int number = 0) : id(number) {}
    int id;
};

ComponentRegistry::Factory makes(int id)
{
    return [id] { return std::make_shared<Plain>(id); };
}

int createdId(ComponentRegistry& registry, std::string_view name)
{
    return ui::createComponent<Plain>(registry, name)->id;
}

bool isLoaded(const char* path)
{
    void* handle = dlopen(path, RTLD_NOW | RTLD_NOLOAD);
    if (handle) {
        dlclose(handle);
    }
    return handle != nullptr;
}

template <class Error>
ComponentRegistry::Factory throws(Error error)
{
    return [error]() -> std::shared_ptr<ui::Component> { throw error; };
}

TEST(ComponentRegistry, FailedCreationTellsClassLibraryAndReason)
{
    const test::TemporaryFolder folder;
    const std::string noLibrary = folder / "not_a_library.so";
    std::ofstream(noLibrary) << "text";
    struct Row {
        const char* name;
        ComponentRegistry::Factory factory = {};
        std::string library = {};
        std::int32_t number = 429;
        const char* reason;
    };
    const std::string otherVersion = "version " + std::to_string(kComponentInterfaceVersion + 1) + " instead of " +
                                     std::to_string(kComponentInterfaceVersion);
    const Row rows[] = {
        {.name = "X.Null", .factory = [] { return nullptr; }, .reason = "no object"},
        {.name = "X.Empty", .reason = "empty factory"},
        {.name = "X.Raises", .factory = throws(RuntimeError(75, "Log", "full")), .number = 75, .reason = "full"},
        {.name = "X.Throws", .factory = throws(std::runtime_error("no licence")), .reason = "no licence"},
        {.name = "X.Memory", .factory = throws(std::bad_alloc()), .reason = "Out of memory"},
        {.name = "X.Int", .factory = throws(42), .reason = "Automation"},
        {.name = "X.Missing", .library = "/nowhere/libmissing.so", .reason = "No such file"},
        {.name = "X.Text", .library = noLibrary, .reason = "too short"},
        {.name = "X.NoEntry", .library = "libm.so.6", .reason = "OrvanComponentInterfaceVersion"},
        {.name = "Test.Trace", .library = LIBRARY_OtherVersion, .reason = otherVersion.c_str()},
        {.name = "Test.Trace", .library = LIBRARY_NoClasses, .reason = "OrvanCreateComponent"},
#ifdef __GLIBCXX__ // another standard library does not know the option
        {.name = "Test.Trace",
         .library = LIBRARY_DebugContainers,
         .reason = "built with the option -D_GLIBCXX_DEBUG, unlike this program"},
#endif
        {.name = "Test.Unknown", .library = LIBRARY_Good, .reason = "no object"},
        {.name = "Test.Throws", .library = LIBRARY_Good, .reason = "no licence"},
        {.name = "Test.Raises", .library = LIBRARY_Good, .number = 75, .reason = "log is read-only"},
    };
    forEachRow(rows, [](const Row& row) {
        ComponentRegistry registry;
        if (row.library.empty()) {
            registry.registerClass(row.name, row.factory);
        } else {
            registry.registerLibrary(row.name, row.library);
        }
        for (int attempt = 1; attempt <= 2; ++attempt) { // a failure leaves nothing behind
            const test::Raised error = raisedBy([&] { registry.create(row.name); });
            EXPECT_EQ(error.number, row.number);
            EXPECT_THAT(error.description, AllOf(HasSubstr(std::string(1, '"') + row.name + '"'), HasSubstr(row.reason),
                                                 HasSubstr(row.library)));
        }
    });
    EXPECT_FALSE(isLoaded(LIBRARY_OtherVersion)) << "a refused library stays loaded";
}

TEST(ComponentRegistry, NamesIgnoreCaseAndTheLastRegistrationCounts)
{
    ComponentRegistry registry;
    registry.registerClass("OrvnTWrp.Trace", makes(1));
    registry.registerClass("Ä.Trace", makes(7));
    EXPECT_EQ(createdId(registry, "orvntwrp.TRACE"), 1);
    EXPECT_EQ(raisedBy([&] { registry.create("ä.Trace"); }).number, 429) << "only ASCII letters have a case here";

    registry.registerLibrary("ORVNTWRP.trace", "/nowhere/libtrace.so");
    EXPECT_EQ(raisedBy([&] { registry.create("OrvnTWrp.Trace"); }).number, 429);
    registry.registerClass("OrvnTWrp.Trace", makes(3));
    EXPECT_EQ(createdId(registry, "OrvnTWrp.Trace"), 3);

    registry.unregisterClass("orvntwrp.trace");
    registry.unregisterClass("orvntwrp.trace");
    EXPECT_THAT(raisedBy([&] { registry.create("OrvnTWrp.Trace"); }).description,
                HasSubstr("\"OrvnTWrp.Trace\" is not registered"));
    EXPECT_EQ(createdId(registry, "Ä.TRACE"), 7);
}

TEST(ComponentRegistry, FactoriesMayUseTheRegistry)
{
    ComponentRegistry registry;
    registry.registerClass("Inner", makes(5));
    registry.registerClass("Outer", [&] {
        registry.unregisterClass("Outer"); // the running factory stays alive
        return registry.create("Inner");
    });
    EXPECT_EQ(createdId(registry, "Outer"), 5);
    // So may what a replaced factory owned, on its way out.
    std::shared_ptr<void> atEnd(nullptr, [&](void*) { registry.unregisterClass("Inner"); });
    registry.registerClass("Owner", [atEnd] { return nullptr; });
    atEnd.reset();
    registry.registerClass("Owner", makes(6));
    EXPECT_EQ(raisedBy([&] { registry.create("Inner"); }).number, 429);
}

TEST(ComponentRegistry, LibraryLivesAsLongAsItsObjectsAndTheRegistry)
{
    ASSERT_FALSE(isLoaded(LIBRARY_Good));
    std::shared_ptr<Trace> trace;
    {
        ComponentRegistry registry;
        registry.registerLibrary("Test.Trace", LIBRARY_Good);
        registry.registerLibrary("Test.NoTrace", LIBRARY_Good);
        EXPECT_FALSE(isLoaded(LIBRARY_Good)) << "loaded before its first object";
        EXPECT_EQ(raisedBy([&] { trace = ui::createComponent<Trace>(registry, "Test.NoTrace"); }).number, 430);
        registry.unregisterClass("Test.NoTrace");
        EXPECT_TRUE(isLoaded(LIBRARY_Good)) << "unloaded under a living registry";
        trace = ui::createComponent<Trace>(registry, "test.trace");
    }
    ASSERT_TRUE(isLoaded(LIBRARY_Good)) << "unloaded under a living object";
    test::traceErrorOf(*trace, 75);
    EXPECT_EQ(trace->LastErrorNumber(), 75) << "an error of ours is not recognised in the library";
    trace.reset();
    EXPECT_FALSE(isLoaded(LIBRARY_Good));
}

TEST(ComponentRegistry, RelativeLibraryCountsFromTheDirectoryOfRegistration)
{
    ComponentRegistry registry;
    const auto directoryBefore = std::filesystem::current_path();
    const std::filesystem::path good(LIBRARY_Good);
    std::filesystem::current_path(good.parent_path());
    registry.registerLibrary("Test.Trace", "./" + good.filename().string());
    std::filesystem::current_path(directoryBefore);
    EXPECT_EQ(ui::createComponent<Trace>(registry, "Test.Trace")->AppErrorNumber(), 4711);
}

TEST(ComponentRegistry, ThreadsCreateAtOnceWhileClassesComeAndGo)
{
    ComponentRegistry registry;
    registry.registerLibrary("Test.Trace", LIBRARY_Good);
    std::vector<std::thread> threads;
    threads.reserve(8);
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&registry, i] {
            const std::string own = "Own" + std::to_string(i);
            for (int round = 0; round < 50; ++round) {
                EXPECT_TRUE(ui::createComponent<Trace>(registry, "Test.Trace"));
                registry.registerClass("Plain", makes(1));
                registry.registerClass(own, makes(i));
                EXPECT_EQ(createdId(registry, "Plain") * 10 + createdId(registry, own), 10 + i);
                registry.unregisterClass(own);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST(ThreadMessages, GoToTheNewestHostThatLives)
{
    headless::HeadlessMessageBox first, second;
    auto older = std::make_unique<ThreadMessages>(first);
    auto newer = std::make_unique<ThreadMessages>(second);
    second.answer(ui::MessageResult::ok);
    ThreadMessages::show({.text = "a"});
    older.reset(); // not the last one made
    second.answer(ui::MessageResult::ok);
    ThreadMessages::show({.text = "b"});
    newer.reset();
    ThreadMessages::show({.text = "nobody"});
    EXPECT_EQ(first.shown().size(), 0U);
    EXPECT_EQ(second.shown().size(), 2U);
}

TEST(HostOptions, EachServiceCanBeReplaced)
{
    test::checkServices<HeadlessHost>();
    test::checkFailingFactories<HeadlessHost>();
}

TEST(HostOptions, AHostsOwnServicesAreUsedByItsViews)
{
    const auto store = std::make_shared<test::OwnStore>();
    const auto trace = std::make_shared<test::OwnTrace>();
    int managers = 0;
    HostOptions options;
    options.settings = store;
    options.makeTrace = [&]() -> std::shared_ptr<Trace> { return trace; };
    options.makeProductMgr = [&] {
        ++managers;
        return std::dynamic_pointer_cast<ProductMgr>(productMgrFactory()());
    };
    std::thread([&] { // a new one, because a thread keeps the trace object that it has
        HeadlessHost host(options);
        HeadlessProductView view(host.platform(), "Own");
        view.Show("");
        view.flexGrid().dragColumn(2, 1234);
    })
        .join();
    EXPECT_EQ(managers, 2);
    EXPECT_THAT(trace->entered, ::testing::Contains("KTVOrvanProduct.ProductView::Show"));
    EXPECT_EQ(store->values.size(), 1U) << "the widths, under the view's name";
}

TEST(DefaultComponents, CatalogueIsTheFileOfTheOptionsOrEmpty)
{
    const test::TemporaryFolder folder;
    std::ofstream(folder / "list.csv") << "name,part number,price\nBolt,B-1,1.5\n";
    importCatalogue(folder / "list.csv", folder / "list.catalogue");
    for (const auto& file : {folder / "list.catalogue", std::filesystem::path()}) {
        ComponentRegistry registry;
        registerDefaultComponents(registry, {.catalogue = {.file = file}});
        const auto catalogue = ui::createComponent<ProductLkpMgr>(registry, kProductLkpMgrClassName);
        EXPECT_EQ(catalogue->GetProductNameList("", true).has_value(), !file.empty()) << file;
    }
    for (const bool classic : {true, false}) { // hosts of the classic way know completions by their traces
        HostOptions options;
        options.editing = classic ? ui::EditingWay::classic : ui::EditingWay::careful;
        options.components.catalogue.file = folder / "list.catalogue";
        HeadlessHost host(options);
        const auto catalogue = ui::createComponent<ProductLkpMgr>(host.components(), kProductLkpMgrClassName);
        const LookUpList found = catalogue->GetProductNameList("bO", false);
        EXPECT_EQ(found.value().front().text, classic ? "bOlt" : "Bolt");
    }
}

} // namespace
} // namespace orvan
