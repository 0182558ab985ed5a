#include "tests/replay/RandomSession.h"

#include "orvan/base/Text.h"
#include "orvan/components/products/InProcessProductMgr.h"
#include "orvan/core/modInit.h"
#include "orvan/ui/ContainerSite.h"
#include "orvan/ui/icu/IcuLocaleService.h"
#include "orvan/view/ProductViewDesign.h"
#include "tests/replay/FourEntries.h"
#include "tests/support/RecordingTrace.h"

#include <algorithm>

namespace orvan::replay {

namespace {

constexpr const char* kLists[] = {
    "3~Desk::D-1:489:2:0:978:~Lamp::L-7:74.95:1.5:0:112.425:~Chair::C-3:1000:1:12.5:875:blue~",
    "1~Grünes Regal::S-1:20:1:0:20:~", "0~", "2~Table::T-1:55.5:1:0:1:\"old\" note~Tab::T-9:0.1234:3:0:0.3702:~"};

} // namespace

class RandomSession::Components final : public ui::ComponentFactory {
public:
    std::shared_ptr<ui::Component> create(std::string_view className) override
    {
        if (className == kTraceClassName) {
            return std::make_shared<test::RecordingTrace>();
        }
        if (className == kProductLkpMgrClassName) {
            return std::make_shared<FourEntries>();
        }
        return productMgrFactory({.maxDataSize = 1000})();
    }

    icu::IcuLocaleService locale{{.monetary = "de_DE", .numeric = "en_US"}};
};

/// Answers at random. Now and then the host reads the list before the user has answered.
class RandomSession::Box final : public ui::MessageBox {
public:
    explicit Box(RandomSession& session) : session_(session) {}

