#include "tests/sweeps/WholeSession.h"

#include "orvan/components/products/InProcessProductMgr.h"
#include "orvan/core/modInit.h"
#include "orvan/lookup/ProductLkpMgr.h"
#include "orvan/ui/icu/IcuLocaleService.h"
#include "orvan/view/ProductViewDesign.h"
#include "tests/sweeps/ListSteps.h"

#include <algorithm>

namespace orvan::sweeps {

namespace {

constexpr std::string_view kProducts = "3~Desk::D-1:489:2:0:978:~Lamp::L-7:74.95:1.5:0:112.425:~"
                                       "Chair::C-3:1000:1:12.5:875:blue~";
constexpr std::string_view kOtherProducts = "1~Shelf::S-1:20:1:0:20:~";

/// A catalogue of one entry.
class OneEntry final : public ProductLkpMgr {
public:
    LookUpList GetPartNumList(std::string_view sText, bool all) override { return find(sText, all, "T-9"); }
    LookUpList GetProductNameList(std::string_view sText, bool all) override { return find(sText, all, "Table"); }
    void SeekItem(std::int32_t itemId) override { found_ = itemId == kItem; }
    bool IsEOF() override { return !found_; }
    LookUpValue GetFieldValue(std::int32_t column) override
    {
        switch (static_cast<LookUpColumn>(column)) {
        case LookUpColumn::name: return "Table";
        case LookUpColumn::key: return "k9";
        case LookUpColumn::partNum: return "T-9";
        case LookUpColumn::unitPrice: return Currency::fromText("55.5");
        case LookUpColumn::note: return "from the catalogue, and too long for a text without memory of its own";
        }
        return {};
    }

private:
    static constexpr std::int32_t kItem = 9;

    static LookUpList find(std::string_view text, bool all, const char* own)
    {
        const bool matches = all || (!text.empty() && std::string_view(own).starts_with(text));
        return matches ? LookUpList({LookUpRow{kItem, own}}) : std::nullopt;
    }

    bool found_ = false;
};

/// Passes calls on. No allocation fails meanwhile, because the trace is the test's own.
class PausingTrace final : public Trace {
public:
    explicit PausingTrace(std::shared_ptr<Trace> inner) : inner_(std::move(inner)) {}

    std::int32_t LastErrorNumber() override { return inner_->LastErrorNumber(); }
    void TraceError(std::string_view sText) override
    {
        const AllocationPause pause;
        inner_->TraceError(sText);
    }
    void TraceEnter(std::string_view label) override
    {
        const AllocationPause pause;
        inner_->TraceEnter(label);
    }
    void TraceExit(std::string_view label) override
    {
        const AllocationPause pause;
        inner_->TraceExit(label);
    }
    std::int32_t AppErrorNumber() override { return inner_->AppErrorNumber(); }
    void ShowLastError(std::int32_t /*hWnd*/) override {}

private:
    std::shared_ptr<Trace> inner_;
};

} // namespace

/// A container that does nothing but what every container has to.
class Site final : public ui::ContainerSite {
public:
    std::string parentTypeName() override { return "SweepForm"; }
    std::int32_t parentWindow() override { return 0; }
    void propertyChanged(std::string_view /*property*/) override {}
};

class WholeSession::Components final : public ui::ComponentFactory {
public:
    std::shared_ptr<ui::Component> create(std::string_view className) override
    {
        if (className == kTraceClassName) {
            const AllocationPause pause;
            return std::make_shared<PausingTrace>(trace);
        }
        if (className == kProductLkpMgrClassName) {
            return std::make_shared<OneEntry>();
        }
        std::shared_ptr<ui::Component> made = productMgrFactory()();
        const AllocationPause pause;
        managers.push_back(std::dynamic_pointer_cast<ProductMgr>(made));
        return made;
    }

    /// The view's manager: the oldest that still exists. A Show that fails may have made another one and released it.
    std::shared_ptr<ProductMgr> manager() const
    {
        for (const std::weak_ptr<ProductMgr>& made : managers) {
            if (std::shared_ptr<ProductMgr> alive = made.lock()) {
                return alive;
            }
        }
        return nullptr;
    }

    icu::IcuLocaleService locale{{.monetary = "en_US", .numeric = "en_US"}};
    std::shared_ptr<test::RecordingTrace> trace = std::make_shared<test::RecordingTrace>();
    std::vector<std::weak_ptr<ProductMgr>> managers;
};

/// Answers every question in the same way, whatever it asks.
class WholeSession::Box final : public ui::MessageBox {
public:
    ui::MessageResult answer = ui::MessageResult::yes;

