// HostServices: services and components of a host's own, for the tests of HostOptions on both platforms.
#pragma once

#include "orvan/components/catalogue/NoCatalogue.h"
#include "orvan/components/products/InProcessProductMgr.h"
#include "orvan/hosting/Host.h"
#include "orvan/hosting/ThreadMessages.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"

#include <map>
#include <new>
#include <string>
#include <vector>

namespace orvan::test {

class OwnStore final : public ui::SettingsStore {
public:
    std::string get(std::string_view /*application*/, std::string_view section, std::string_view key) override
    {
        return values[std::string(section) + '/' + std::string(key)];
    }
    void set(std::string_view /*application*/, std::string_view section, std::string_view key,
             std::string_view value) override
    {
        values[std::string(section) + '/' + std::string(key)] = value;
    }
    std::map<std::string, std::string> values;
};

class OwnBox final : public ui::MessageBox {
public:
    ui::MessageResult show(const ui::Message& message) override
    {
        shown.push_back(message.text.english());
        return ui::MessageResult::ok;
    }
    std::vector<std::string> shown;
};

class OwnTrace final : public Trace {
public:
    std::int32_t LastErrorNumber() override { return 0; }
    void TraceError(std::string_view /*text*/) override {}
    void TraceEnter(std::string_view label) override { entered.emplace_back(label); }
    void TraceExit(std::string_view /*label*/) override {}
    std::int32_t AppErrorNumber() override { return 4711; }
    void ShowLastError(std::int32_t /*window*/) override {}
    std::vector<std::string> entered;
};

/// What each option replaces, and nothing else.
template <class HostType>
void checkServices()
{
    const auto store = std::make_shared<OwnStore>();
    const auto box = std::make_shared<OwnBox>();
    struct Row {
        const char* name;
        std::function<void(HostOptions& options)> replace;
        const char* replaced;
    };
    const Row rows[] = {
        {"nothing", [](HostOptions&) {}, ""},
        {"settings", [&](HostOptions& o) { o.settings = store; }, "settings "},
        {"message box", [&](HostOptions& o) { o.messageBox = box; }, "box messages "},
        {"support address", [](HostOptions& o) { o.supportAddress = "help@acme.example"; }, "address "},
        {"trace", [](HostOptions& o) { o.makeTrace = [] { return std::make_shared<OwnTrace>(); }; }, "trace "},
        {"catalogue", [](HostOptions& o) { o.makeCatalogue = [] { return std::make_shared<NoCatalogue>(); }; },
         "catalogue "},
    };
    forEachRow(rows, [&](const Row& row) {
        HostOptions options;
        options.components.trace.file.clear();
        row.replace(options);
        HostType host(options);
        ui::Platform& platform = host.platform();
        ui::ComponentFactory& components = host.components();
        std::string replaced;
        const auto note = [&](const char* what, bool is) { replaced += is ? std::string(what) + ' ' : std::string(); };
        store->values.clear();
        platform.settings().set("Orvan", "s", "k", "v");
        EXPECT_EQ(platform.settings().get("Orvan", "s", "k"), "v");
        note("settings", !store->values.empty());
        if (options.messageBox) { // the platform's own would wait for a person
            box->shown.clear();
            platform.messageBox().show({.text = "a"});
            note("box", box->shown == std::vector<std::string>{"a"});
            ThreadMessages::show({.text = "b"});
            note("messages", box->shown.size() == 2);
        }
        note("address", platform.supportAddress == "help@acme.example");
        note("trace", dynamic_cast<OwnTrace*>(ui::createComponent<Trace>(components, kTraceClassName).get()));
        const auto catalogue = ui::createComponent<ProductLkpMgr>(components, kProductLkpMgrClassName);
        note("catalogue", options.makeCatalogue && dynamic_cast<NoCatalogue*>(catalogue.get()));
        EXPECT_EQ(replaced, row.replaced);
    });
}

/// Factories of a host that make nothing, or fail.
template <class HostType>
void checkFailingFactories()
{
    struct Row {
        const char* name;
        std::function<std::shared_ptr<ProductMgr>()> make;
        std::int32_t number;
        const char* reason;
    };
    const Row rows[] = {
        {"null", [] { return nullptr; }, 429, "no object was made"},
        {"bad_alloc", []() -> std::shared_ptr<ProductMgr> { throw std::bad_alloc(); }, 429, "Out of memory"},
        {"int", []() -> std::shared_ptr<ProductMgr> { throw 42; }, 429, "Automation error"},
        {"an error with a number", []() -> std::shared_ptr<ProductMgr> { throw RuntimeError(75, {}, "no disk"); }, 75,
         "no disk"},
    };
    forEachRow(rows, [&](const Row& row) {
        HostOptions options;
        options.makeProductMgr = row.make;
        HostType host(options);
        const Raised raised = raisedBy(
            [&] { static_cast<void>(ui::createComponent<ProductMgr>(host.components(), kProductMgrClassName)); });
        EXPECT_EQ(raised.number, row.number);
        EXPECT_NE(raised.description.find(row.reason), std::string::npos) << raised.description;
    });
}

} // namespace orvan::test