    ui::MessageResult show(const ui::Message& message) override
    {
        if (session_.upTo(4) == 0) {
            session_.host();
        }
        if (message.buttons == ui::MessageButtons::ok) {
            return ui::MessageResult::ok;
        }
        const int answer = session_.upTo(message.buttons == ui::MessageButtons::yesNo ? 1 : 2);
        return answer == 0 ? ui::MessageResult::yes : answer == 1 ? ui::MessageResult::no : ui::MessageResult::cancel;
    }

private:
    RandomSession& session_;
};

RandomSession::RandomSession(contract::Driver& driver, const SessionOptions& options,
                             const std::filesystem::path& recording)
    : driver_(driver), options_(options), random_(options.seed), components_(std::make_unique<Components>()),
      box_(std::make_unique<Box>(*this)),
      platform_(driver.platform(), {*components_, *box_, components_->locale}, none_)
{
    platform_.editing = options.editing;
    driver.platform().onUnhandledError = [](const RuntimeError&) {}; // the driver may press what is greyed
    platform_.onFormLoaded = [this](ui::Form& form) { driver_.whenShown(form, [this, &form] { useEditor(form); }); };
    recorder_ = recording::Recorder::start(
        driver.platform(), {.file = recording, .ownManager = options.ownManager, .services = &platform_});
}

RandomSession::~RandomSession()
{
    recorder_->stop();
    driver_.forgetShown();
    driver_.platform().onUnhandledError = nullptr;
}

std::string RandomSession::run()
{
    surface_ = driver_.load(kProductViewDesign);
    class Site final : public ui::ContainerSite {
        std::string parentTypeName() override { return "frmQuote"; }
        std::int32_t parentWindow() override { return 0; }
        void propertyChanged(std::string_view /*property*/) override {}
    } site;
    view_ = std::make_unique<HostedView>(driver_.platform(), *surface_, site);
    view_->placed();
    view_->Show(kLists[0]);
    for (left_ = options_.events; left_ > 0; --left_) {
        try {
            inList();
        } catch (const RuntimeError&) { // what a user cannot do now, or what the host is told
        }
    }
    std::string products = view_->Products();
    view_.reset();
    recorder_->stop();
    surface_.reset();
    return products;
}

void RandomSession::host()
{
    switch (upTo(5)) {
    case 0: static_cast<void>(view_->Products()); break;
    case 1: static_cast<void>(view_->TotalValue()); break;
    case 2: view_->setCurrentProduct(upTo(4)); break;
    case 3: view_->refresh(); break;
    case 4: view_->setReadOnly(upTo(3) == 0); break;
    default: view_->Show(kLists[upTo(3)]); break;
    }
}

bool RandomSession::chosenFrom(ui::Surface& surface)
{
    for (const char* const name : {"mnuViewCboOne", "mnuViewCboTwo", "mnuRow"}) {
        auto& menu = surface.control<ui::PopupMenu>(name);
        if (driver_.isUp(menu)) {
            std::vector<std::string> tools{""};
            for (const ui::ToolDesign& tool : menu.tools()) {
                if (!tool.id.empty() && !menu.opensMenu(tool.id) && menu.toolEnabled(tool.id)) {
                    tools.emplace_back(tool.id);
                }
            }
            driver_.choose(menu, tools[static_cast<std::size_t>(upTo(static_cast<int>(tools.size()) - 1))]);
            return true;
        }
    }
    return false;
}

void RandomSession::inList()
{
    auto& grid = surface_->control<ui::Grid>("flexGrid");
    if (chosenFrom(*surface_)) {
        return;
    }
    const std::int32_t row = upTo(std::max(grid.rowCount() - 1, 0));
    switch (upTo(9)) {
    case 0: driver_.chooseRow(grid, row, upTo(2) == 0 ? ui::RowChoice::toggle : ui::RowChoice::only); break;
    case 1:
    case 2:
        driver_.pressKey(grid, oneOf({"Up", "Down", "End", "Home", "PgDown", "Shift+Down", "Ctrl+C", "Ctrl+V", "Ctrl+X",
                                      "Ctrl+D", "Alt+Up", "Alt+Down", "Del", "Ctrl+A", "F3", "L", "t", "Ctrl+Space"}));
        break;
    case 3:
        driver_.click(surface_->control<ui::Button>(oneOf({"cmdDelete", "cmdMoveUp", "cmdMoveDown", "cmdNew"})));
        break;
    case 4: driver_.rightClick(grid, upTo(1) == 0 ? 0 : row, upTo(3)); break;
    case 5: driver_.dragColumn(grid, upTo(3), 300 + 15 * upTo(100)); break;
    case 6: driver_.resize(*surface_, 6000 + 15 * upTo(200), 4000 + 15 * upTo(100)); break;
    case 7: host(); break;
    default: driver_.doubleClick(grid, row); break;
    }
}

void RandomSession::useEditor(ui::Form& form)
{
    const int most = std::max(left_ - upTo(60), 0);
    for (; left_ > most && form.loaded(); --left_) {
        try {
            inEditor(form);
        } catch (const RuntimeError&) {
        }
    }
    for (int attempt = 0; form.loaded() && attempt < 20; ++attempt) {
        driver_.clickCloseBox(form);
    }
    if (form.loaded()) {
        form.unload(ui::UnloadMode::session);
    }
}

void RandomSession::inEditor(ui::Form& form)
{
    const char* const entries[] = {"txtQty", "txtUnitPrice", "txtDiscount", "txtNote", "cboPartNum", "cboProductName"};
    if (upTo(99) < options_.waitsInHundred) {
        driver_.wait(500);
        return;
    }
    switch (upTo(9)) {
    case 0: driver_.goTo(form, oneOf(entries)); break;
    case 1:
        driver_.click(form.control<ui::Button>(oneOf({"cmdNext", "cmdPrevious", "cmdNew", "cmdGotoFirst", "cmdGotoLast",
                                                      "cmdDelete", "cmdNext", "cmdSaveClose"})));
        break;
    case 2:
        if (auto& box = focused<ui::ComboBox>(form, oneOf({"cboPartNum", "cboProductName"})); box.count() > 0) {
            driver_.chooseRow(box, upTo(box.count() - 1));
        }
        break;
    case 3: driver_.type(focused<ui::TextEntry>(form, oneOf(entries)), "\b"); break;
    case 4: driver_.pressControl(focused<ui::TextEntry>(form, oneOf(entries)), "ACVX"[upTo(3)]); break;
    case 5:
        driver_.type(focused<ui::TextEntry>(form, oneOf({"cboPartNum", "cboProductName"})),
                     oneOf({"T", "D", "Ta", "G", "T-9"}));
        break;
    case 6:
        if (upTo(9) == 0) {
            driver_.pressEscape(form);
        }
        break;
    default:
        driver_.type(focused<ui::TextEntry>(form, oneOf(entries)),
                     oneOf({"1", "2", ".", "5", "-", "a", "Tab", "ü", "9"}));
        break;
    }
}

} // namespace orvan::replay
