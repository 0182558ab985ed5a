#include "tests/support/EditorFixture.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"

#include <sstream>

namespace orvan::test {
namespace {

using headless::FormDriver;

class OneEntry final : public ProductLkpMgr {
public:
    LookUpList GetPartNumList(std::string_view text, bool /*all*/) override
    {
        return {{{1, std::string(text).append("-1")}}};
    }
    LookUpList GetProductNameList(std::string_view text, bool all) override { return GetPartNumList(text, all); }
    void SeekItem(std::int32_t /*itemId*/) override {}
    bool IsEOF() override { return true; }
    LookUpValue GetFieldValue(std::int32_t /*column*/) override { return {}; }
};

class LabelsTest : public EditorFixture {
public:
    LabelsTest()
    {
        registry.registerClass(std::string(kProductLkpMgrClassName), [] { return std::make_shared<OneEntry>(); });
        platform.messageBox().onWaiting = [this](const ui::Message& message) { // a person who says yes to everything
            platform.messageBox().answer(message.buttons == ui::MessageButtons::ok ? ui::MessageResult::ok
                                                                                   : ui::MessageResult::yes);
        };
    }

    /// "verb control argument", several with "; " between.
    void perform(FormDriver& form, const std::string& doings)
    {
        std::istringstream all(doings);
        for (std::string doing; std::getline(all >> std::ws, doing, ';');) {
            std::istringstream words(doing);
            std::string verb, control, argument;
            words >> verb >> control >> argument;
            if (!form.loaded()) {
                return;
            } else if (verb == "focus") {
                form.focus(control);
            } else if (verb == "type") {
                entry(form, control).type(argument == "Enter" ? "\n" : argument);
            } else if (verb == "pick") {
                form.comboBox(control).chooseRow(std::stoi(argument));
            } else if (verb == "click") {
                form.button(control).click();
            } else if (verb == "choose") {
                form.toolBar("atbMain").choose(control);
            } else if (verb == "wait") {
                platform.clock().advance(std::stoi(control));
            } else if (verb == "closeBox") {
                form.clickCloseBox();
            } else {
                FAIL() << doing;
            }
        }
    }

    /// A session on the second of three products, of which `doings` are recorded: with "open", the whole of it. What
    /// stands before a bar is done first and not recorded. Returns what was entered.
    std::string session(const std::string& doings, std::string_view failing = {})
    {
        load(kThreeProducts);
        const ScopedTrace own;
        allowEntriesOfLoading(*own.trace());
        std::size_t from = 0;
        std::string names;
        const std::string label = "KTVOrvanProduct." + std::string(failing);
        const auto arm = [&] { own.trace()->failEntering(failing.empty() ? "" : label, kFailure); };
        const bool whole = doings.starts_with("open");
        const std::size_t bar = doings.find('|');
        platform.drive([&](FormDriver& form) {
            if (bar != std::string::npos) {
                perform(form, doings.substr(0, bar));
            }
            if (!whole) {
                from = own.trace()->lines().size();
                arm();
                perform(form, bar == std::string::npos ? doings : doings.substr(bar + 1));
            }
            names = entered(*own.trace(), from);
            own.trace()->failEntering({}, 0);
            perform(form, "closeBox; closeBox"); // the first may be kept open by what fails
        });
        if (whole) {
            arm();
        }
        const std::int32_t raised =
            errorOf([&] { doings == "openNew" ? dialog.ShowAddNew(manager) : dialog.Show(manager, 2); });
        EXPECT_EQ(raised != 0, whole && !failing.empty()) << "an error before the form is shown is the caller's";
        if (raised != 0 && platform.unusedDrivers() > 0) {
            platform.dropDriver();
        }
        if (!failing.empty()) {
            expectFailed(*own.trace(), label);
        }
        return names;
    }

    static constexpr std::int32_t kFailure = 1001;

private:
    using EditorFixture::entered;

