// What happens when the host acts while a procedure of the view runs: from a manager, the trace, a message box or an
// open editor.

#include "tests/support/Raised.h"
#include "tests/support/ViewFixture.h"
#include "tests/view/HookedProductMgr.h"

#include <limits>

namespace orvan::test {
namespace {

const std::string kOtherList = "2~Shelf:::5:1:0:5:~Sofa:::7:1:0:7:~";

/// Passes everything on, and acts when a procedure is entered or left.
class HookedTrace final : public Trace {
public:
    explicit HookedTrace(std::shared_ptr<Trace> inner) : inner_(std::move(inner)) {}

    std::string procedure; ///< At its next entry `act` runs.
    std::string leaving;   ///< At its next exit `act` runs.
    std::function<void()> act;

    std::int32_t LastErrorNumber() override { return inner_->LastErrorNumber(); }
    void TraceError(std::string_view text) override { inner_->TraceError(text); }
    void TraceEnter(std::string_view label) override
    {
        inner_->TraceEnter(label);
        actAt(procedure, label);
    }
    void TraceExit(std::string_view label) override
    {
        inner_->TraceExit(label);
        actAt(leaving, label);
    }
    std::int32_t AppErrorNumber() override { return inner_->AppErrorNumber(); }
    void ShowLastError(std::int32_t window) override { inner_->ShowLastError(window); }

private:
    void actAt(std::string& awaited, std::string_view label)
    {
        if (!awaited.empty() && label.ends_with(awaited)) {
            awaited.clear();
            act();
        }
    }

    std::shared_ptr<Trace> inner_;
};

class ProductViewReentryTest : public ViewFixture {
protected:
    ProductViewReentryTest()
    {
        registry.registerClass(std::string(kProductMgrClassName),
                               [this] { return std::make_shared<HookedProductMgr>(makeManager(), hooks); });
    }

    /// A user's or the host's action on the second of three products.
    void perform(std::string_view action)
    {
        if (action == "Show") {
            view->Show(kThreeProducts);
        } else if (action == "Products") {
            EXPECT_EQ(view->Products(), kThreeProducts);
        } else if (action == "TotalValue") {
            EXPECT_EQ(view->TotalValue().toText(), "1965.425");
        } else if (action == "double click") {
            view->flexGrid().doubleClick(2);
        } else {
            button(action).click();
        }
    }

    void makeReady(std::string_view action)
    {
        makeView().Show(kThreeProducts);
        view->flexGrid().chooseRow(2);
        if (action == "cmdDelete") {
            platform.messageBox().answer(ui::MessageResult::yes);
        }
    }

    /// `dirty`: the first list had been changed by then. The flag is the view's, not the list's.
    void expectOtherList(bool dirty = false)
    {
        EXPECT_EQ(names(), "Shelf Sofa");
        EXPECT_EQ(grid().displayText(1, 0), "1");
        EXPECT_EQ(view->Products(), kOtherList);
        EXPECT_EQ(view->txtTotal().text(), "$12");
        EXPECT_TRUE(grid().redraw());
        EXPECT_EQ(view->Dirty(), dirty);
    }