    ui::MessageResult show(const ui::Message& message) override
    {
        return message.buttons == ui::MessageButtons::ok ? ui::MessageResult::ok : answer;
    }
};

WholeSession::WholeSession(contract::Driver& driver, testkit::OutsideCalls& calls, ui::EditingWay editing)
    : driver_(driver), components_(std::make_unique<Components>()), box_(std::make_unique<Box>()),
      platform_(driver.platform(), {*components_, *box_, components_->locale}, calls), trace_(components_->trace)
{
    platform_.editing = editing;
    driver.platform().onUnhandledError = [this](const RuntimeError&) { ++errors; };
    trace_->allowNoExit("KTVOrvanProduct.frmProduct::cboPartNum_Change");
    trace_->allowNoExit("KTVOrvanProduct.frmProduct::cboProductName_Change");
}

WholeSession::~WholeSession()
{
    driver_.platform().onUnhandledError = nullptr;
}

std::string WholeSession::list() const
{
    const std::shared_ptr<ProductMgr> manager = components_->manager();
    return manager ? manager->GetProductsString(kRecordSeparator, kFieldSeparator) : std::string();
}

void WholeSession::step(const char* /*name*/, const std::function<void()>& act)
{
    try {
        const AllocationTrial trial;
        act();
    } catch (...) { // an operation of the view may raise, and so may the driver
        ++errors;
    }
}

void WholeSession::smallStep(const char* name, const std::function<void()>& act)
{
    const std::string before = list();
    step(name, act);
    const std::string after = list();
    if (!isOneStep(before, after) && after != shown_) { // reverting puts back the list of the editor's opening
        faults.push_back(std::string(name) + " made of " + before + " the list " + after);
    }
}

void WholeSession::run()
{
    const AllocationPause pause;
    const std::shared_ptr<Trace> outer = std::exchange(gobjTrace, nullptr);
    {
        Site site;
        std::unique_ptr<ui::Surface> surface;
        std::unique_ptr<ProductView> view;
        // The library makes its trace object once per thread; each session here is to have its own.
        step("making the trace",
             [&] { gobjTrace = ui::createComponent<Trace>(platform_.components(), kTraceClassName); });
        step("making the view", [&] {
            surface = driver_.load(kProductViewDesign);
            view = std::make_unique<ProductView>(platform_, *surface, site);
            view->UserControl_ReadProperties();
        });
        if (view) {
            work(*surface, *view);
            endFailing();
            checkWhatIsLeft(*surface, *view);
        } else {
            endFailing();
        }
    }
    if (components_->manager()) {
        faults.emplace_back("the manager outlives its view");
    }
    gobjTrace = outer;
    errors += trace_->errors().size();
    checkTrace();
}

void WholeSession::work(ui::Surface& surface, ProductView& view)
{
    auto& grid = surface.control<ui::Grid>("flexGrid");
    step("showing", [&] { view.Show(kProducts); });
    shown_ = list();
    step("choosing a column", [&] {
        driver_.rightClick(grid, 0, 2);
        for (const char* const name : {"mnuViewCboOne", "mnuViewCboTwo"}) {
            auto& menu = surface.control<ui::PopupMenu>(name);
            if (driver_.isUp(menu)) {
                driver_.choose(menu, std::string(name) + "UnitPrice");
            }
        }
    });
    step("dragging a column", [&] { driver_.dragColumn(grid, 1, 2400); });
    const auto click = [&](const char* name) {
        smallStep(name, [&] {
            if (auto& button = surface.control<ui::Button>(name); button.enabled()) {
                driver_.chooseRow(grid, std::min(2, grid.rowCount() - 1));
                driver_.click(button);
            }
        });
    };
    click("cmdMoveUp");
    click("cmdMoveDown");
    pressKeys(grid);
    edit(surface, true);
    click("cmdDelete");
    edit(surface, false);
    step("reading", [&] {
        static_cast<void>(view.Products());
        static_cast<void>(view.TotalValue());
    });
    step("showing another list", [&] { view.Show(kOtherProducts); });
}

void WholeSession::pressKeys(ui::Grid& grid)
{
    const auto press = [&](const char* key) {
        // What a key does to several rows is done row by row: of these, some may have been done.
        const std::string before = list();
        step(key, [&] { driver_.pressKey(grid, key); });
        const std::string after = list();
        if (!isSameProducts(before, after)) {
            faults.push_back(std::string(key) + " made of " + before + " the list " + after);
        }
    };
    step("choosing a row", [&] { driver_.chooseRow(grid, std::min(1, grid.rowCount() - 1)); });
    press("L");
    press("Ctrl+C");
    smallStep("duplicating", [&] { driver_.pressKey(grid, "Ctrl+D"); });
    smallStep("pasting", [&] { driver_.pressKey(grid, "Ctrl+V"); });
    press("Shift+Up");
    press("Alt+Up");
    press("Alt+Down");
    step("dragging rows", [&] {
        if (grid.rowCount() > 3) {
            driver_.dragRows(grid, grid.currentRow(), 1);
        }
    });
    smallStep("cutting", [&] {
        driver_.pressKey(grid, "Home");
        driver_.pressKey(grid, "Ctrl+X");
    });
}

void WholeSession::edit(ui::Surface& surface, bool save)
{
    shown_ = list();
    platform_.onFormLoaded = [this, save](ui::Form& form) {
        const AllocationPause pause;
        driver_.whenShown(form, [this, save, &form] { inEditor(form, save); });
    };
    step(save ? "editing" : "reverting", [&] {
        auto& grid = surface.control<ui::Grid>("flexGrid");
        if (grid.rowCount() > 1) {
            driver_.doubleClick(grid, 1);
        }
    });
    driver_.forgetShown();
    box_->answer = ui::MessageResult::yes;
    platform_.onFormLoaded = nullptr;
    shown_ = list();
}

void WholeSession::inEditor(ui::Form& form, bool save)
{
    const AllocationPause pause;
    const auto inForm = [&](const char* name, const std::function<void()>& act) {
        if (!form.loaded()) {
            return;
        }
        // In the classic way, a form that closes after an error may save what it shows into another product.
        platform_.editing == ui::EditingWay::careful ? smallStep(name, act) : step(name, act);
    };
    const auto click = [&](const char* name) {
        inForm(name, [&] {
            if (auto& button = form.control<ui::Button>(name); button.enabled()) {
                driver_.click(button);
            }
        });
    };
    const auto type = [&](const char* name, const char* text) {
        inForm(name, [&] { driver_.type(form.control<ui::TextEntry>(name), text); });
    };
    type("txtQty", "4");
    type("txtUnitPrice", "9");
    type("txtNote", "n");
    type("cboPartNum", "T");
    inForm("waiting for the look-up", [&] { driver_.wait(500); });
    type("txtDiscount", "1");
    click("cmdNext");
    click("cmdPrevious");
    click("cmdNew");
    type("cboProductName", "Tab");
    click("cmdGotoFirst");
    click("cmdGotoLast");
    click("cmdDelete");
    if (save) {
        click("cmdSaveClose");
    } else {
        box_->answer = ui::MessageResult::no;
    }
    for (int attempt = 0; attempt < 3; ++attempt) { // a failed save keeps the form open
        inForm("closing", [&] { driver_.clickCloseBox(form); });
    }
    if (form.loaded()) {
        endFailing();
        step("closing in the end", [&] { form.unload(ui::UnloadMode::code); });
    }
}

void WholeSession::checkWhatIsLeft(ui::Surface& surface, ProductView& view)
{
    const auto expect = [&](bool holds, const char* what) {
        if (!holds) {
            faults.emplace_back(what);
        }
    };
    try {
        const std::string products = list();
        const std::shared_ptr<ProductMgr> manager = components_->manager();
        Currency sum;
        for (std::int32_t i = 1; i <= manager->GetProductCount(); ++i) {
            sum = sum + manager->GetProduct(i)->ExtPrice();
        }
        expect(view.TotalValue() == sum, "the total is not the sum of the rows");
        expect(view.Products() == products, "the host reads another list than the manager's");
        view.Show(kProducts);
        expect(view.Products() == kProducts, "a later Show does not work");
        auto& grid = surface.control<ui::Grid>("flexGrid");
        expect(grid.rowCount() == 4, "a later Show does not fill the grid");
        expect(driver_.shown(grid, 3)[1] == "Chair", "a later Show does not paint the grid");
    } catch (...) {
        faults.push_back("an error in what is left: " + std::string(currentError().text()));
    }
}

void WholeSession::checkTrace()
{
    if (traceFailed) {
        return; // a trace that failed has gaps
    }
    for (const std::int32_t number : trace_->numbersSince(0)) {
        trace_->declareError(number);
    }
    for (const std::string& line : trace_->unpaired()) {
        faults.push_back("trace: " + line);
    }
}

} // namespace orvan::sweeps