    /// The procedure recorded the error right after it was entered, and every error is that one, passed on.
    static void expectFailed(RecordingTrace& trace, const std::string& label)
    {
        const auto& lines = trace.lines();
        const auto failed = std::find(lines.begin(), lines.end(), "enter " + label + " (fails)");
        ASSERT_NE(failed, lines.end()) << label;
        // A pointer is put back before the record, which leaves no line.
        EXPECT_EQ(failed + 1 == lines.end() ? "" : *(failed + 1), "error 1001") << label;
        for (const std::int32_t number : trace.numbersSince(0)) {
            EXPECT_TRUE(number == kFailure || number == ErrorNumber::objectNotSet) << label << ": " << number;
            trace.declareError(number);
        }
    }
};

TEST_F(LabelsTest, EveryProcedureReportsItsLabelAndFailsUnderIt)
{
    const Example rows[] = {
        {"open", "Show Init PrvInitForm SHOW txtDiscount_Change txtQty_LostFocus PrvSetFormCaption PrvSeekProduct SAVE "
                 "PrvLoadProductInfo PrvSetFormCaption"},
        {"openNew", "ShowAddNew Init PrvInitForm PrvAddNewProduct PrvSaveCurrentProduct PrvLoadProductInfo "
                    "txtUnitPrice_Change txtDiscount_Change txtQty_LostFocus PrvSetFormCaption PrvSeekProduct SAVE "
                    "PrvLoadProductInfo PrvSetFormCaption"},
        {"focus txtQty", "txtQty_GotFocus"},
        {"focus txtQty | type txtQty 4", "txtQty_KeyPress txtQty_LostFocus PrvSaveQtyFld"},
        {"focus txtQty | focus cmdNew", "txtQty_LostFocus PrvSaveQtyFld"},
        {"focus txtUnitPrice", "txtUnitPrice_GotFocus txtUnitPrice_Change"},
        {"focus txtUnitPrice | type txtUnitPrice 4", "txtUnitPrice_KeyPress txtUnitPrice_Change PrvSaveUnitPriceFld"},
        {"focus txtUnitPrice | focus cmdNew", "txtUnitPrice_GotFocus PrvSaveUnitPriceFld txtUnitPrice_Change"},
        {"focus txtDiscount", "txtUnitPrice_GotFocus txtDiscount_Change"},
        {"focus txtDiscount | type txtDiscount 4", "txtDiscount_KeyPress txtDiscount_Change PrvSaveDiscountPrcntFld"},
        {"focus txtDiscount | focus cmdNew", "txtDiscount_LostFocus PrvSaveDiscountPrcntFld txtDiscount_Change"},
        {"type txtNote n", "txtNote_Change PrvSaveNoteFld"},
        {"type cboPartNum P", "cboPartNum_KeyPress cboPartNum_Change"},
        {"type cboPartNum Enter", "cboPartNum_KeyPress"},
        {"pick cboPartNum 0", "cboPartNum_Click"},
        {"type cboPartNum P | wait 500", "tmrPartNum_Timer cboPartNum_Change"},
        {"type cboProductName P", "cboProductName_KeyPress cboProductName_Change"},
        {"type cboProductName Enter", "cboProductName_KeyPress"},
        {"pick cboProductName 0", "cboProductName_Click"},
        {"type cboProductName P | wait 500", "tmrProdLkp_Timer cboProductName_Change"},
        {"click cmdNext", "cmdNext_Click NEXT"},
        {"click cmdPrevious", "cmdNext_Click PrvSeekProduct SAVE SHOW txtQty_LostFocus PrvSetFormCaption"},
        {"click cmdGotoFirst", "cmdGotoFirst_Click FIRST"},
        {"click cmdGotoLast", "cmdGotoLast_Click PrvSeekProduct SAVE NEXT"},
        {"click cmdNew", "cmdNew_Click NEW"},
        {"click cmdDelete", "cmdDelete_Click PrvDeleteCurrentProduct DELETED"},
        {"choose ID_GotoNext", "atbMain_ToolClick NEXT"},
        {"choose ID_GotoFirst", "atbMain_ToolClick FIRST"},
        {"choose ID_NewProduct", "atbMain_ToolClick NEW"},
        {"choose ID_DeleteProduct", "atbMain_ToolClick PrvDeleteProduct PrvDeleteCurrentProduct DELETED"},
        {"click cmdSaveClose", "cmdSaveClose_Click SAVE cmdCancel_Click"},
        {"click cmdCancel", "cmdCancel_Click cmdCancel_Click"},
        {"closeBox", "cmdCancel_Click"},
        {"type txtNote n | closeBox", "cmdCancel_Click ASK SAVE"},
    };
    std::set<std::string> labels;
    forEachRow(rows, [&](const Example& row) {
        const std::string names = spelledOut(row.result);
        EXPECT_EQ(session(row.text), names);
        std::istringstream all(names);
        for (std::string name; all >> name;) {
            if (labels.insert(name).second) { // each fails where it is met first
                const char* const object = name.starts_with("Show") ? "ProductDlg::" : "frmProduct::";
                session(row.text, object + name);
            }
        }
    });
}

} // namespace
} // namespace orvan::test