    ManagerHooks hooks;
};

/// The manager's operation, or the traced procedure, in which the host acts.
struct Moment {
    const char *action, *where;
    bool afterChange = false;
};

constexpr Moment kManagerMoments[] = {{"Show", "SetProductsString"},
                                      {"Show", "GetProductCount"},
                                      {"Show", "SeekIndex"},
                                      {"Show", "GetProduct"},
                                      {"Show", "GetTotalValue"},
                                      {"Products", "GetProductsString"},
                                      {"cmdDelete", "DeleteProduct"},
                                      {"cmdDelete", "GetProductCount", true},
                                      {"cmdMoveUp", "SeekIndex"},
                                      {"cmdMoveUp", "MoveProduct"},
                                      {"cmdMoveDown", "GetProductCount", true},
                                      {"double click", "SeekIndex"},
                                      {"TotalValue", "GetTotalValue"}};

constexpr Moment kTraceMoments[] = {{"Show", "Show"},
                                    {"Show", "PrvRefreshView"},
                                    {"Products", "Products"},
                                    {"cmdNew", "cmdNew_Click"},
                                    {"cmdDelete", "cmdDelete_Click"},
                                    {"cmdDelete", "PrvDeleteProduct"},
                                    {"cmdMoveUp", "cmdMoveUp_Click"},
                                    {"cmdMoveUp", "PrvMoveProduct"},
                                    {"cmdMoveDown", "PrvRefreshView"},
                                    {"TotalValue", "TotalValue"}};

TEST_F(ProductViewReentryTest, TheViewMayBeDestroyedInAManagersOperation)
{
    for (const auto& [action, where, _] : kManagerMoments) {
        SCOPED_TRACE(testing::Message() << action << ", in " << where);
        makeReady(action);
        hooks.operation = where;
        hooks.act = [&] { view.reset(); };
        perform(action);
        EXPECT_EQ(hooks.operation, "") << "never called";
        EXPECT_FALSE(view);
        EXPECT_EQ(faults.managersAlive, 0);
    }
}

TEST_F(ProductViewReentryTest, AListShownInAManagersOperationStays)
{
    for (const auto& [action, where, afterChange] : kManagerMoments) {
        SCOPED_TRACE(testing::Message() << action << ", in " << where);
        makeReady(action);
        hooks.operation = where;
        hooks.act = [&] { view->Show(kOtherList); };
        perform(action);
        EXPECT_EQ(hooks.operation, "") << "never called";
        expectOtherList(afterChange);
    }
}

TEST_F(ProductViewReentryTest, TheViewMayBeDestroyedByTheTrace)
{
    const auto hooked = std::make_shared<HookedTrace>(trace.trace());
    for (const auto& [action, where, afterChange] : kTraceMoments) {
        SCOPED_TRACE(testing::Message() << action << ", entering " << where);
        makeReady(action);
        if (std::string_view(action) == "cmdDelete") { // is not asked any more
            static_cast<void>(platform.messageBox().show({.text = "", .buttons = ui::MessageButtons::yesNo}));
        }
        const auto before = std::exchange(gobjTrace, hooked);
        hooked->procedure = std::string("::") + where;
        hooked->act = [&] { view.reset(); };
        perform(action);
        gobjTrace = before;
        EXPECT_EQ(hooked->procedure, "") << "never entered";
        EXPECT_EQ(faults.managersAlive, 0);
    }
}

TEST_F(ProductViewReentryTest, AMoveLeavesAListAloneThatTheTraceShows)
{
    const auto hooked = std::make_shared<HookedTrace>(trace.trace());
    makeReady("cmdMoveUp");
    const auto before = std::exchange(gobjTrace, hooked);
    hooked->procedure = "::PrvMoveProduct";
    hooked->act = [&] { view->Show(kOtherList); };
    perform("cmdMoveUp");
    gobjTrace = before;
    expectOtherList();
}

TEST_F(ProductViewReentryTest, ADeleteQuestionIsAboutTheListThatItWasAskedFor)
{
    for (const auto way : {ui::EditingWay::classic, ui::EditingWay::careful}) {
        platform.editing = way;
        makeReady("cmdDelete");
        platform.messageBox().onWaiting = [&](const ui::Message&) { view->Show(kOtherList); };
        perform("cmdDelete");
        platform.messageBox().onWaiting = nullptr;
        expectOtherList();
    }
}

/// The careful way sets only the cells that differ from what was shown when the products were read.
TEST_F(ProductViewReentryTest, ARefreshInsideOfARefreshLeavesTheLaterOneRight)
{
    std::shared_ptr<ProductMgr> list;
    registry.registerClass(std::string(kProductMgrClassName), [&] {
        list = makeManager();
        return std::make_shared<HookedProductMgr>(list, hooks);
    });
    platform.editing = ui::EditingWay::careful;
    makeView().Show(kThreeProducts);
    view->flexGrid().chooseRow(3);
    platform.messageBox().answer(ui::MessageResult::yes);
    hooks.operation = "GetTotalValue";
    hooks.act = [&] {
        list->GetProduct(1)->SetName("Other");
        view->flexGrid().chooseRow(1);
        button("cmdMoveDown").click(); // shows the list, and no more: the refresh before it has not ended
        EXPECT_EQ(names(), "Other Lamp");
        list->GetProduct(1)->SetName("Desk");
    };
    button("cmdDelete").click();
    EXPECT_EQ(hooks.operation, "") << "never called";
    EXPECT_EQ(names(), "Desk Lamp");
}

TEST_F(ProductViewReentryTest, AnEditorBelongsToTheListThatItWasOpenedOn)
{
    for (const auto way : {ui::EditingWay::classic, ui::EditingWay::careful}) {
        for (const char* action : {"cmdNew", "double click"}) {
            SCOPED_TRACE(action);
            platform.editing = way;
            makeReady(action);
            platform.drive([&](headless::FormDriver& form) {
                view->Show(kOtherList);
                form.focus("txtQty");
                form.textBox("txtQty").type("4");
                platform.messageBox().answer(ui::MessageResult::yes);
                form.clickCloseBox();
            });
            perform(action);
            expectOtherList();
        }
    }
}

TEST_F(ProductViewReentryTest, AChangeMarksTheViewWhateverFailsAfterIt)
{
    const auto hooked = std::make_shared<HookedTrace>(trace.trace());
    const struct {
        const char *name, *action, *operation, *leaving;
    } rows[] = {{"an edit, and the trace refuses the dialog's end", "double click", "", "ProductDlg::Show"},
                {"an added product, and the refresh fails", "cmdNew", "", "PrvRefreshView"},
                {"a move, and the refresh fails", "cmdMoveUp", "GetProductCount", ""},
                {"a move, and the trace refuses its end", "cmdMoveUp", "", "PrvMoveProduct"},
                {"a deletion, and the refresh fails", "cmdDelete", "GetProductCount", ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        makeReady(row.action);
        if (std::string_view(row.action) == "double click" || std::string_view(row.action) == "cmdNew") {
            platform.drive([&](headless::FormDriver& form) {
                form.focus("txtQty");
                form.textBox("txtQty").type("4");
                platform.messageBox().answer(ui::MessageResult::yes);
                form.clickCloseBox();
            });
        }
        const auto before = std::exchange(gobjTrace, hooked);
        const std::size_t errors = trace->errors().size();
        hooks.operation = row.operation;
        hooked->leaving = row.leaving;
        hooks.act = hooked->act = [] { throw RuntimeError(1000); };
        perform(row.action);
        gobjTrace = before;
        EXPECT_EQ(hooks.operation + hooked->leaving, "") << "never reached";
        trace->declareError(1000, static_cast<int>(trace->numbersSince(errors).size()));
        EXPECT_TRUE(view->Dirty());
        EXPECT_NE(view->Products(), kThreeProducts);
    }
}

TEST_F(ProductViewReentryTest, AManagerWithoutRecordsIsAnErrorLikeAnyOther)
{
    makeReady("double click");
    const std::size_t before = trace->errors().size();
    hooks.handsOutRecords = false;
    trace->declareError(ErrorNumber::objectNotSet, 6);
    EXPECT_THROW(view->Show(kThreeProducts), RuntimeError);
    perform("double click");
    EXPECT_EQ(trace->lines().back(), "show 0");
    EXPECT_EQ(trace->numbersSince(before), std::vector<std::int32_t>(6, ErrorNumber::objectNotSet));
}

TEST_F(ProductViewReentryTest, AWrongCountIsAnErrorBeforeAnythingIsChanged)
{
    const struct {
        const char* name;
        std::int32_t count, error;
    } rows[] = {{"negative", -1, ErrorNumber::invalidProcedureCall},
                {"one more than a grid holds beside its header", ui::Grid::kMostRows, ErrorNumber::outOfMemory},
                {"the most there is", std::numeric_limits<std::int32_t>::max(), ErrorNumber::outOfMemory}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        makeView().Show(kThreeProducts);
        hooks.count = row.count;
        trace->declareError(row.error, 2);
        EXPECT_EQ(errorOf([&] { view->Show(kThreeProducts); }), row.error);
        EXPECT_NE(trace->errors()[trace->errors().size() - 2].description().find(std::to_string(row.count)),
                  std::string::npos);
        hooks.count.reset();
        EXPECT_EQ(this->row(0), "# | Product | Qty | Ext Price");
        EXPECT_EQ(this->row(3), "3 | Chair | 1 | $875.00");
        view->Show(kThreeProducts);
        EXPECT_TRUE(grid().redraw());
    }
}

} // namespace
} // namespace orvan::test
