// frmProduct: the product editor's form: one session of editing one list.
//
// Init is called once, after the form is made and before it is shown. From then on the form runs on
// the user's events until it unloads itself, which releases the list and the records.
//
// The procedures stand in files by subject: frmProduct.cpp (life, set-up, caption),
// frmProductSession.cpp (load, save, cancel, close), frmProductNavigation.cpp (seek, add, delete, the
// tool bar), frmProductLayout.cpp (resize). The amount and note boxes are orvan/fields/FieldEntry.h, the
// part-number and name boxes orvan/lookup/LookUpBoxes.h.
//
// Ownership: ProductDlg, for the time of a session. Thread: the user-interface thread.
#pragma once

#include "orvan/core/EditorSession.h"
#include "orvan/fields/FieldEntry.h"
#include "orvan/lookup/LookUpBoxes.h"
#include "orvan/ui/MessageBox.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace orvan {

namespace ui {
class Button;
class Control;
class Form;
class Frame;
class ToolBar;
enum class UnloadMode : std::int16_t;
} // namespace ui

class frmProduct final : private EditorSession {
public:
    /// Loads the form; nothing is shown yet.
    explicit frmProduct(ui::Platform& platform);
    ~frmProduct() override;

    /// Opens the session on the product at lProductIndex, or with bAddNew on a new one. Raises what
    /// the manager and the catalogue raise, by number alone.
    void Init(const std::shared_ptr<ProductMgr>& objProdMgr, std::int32_t lProductIndex, bool bAddNew);
    /// Returns when the form has been unloaded.
    void showModal();

    /// Something was changed. Neither a save nor the closing clears it; the answer No to saving does.
    bool Dirty() const { return bDirty_; }
    /// The form was closed because of an error of its own. Nobody but tests asks so far, as for the next.
    bool DialogError() const { return bDialogError_; }
    const LookUpBoxes::State& lookUpState() const { return lookUp_.state(); }

private:
    // EditorSession
    ui::Platform& platform() override { return platform_; }
    std::int32_t window() override;
    void PrvSetDirty(bool bDirty) override;
    void PrvLoadProductInfo() override;
    void PrvCloseOnError() override;

    void PrvInitForm();
    void PrvSetFormCaption();

    void PrvSaveCurrentProduct(bool& bOk);
    ui::MessageResult PrvCancelEdit(bool& bSaveFailed);
    void cmdSaveClose_Click();
    void cmdCancel_Click();
    bool Form_QueryUnload(ui::UnloadMode mode);
    void Form_Unload();

    void PrvSeekProduct(std::int32_t lOffset);
    void PrvSeekProductIndex(std::int32_t lIndex);
    void PrvAddNewProduct();
    void PrvDeleteProduct();
    void PrvDeleteCurrentProduct();
    void askAndDelete();
    void showNavigationState();
    /// The fields, and what deletes a product, can be used while there is one.
    void setProductShown(bool bShown);
    void atbMain_ToolClick(std::string_view sToolId);
    void cmdNew_Click();
    void cmdDelete_Click();
    void cmdGotoFirst_Click();
    void cmdGotoLast_Click();
    void cmdNext_Click();
    void cmdPrevious_Click();

    void Form_Resize();

    /// Moves the focus, so that the box being edited is left and finished first. False when leaving it
    /// closed the form: there is nothing to go on with then.
    bool leaveBoxFor(ui::Control& control);
    ui::MessageResult show(ui::Message message);
    std::string money(Currency cyValue) const;

    ui::Platform& platform_;
    std::unique_ptr<ui::Form> form_;
    FieldEntry fields_;
    LookUpBoxes lookUp_;
    ui::Frame& fraWizProducts_;
    ui::Frame& fraLeftButtons_;
    ui::ToolBar& atbMain_;
    ui::Button& cmdNew_;
    ui::Button& cmdDelete_;
    ui::Button& cmdNext_;
    ui::Button& cmdPrevious_;
    ui::Button& cmdGotoFirst_;
    ui::Button& cmdGotoLast_;
    ui::Button& cmdSaveClose_;
    ui::Button& cmdCancel_;
    ui::ComboBox& cboProductName_;
    ui::ComboBox& cboPartNum_;
    ui::TextBox& txtUnitPrice_;
    ui::TextBox& txtDiscount_;
    ui::TextBox& txtQty_;
    ui::TextBox& txtExtPrice_;
    ui::TextBox& txtNote_;
    ui::TextBox& txtTotal_;

    std::string sProducts_;          ///< The list as it was when the session began.
    std::int32_t lCurrentIndex_ = 0; ///< Position of the current product; 0 once the list is empty.
    bool bDirty_ = false;
    bool bDialogError_ = false;
    bool bClosingOnError_ = false; ///< PrvCloseOnError is under way.
    /// The user answered Yes to saving once. From then on closing asks nothing, even where that save
    /// failed: the second attempt to close gives up what the limit keeps out.
    bool bSaveConfirmed_ = false;
};

} // namespace orvan
