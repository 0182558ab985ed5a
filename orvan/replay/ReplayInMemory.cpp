#include "orvan/hosting/Host.h"
#include "orvan/replay/Replay.h"
#include "orvan/ui/headless/HeadlessPlatform.h"
#include "orvan/ui/headless/HeadlessSurface.h"
#include "orvan/view/ProductViewDesign.h"

#include <utility>

namespace orvan::replay {

namespace {

class MemoryStage final : public Stage {
public:
    MemoryStage() : locale_(makeLocaleService({.monetary = "en_US", .numeric = "en_US"})), platform_(*locale_, none_)
    {
        platform_.onUnhandledError = [](const RuntimeError&) {}; // it has been recorded as what the library did next
    }

    ui::Platform& platform() override { return platform_; }
    std::unique_ptr<ui::Surface> makeView() override
    {
        return std::make_unique<headless::HeadlessSurface>(kProductViewDesign, platform_);
    }
    bool paints() const override { return false; }
    void whenShown(ui::Form& /*form*/, std::function<void()> play) override
    {
        platform_.drive([play = std::move(play)](headless::FormDriver&) { play(); });
    }

private:
    ComponentRegistry none_;
    std::unique_ptr<ui::LocaleService> locale_; ///< For what the recording has no answer to.
    headless::HeadlessPlatform platform_;
};

} // namespace

ReplayResult replayInMemory(const RecordedLines& lines, const ReplayOptions& options)
{
    MemoryStage stage;
    return Replay(lines, stage, options).run();
}

} // namespace orvan::replay
