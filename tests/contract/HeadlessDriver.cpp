#include "ContractDriver.h"

#include "ui/headless/HeadlessControls.h"
#include "ui/headless/HeadlessPlatform.h"
#include "ui/headless/HeadlessSurface.h"

namespace orvan::contract {
namespace {

using namespace headless;

class HeadlessDriver final : public Driver {
public:
    ui::Platform& platform() override { return platform_; }
    std::unique_ptr<ui::Surface> load(const ui::FormDesign& design) override
    {
        return std::make_unique<HeadlessSurface>(design, platform_);
    }
    void resize(ui::Surface& surface, int widthTwips, int heightTwips) override
    {
        dynamic_cast<HeadlessSurface&>(surface).resize(static_cast<float>(widthTwips), static_cast<float>(heightTwips));
    }
    void click(ui::Button& button) override { dynamic_cast<HeadlessButton&>(button).click(); }
    void dragColumn(ui::Grid& grid, std::int32_t column, std::int32_t twips) override
    {
        dynamic_cast<HeadlessGrid&>(grid).dragColumn(column, twips);
    }
    void chooseRow(ui::Grid& grid, std::int32_t row) override { dynamic_cast<HeadlessGrid&>(grid).chooseRow(row); }
    std::vector<std::string> shown(ui::Grid& grid, std::int32_t row) override
    {
        return dynamic_cast<HeadlessGrid&>(grid).visibleTexts(row);
    }
    void answer(ui::MessageResult result) override { platform_.messageBox().answer(result); }

private:
    HeadlessPlatform platform_{locale, components};
};

INSTANTIATE_TEST_SUITE_P(Headless, PlatformContract, testing::Values([]() -> std::unique_ptr<Driver> {
                             return std::make_unique<HeadlessDriver>();
                         }));

} // namespace
} // namespace orvan::contract
