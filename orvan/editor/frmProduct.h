// frmProduct: the product editor's form. An object serves one session, in which one list is edited, or only looked at.
//
// For looking, the form has another design, without what changes the list: its boxes take no input, there is no
// catalogue, and nothing is saved. What remains, which is moving through the list and closing, is done by the same
// procedures.
//
// Init is called once, after the form is made and before it is shown. From then on the form acts on
// the user's events until it unloads itself, which releases the list and the records.
//
// The procedures stand in files by subject: frmProduct.cpp (construction, set-up, caption), frmProductSession.cpp
// (load, save, cancel, close), frmProductNavigation.cpp (seek, add, delete, the tool bar), frmProductKeys.cpp (keys,
// duplicate), frmProductLayout.cpp (resize). orvan/fields/FieldEntry.h shows a product in the boxes and saves it from
// them; orvan/lookup/LookUpBoxes.h searches the catalogue for what is typed in two of them.
//
// Positions are 1-based. Ownership: ProductDlg owns the form during a session; the platform outlives it. Thread: the
// user-interface thread. Errors: Init raises errors as a number alone; an error in an event handler closes the form
// with a message.
#pragma once

#include "orvan/base/ScopedHandlers.h"
#include "orvan/core/EditorSession.h"
#include "orvan/fields/FieldEntry.h"
#include "orvan/lookup/LookUpBoxes.h"
#include "orvan/ui/MessageBox.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace orvan {

namespace ui {
class Button;
class Control;
class Form;
class Frame;
class TextEntry;
class ToolBar;
struct KeyStroke;
struct ToolDesign;
enum class UnloadMode : std::int16_t;
} // namespace ui

class frmProduct final : private EditorSession {
public:
    /// What the session is for.
    enum class Use { edit, read };

    /// Loads the form; nothing is shown yet.
    explicit frmProduct(ui::Platform& platform, Use use = Use::edit, std::int32_t ownerWindow = 0);
    ~frmProduct() override;

    /// Opens the session on the product at lProductIndex, or with bAddNew on a new one. Raises the errors of the
    /// manager and of the catalogue, reduced to their numbers. A session that only reads adds no product.
    void Init(const std::shared_ptr<ProductMgr>& objProdMgr, std::int32_t lProductIndex, bool bAddNew);
    /// After an Init that failed: takes the new product that it added out of the list again. Never raises.
    void takeBackNewProduct();
    /// Returns when the form has been unloaded.
    void showModal();

    /// Whether something was changed. Only the answer No to the question about saving clears it; saving and closing
    /// do not.
    [[nodiscard]] bool Dirty() const { return dirty_; }
    /// Whether an error in an event handler has closed the form.
    [[nodiscard]] bool DialogError() const { return dialogError_; }
    [[nodiscard]] const LookUpBoxes::State& lookUpState() const { return lookUp_->state(); }

    /// Called after each event that may have changed the list.
    std::function<void()> onChange;

private:
    // The operations of EditorSession:
    ui::Platform& platform() override { return platform_; }
    std::int32_t window() override;
    void PrvSetDirty(bool bDirty) override;
    void PrvLoadProductInfo() override;
    void priceAnew() override;
    void eventHandled() override;
    void PrvCloseOnError() override;

    /// A button that the design for reading does not have; null there.
    [[nodiscard]] ui::Button* editingButton(std::string_view name) const;
    void takeEvents();
    void PrvInitForm();
    void PrvSetFormCaption();

    /// Raises 91 where the manager returns no record.
    [[nodiscard]] std::shared_ptr<ProductRecord> productAt(std::int32_t index);
    void PrvSaveCurrentProduct(bool& bOk);
    [[nodiscard]] ui::MessageResult PrvCancelEdit(bool& bSaveFailed);
    /// Puts the list back as it was when the session began. False: that failed, and the user has been told.
    [[nodiscard]] bool revert();
    void cmdSaveClose_Click();
    void cmdCancel_Click();
    bool Form_QueryUnload(ui::UnloadMode mode);
    void Form_Unload();

    void PrvSeekProduct(std::int32_t lOffset);
    void PrvSeekProductIndex(std::int32_t lIndex);
    void PrvAddNewProduct();
    void PrvDeleteProduct();
    void PrvDeleteCurrentProduct();
    /// Does the work of PrvDeleteProduct and of cmdDelete_Click, which trace it under different labels.
    void askAndDelete();
    /// Runs `load`, which makes another product the current one and shows it. While it runs, and after it has failed,
    /// halfShown is true.
    void goOnToProduct(const std::function<void()>& load);
    /// Adds a product to the list and shows it.
    void beginNewProduct();
    /// Enables each command that moves to another product if there is such a product, else disables it.
    void showNavigationState();
    /// Enables or disables the fields and the delete commands, which can be used only while a product is shown.
    void setProductShown(bool shown);
    void atbMain_ToolClick(std::string_view toolId);

    // frmProductKeys.cpp
    void Form_KeyDown(ui::KeyStroke& key);
    /// The menu entry that shows the key; null if there is none.
    [[nodiscard]] const ui::ToolDesign* toolOf(const ui::KeyStroke& key) const;
    void PrvDuplicateProduct();

    void cmdNew_Click();
    void cmdDelete_Click();
    void cmdGotoFirst_Click();
    void cmdGotoLast_Click();
    void cmdNext_Click();
    void cmdPrevious_Click();

    void Form_Resize();

    /// Moves the focus to the control, so that the box being edited raises its lost-focus event before the command
    /// runs. Returns false when that event closed the form; the command then does nothing.
    [[nodiscard]] bool leaveBoxFor(ui::Control& control);
    /// Shows a message box that the form owns.
    ui::MessageResult show(ui::Message message);
    /// The handler of a click on a button: moves the focus to the button (leaveBoxFor), then runs the command.
    template <class Command>
    void handleClick(std::string_view label, ui::Control& button, Command&& command)
    {
        handleEvent(label, [&] {
            if (leaveBoxFor(button)) {
                command();
            }
        });
    }

    ui::Platform& platform_;
    std::unique_ptr<ui::Form> form_;
    FieldEntry fields_;
    std::optional<LookUpBoxes> lookUp_; ///< Empty in a session that only reads.
    ui::Frame& fraWizProducts_;
    ui::Frame& fraLeftButtons_;
    ui::ToolBar& atbMain_;
    // Null in a session that only reads.
    ui::Button* cmdNew_;
    ui::Button* cmdDelete_;
    ui::Button* cmdSaveClose_;
    ui::Button& cmdNext_;
    ui::Button& cmdPrevious_;
    ui::Button& cmdGotoFirst_;
    ui::Button& cmdGotoLast_;
    ui::Button& cmdCancel_;
    // Used only to set the focus; fields_ and lookUp_ do everything else with them.
    ui::TextEntry& cboPartNum_;
    ui::TextEntry& cboProductName_;

    std::string productsSnapshot_;  ///< The list as it was when the session began.
    std::int32_t currentIndex_ = 0; ///< Position of the current product; 0 once the list is empty.
    bool productAdded_ = false;     ///< The session has added a product.
    bool listTouched_ = false;      ///< The session has changed the list, or may have.
    bool dirty_ = false;
    bool dialogError_ = false;
    bool closingOnError_ = false; ///< PrvCloseOnError is running.
    /// Closing asks nothing any more: the user answered Yes to saving once. In the classic way that holds also where
    /// that save failed because of the size limit: the second attempt to close then closes without a save.
    bool saveConfirmed_ = false;
    ScopedHandlers handlers_; ///< Last, so that no event comes in while the other members are destroyed.
};

} // namespace orvan
