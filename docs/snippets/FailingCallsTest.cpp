// Calls that fail when a test says so: how a host sees what its program makes of the failures of its own components.

#include "HeadlessEnvironment.h"

#include <orvan/base/RuntimeError.h>
#include <orvan/components/products/InProcessProductMgr.h>
#include <orvan/hosting/HeadlessProductView.h>
#include <orvan/outside/WatchedPlatform.h>
#include <orvan/testing/Conformance.h>
#include <orvan/testing/OutsideCalls.h>

#include <gtest/gtest.h>

namespace {

using orvan::conformance::errorOf;

constexpr std::string_view kList = "3~Desk::D-1:400:2:0:800:~Table::T-9:55.5:1:0:55.5:~Lamp::L-7:74.95:1:0:74.95:~";

/// Stands for the manager that a host has.
std::shared_ptr<orvan::ProductMgr> makeAcmeManager()
{
    return std::dynamic_pointer_cast<orvan::ProductMgr>(orvan::productMgrFactory()());
}

TEST(FailingCalls, OfAComponentByName)
{
    //! [component]
    orvan::testkit::OutsideCalls calls; // outlives the host, whose components tell it of each call
    orvan::HostOptions options;
    options.makeProductMgr = [&calls] { return orvan::outside::watched(makeAcmeManager(), calls); };
    orvan::HeadlessHost host(options);
    orvan::HeadlessProductView view(host.platform());

    calls.fail({.name = "manager.GetProduct", .number = 3}); // the third product cannot be read, once
    const std::int32_t raised = errorOf([&] { view.Show(kList); });
    //! [component]
    EXPECT_EQ(raised, orvan::testkit::OutsideCalls::kErrorNumber);
    EXPECT_EQ(calls.failed(), "manager.GetProduct");
    EXPECT_EQ(errorOf([&] { view.Show(kList); }), 0);
}

TEST(FailingCalls, EachSecondOneOrAllThatFollow)
{
    //! [repeat]
    using Repeat = orvan::testkit::OutsideCalls::Repeat;
    const orvan::testkit::OutsideCalls::Rule eachSecond{
        .name = "manager.GetTotalValue", .number = 2, .repeat = Repeat::every};
    const orvan::testkit::OutsideCalls::Rule allAfterTheFirst{
        .name = "manager.GetTotalValue", .number = 2, .repeat = Repeat::fromThenOn};
    //! [repeat]
    orvan::testkit::OutsideCalls calls;
    const auto manager = orvan::outside::watched(makeAcmeManager(), calls);
    const auto errors = [&](const orvan::testkit::OutsideCalls::Rule& rule) {
        calls.fail(rule);
        std::string marks;
        for (int i = 0; i < 5; ++i) {
            marks += errorOf([&] { manager->GetTotalValue(); }) == 0 ? '.' : 'x';
        }
        return marks;
    };
    EXPECT_EQ(errors(eachSecond), ".x.x.");
    EXPECT_EQ(errors(allAfterTheFirst), ".xxxx");
}

TEST(FailingCalls, EachCallOfASessionInTurn)
{
    orvan::HeadlessHost host;
    std::size_t failures = 0;
    //! [sweep]
    orvan::testkit::OutsideCalls calls;
    orvan::outside::WatchedPlatform platform(host.platform(), calls); // watches all services and components
    for (std::size_t number = 1;; ++number) {
        calls.failAt(number);
        std::string products;
        try {
            orvan::HeadlessProductView view(platform);
            view.Show(kList);
            products = view.Products();
        } catch (const orvan::RuntimeError&) {
            products.clear(); // the program has been told
        }
        if (calls.failed().empty()) {
            break; // the session makes no more calls than that
        }
        EXPECT_TRUE(products.empty() || products == kList) << calls.failed() << " has failed, and the list is another";
        ++failures;
    }
    //! [sweep]
    EXPECT_GT(failures, 10U);
}

} // namespace
