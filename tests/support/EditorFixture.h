// EditorFixture: sessions of the product editor on the in-memory platform.
#pragma once

#include "orvan/editor/ProductDlg.h"
#include "tests/support/LibraryFixture.h"

namespace orvan::test {

class EditorFixture : public LibraryFixture {
public:
    ~EditorFixture() override
    {
        manager.reset();
        expectNothingLeft();
    }

    void load(std::string_view sProducts)
    {
        manager = makeManager();
        manager->SetProductsString(sProducts, kRecordSeparator, kFieldSeparator, false);
    }
    /// The list as one string, whatever the limit.
    std::string products()
    {
        const auto limit = std::exchange(faults.maxDataSize, std::nullopt);
        std::string sProducts = manager->GetProductsString(kRecordSeparator, kFieldSeparator);
        faults.maxDataSize = limit;
        return sProducts;
    }
    /// Opens the editor on the product at index (0: on a new one) and lets `drive` act in it.
    void edit(std::int32_t index, headless::HeadlessPlatform::Driver drive)
    {
        platform.drive(std::move(drive));
        if (index > 0) {
            dialog.Show(manager, index);
        } else {
            dialog.ShowAddNew(manager);
        }
    }
    /// A text box or a combo box.
    static headless::EntryDriver& entry(headless::FormDriver& form, std::string_view name)
    {
        return name.starts_with("cbo") ? form.comboBox(name) : form.textBox(name);
    }
    /// Everything a person can do, as far as the form stays open for it.
    static void wholeSession(headless::FormDriver& form)
    {
        const auto click = [&](const char* name) {
            return [&form, name] {
                if (form.button(name).canTakeFocus()) {
                    form.button(name).click();
                }
            };
        };
        const std::function<void()> steps[] = {
            [&] { form.textBox("txtQty").type("4"); },
            [&] { form.focus("txtUnitPrice"); },
            [&] { form.textBox("txtUnitPrice").type("19.99"); },
            [&] { form.textBox("txtNote").type("n"); },
            click("cmdNext"),
            click("cmdPrevious"),
            click("cmdGotoLast"),
            click("cmdGotoFirst"),
            click("cmdNew"),
            [&] { form.comboBox("cboProductName").type("New"); },
            [&] { form.toolBar("atbMain").choose("ID_DeleteProduct"); },
            click("cmdDelete"),
            click("cmdSaveClose"),
        };
        for (const auto& step : steps) {
            if (form.loaded()) {
                step();
            }
        }
        form.clickCloseBox();
        form.clickCloseBox(); // again, because a save that failed keeps the form open
    }
    void answer(const std::vector<ui::MessageResult>& answers)
    {
        for (const ui::MessageResult result : answers) {
            platform.messageBox().answer(result);
        }
    }

    /// One letter for each message box since `first`: is it modified, delete, size, fatal error, could not
    /// save, could not undo, the faulty manager's own; '?' for another text.
    std::string prompts(std::size_t first = 0)
    {
        std::string letters;
        for (const auto& shown = platform.messageBox().shown(); first < shown.size(); ++first) {
            EXPECT_EQ(shown[first].title, "Orvan");
            letters += letterOf(shown[first].text.english());
        }
        return letters;
    }
    /// The procedures entered since line `first`, with '!' for each recorded error.
    std::string entered(std::size_t first) const { return entered(*trace.trace(), first); }
    static std::string entered(const RecordingTrace& trace, std::size_t first)
    {
        std::string names;
        for (; first < trace.lines().size(); ++first) {
            const std::string& line = trace.lines()[first];
            if (line.starts_with("enter ")) {
                names.append(names.empty() ? "" : " ").append(line.substr(line.find("::") + 2));
            } else if (line.starts_with("error ")) {
                names.append("!");
            }
        }
        return names;
    }

    /// The names with each short name, in capitals, replaced by what is entered together.
    static std::string spelledOut(std::string names)
    {
        for (const auto& [shortName, entered] :
             {std::pair("FAIL", "cmdGotoFirst_Click PrvSeekProduct (fails)!!"), std::pair("ASK", "PrvCancelEdit"),
              std::pair("CANCEL", "cmdCancel_Click"),
              std::pair("NEXT", "PrvSeekProduct SAVE SHOW txtDiscount_Change txtQty_LostFocus txtNote_Change "
                                "PrvSaveNoteFld PrvSetFormCaption"),
              std::pair("FIRST", "PrvSeekProduct SAVE PrvSeekProduct SAVE SHOW txtQty_LostFocus PrvSetFormCaption"),
              std::pair("NEW", "PrvAddNewProduct SAVE SHOW PrvSaveUnitPriceFld txtQty_LostFocus PrvSaveQtyFld "
                               "PrvSetFormCaption PrvSeekProduct FINISH PrvLoadProductInfo PrvSetFormCaption"),
              std::pair("DELETED", "SHOW PrvSaveUnitPriceFld txtDiscount_Change PrvSaveDiscountPrcntFld "
                                   "txtQty_LostFocus PrvSaveQtyFld txtNote_Change PrvSaveNoteFld PrvSetFormCaption "
                                   "PrvSeekProduct FINISH PrvLoadProductInfo PrvSetFormCaption"),
              std::pair("DELETE", "cmdDelete_Click PrvDeleteCurrentProduct"),
              std::pair("EMPTY", "PrvSaveCurrentProduct"),
              std::pair("SHOW", "PrvLoadProductInfo cboProductName_Change cboPartNum_Change txtUnitPrice_Change"),
              std::pair("SAVE", "PrvSaveCurrentProduct FIELDS"),
              std::pair("FINISH", "PrvSaveCurrentProduct tmrProdLkp_Timer cboProductName_Change FIELDS"),
              std::pair("FIELDS", "PrvSaveNameFld PrvSavePartNumFld PrvSaveUnitPriceFld PrvSaveDiscountPrcntFld "
                                  "PrvSaveQtyFld PrvSaveNoteFld")}) {
            for (std::size_t at = 0; (at = names.find(shortName, at)) != std::string::npos;) {
                names.replace(at, std::string_view(shortName).size(), entered);
            }
        }
        return names;
    }

    std::shared_ptr<ProductMgr> manager;
    ProductDlg dialog{platform};

private:
    static char letterOf(std::string_view text)
    {
        const std::pair<std::string_view, char> beginnings[] = {
            {"The product information has been modified, would you like to save the changes?", 'm'},
            {"Are you sure you want to delete the current product?", 'd'},
            {"The total size of the product data for an IBO has exceeded the maximum limit of ", 's'},
            {"We apologize for the inconvenience but due to an internal application error the current dialog will be "
             "closed. If the issue persists please contact our support department at ",
             'e'},
            {"Could not save the current product due to an error.", 'c'},
            {"Could not undo the changes due to an error. The dialog stays open.", 'u'},
            {"scripted failure", 'f'}};
        for (const auto& [beginning, letter] : beginnings) {
            if (text.starts_with(beginning)) {
                return letter;
            }
        }
        return '?';
    }
};

} // namespace orvan::test
