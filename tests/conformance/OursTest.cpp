// The library's implementations without Qt pass the conformance suites.

#include "orvan/core/ProductMgr.h"
#include "orvan/hosting/ComponentRegistry.h"
#include "orvan/hosting/DefaultComponents.h"
#include "tests/conformance/Subjects.h"

#include <numeric>

namespace orvan::test {
namespace {

using namespace conformance;

/// What a host gets by name, whose limit is that of every host.
std::shared_ptr<ui::Component> registeredProductMgr()
{
    static ComponentRegistry registry;
    registerDefaultComponents(registry);
    return registry.create(kProductMgrClassName);
}

std::shared_ptr<headless::HeadlessMessageBox> lastBox;

/// Nobody can close a box in memory without an answer.
const MessageBoxSubject kHeadlessBox{
    .make = [] { return lastBox = std::make_shared<headless::HeadlessMessageBox>(); },
    .press = [](ui::MessageBox& box,
                ui::MessageResult button) { dynamic_cast<headless::HeadlessMessageBox&>(box).answer(button); },
    .shownText = [] { return lastBox->shown().back().text.english(); }};

const std::size_t kTests[] = {
    addProductMgrTests("InProcess", productMgrs()),
    addProductRecordTests("InProcess", productMgrs()),
    addProductMgrTests("Registered", registeredProductMgr),
    addProductLkpMgrTests("Sqlite", [] { return catalogue()(); }),
    addTraceTests("TraceLog", traceLog()),
    addLocaleServiceTests("English", locale("en_US")),
    addLocaleServiceTests("Swiss", locale("de_CH")),
    addLocaleServiceTests("Arabic", locale("ar_EG")),
    addLocaleServiceTests("Indian", locale("hi_IN")),
    addSettingsStoreTests("Headless",
                          {.makeEmpty = [] { return std::make_shared<headless::HeadlessSettingsStore>(); }}),
    addMessageBoxTests("Headless", kHeadlessBox),
};

TEST(Conformance, SuitesHaveTests)
{
    EXPECT_GT(std::accumulate(std::begin(kTests), std::end(kTests), std::size_t{0}), 150U);
}

} // namespace
} // namespace orvan::test
