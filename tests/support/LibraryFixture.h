// LibraryFixture: the library on the in-memory platform, its components such that a test can make them fail.
#pragma once

#include "orvan/components/catalogue/NoCatalogue.h"
#include "orvan/components/products/InProcessProductMgr.h"
#include "orvan/hosting/ComponentRegistry.h"
#include "orvan/ui/headless/HeadlessPlatform.h"
#include "orvan/ui/icu/IcuLocaleService.h"
#include "tests/support/FaultyProductMgr.h"
#include "tests/support/RecordingTrace.h"

namespace orvan::test {

/// Name, key, part number, unit price, quantity, discount, extended price, note.
inline const std::string kThreeProducts = "3~Desk::D-1:489:2:0:978:~Lamp::L-7:74.95:1.5:0:112.425:~"
                                          "Chair::C-3:1000:1:12.5:875:blue~";

class LibraryFixture : public testing::Test {
public:
    LibraryFixture()
    {
        registry.registerClass(std::string(kTraceClassName), [this] { return trace.trace(); });
        registry.registerClass(std::string(kProductMgrClassName), [this] {
            ++managersMade;
            return makeManager();
        });
        registry.registerClass(std::string(kProductLkpMgrClassName), [] { return std::make_shared<NoCatalogue>(); });
        allowEntriesOfLoading(*trace.trace());
        platform.onUnhandledError = [](const RuntimeError& error) {
            ADD_FAILURE() << "unhandled error " << error.number() << ": " << error.text();
        };
    }

    /// While a product is loaded, the look-up boxes report that they are entered and nothing more.
    static void allowEntriesOfLoading(RecordingTrace& trace)
    {
        trace.allowNoExit("KTVOrvanProduct.frmProduct::cboPartNum_Change");
        trace.allowNoExit("KTVOrvanProduct.frmProduct::cboProductName_Change");
    }

    std::shared_ptr<ProductMgr> makeManager()
    {
        return std::make_shared<FaultyProductMgr>(std::dynamic_pointer_cast<ProductMgr>(productMgrFactory()()), faults);
    }

    /// For the end of a derived fixture, once it has let its own objects go.
    void expectNothingLeft()
    {
        EXPECT_EQ(faults.managersAlive, 0);
        EXPECT_EQ(platform.messageBox().unusedAnswers(), 0U) << "answers that nobody asked for";
        EXPECT_EQ(platform.messageBox().unanswered(), 0) << "message boxes that nobody scripted";
        EXPECT_EQ(platform.unusedDrivers(), 0U) << "dialogs that nobody opened";
    }

    ScopedTrace trace;
    Faults faults;
    int managersMade = 0;
    ComponentRegistry registry;
    icu::IcuLocaleService locale{{.monetary = "en_US", .numeric = "en_US"}};
    headless::HeadlessPlatform platform{locale, registry};
};

} // namespace orvan::test
