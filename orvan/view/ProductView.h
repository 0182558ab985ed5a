// ProductView: the list view of one business object's products.
//
// A grid with the position, the name and two columns of the user's choice, a total, and four
// buttons. The host hands it the products as one string (Show) and reads the string, the total and
// the dirty flag back; nothing is reported in between. The list itself lives in a product manager
// (orvan/core/ProductMgr.h) that the view creates by class name.
//
// Ownership: the host owns the view and everything it is given, which must outlive it. Thread: the
// user-interface thread. Errors: Show, Products and TotalValue raise RuntimeError with a number and
// nothing else; texts are in the trace. Lengths in twips; positions 1-based.
//
// The procedures stand in files by subject: ProductView.cpp (life, Show), ProductViewColumns.cpp
// (columns, refresh, View menus), ProductViewPrefs.cpp (preferences), ProductViewCommands.cpp (add, edit,
// delete, move), ProductViewLayout.cpp (resize).
#pragma once

#include "orvan/base/Currency.h"
#include "orvan/core/ProductMgr.h"
#include "orvan/core/modLocale.h"
#include "orvan/ui/GridFormat.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace orvan {

class ProductDlg;

namespace ui {
class Button;
class ContainerSite;
class Frame;
class Grid;
class Platform;
class PopupMenu;
class Surface;
class TextBox;
} // namespace ui

/// The fields a user can choose for the two optional columns. Saved preferences hold these numbers;
/// values outside them can be read back from damaged ones.
enum class ViewFieldEnum : std::int32_t { PartNum = 0, ExtPrice = 1, DiscPrcnt = 2, UnitPrice = 3, Qty = 4, Note = 5 };

class ProductView {
public:
    /// `surface` is loaded with kProductViewDesign (orvan/view/ProductViewDesign.h). Raises what creating
    /// the product manager raises, 424 or 13 for a surface of another design, and the number alone
    /// of what kept the trace object from being created.
    ProductView(ui::Platform& platform, ui::Surface& surface, ui::ContainerSite& site);
    ProductView(const ProductView&) = delete;
    ProductView& operator=(const ProductView&) = delete;
    ~ProductView();

    /// Loads the list and fills the grid. Does not clear Dirty. After an error the view is left as
    /// far as it got, with the earlier list gone.
    void Show(std::string_view sProducts);
    /// The current list, as one string.
    std::string Products();
    /// Sum of all extended prices.
    Currency TotalValue();
    /// True once the user changed the list here, for the rest of the view's life.
    bool Dirty() const { return dirty_; }

    /// The container has placed the control on its form: reads the preferences kept under the
    /// form's type name. Never raises.
    void UserControl_ReadProperties();

private:
    /// The grid's columns, in their initial order.
    enum ColumnKey { Number, Name, Key, PartNum, ExtPrice, DiscPrcnt, UnitPrice, Qty, Note, columnKeyCount };

    void UserControl_Initialize();
    void UserControl_Terminate();
    void UserControl_Resize();
    void flexGrid_AfterUserResize();

    /// One of the two optional columns, One and Two: what the procedures that serve both differ in.
    struct OptionalColumn {
        ui::PopupMenu& menu;
        ViewFieldEnum& field;
        std::int32_t& column;
        const ViewFieldEnum& otherField;
    };
    std::array<OptionalColumn, 2> optionalColumns();
    void flexGrid_RightClick();
    void mnuViewCbo_Click(const OptionalColumn& own, std::string_view sItem);
    void PrvSetViewMenu(const OptionalColumn& own, ViewFieldEnum eField);
    void PrvChooseColumn(const OptionalColumn& own, std::int32_t lCol, ViewFieldEnum eField);

    /// Error 91 when none is held.
    ProductMgr& productMgr() const;
    void chooseDefaultFields();

    void PrvSetDirty(bool bDirty);
    void PrvSetDefaultProps();

    static std::string_view PrvGetColKeyByEnum(ViewFieldEnum eField);
    std::int32_t PrvGetColIndexByEnum(ViewFieldEnum eField) const;
    void PrvInitColumnIndices();
    void PrvSetColumnKeys();
    void PrvInitGrid();
    void PrvSetColumnHeaders();
    void PrvSetColumnFormat(std::int32_t lCol, ViewFieldEnum eField);
    void PrvRefreshColumnIndices();
    void PrvShowChosenColumns(std::int32_t lColOne, std::int32_t lColTwo);
    void PrvApplyColumnLayout();
    void PrvRefreshView(bool bUpdateTotal);
    void fillRow(std::int32_t lRow, std::int32_t lIndex, const ProductRecord& record);

    /// Owner of the view's message boxes; none when the container cannot tell.
    std::int32_t messageOwner() const;
    /// Gives the owner of an error's message: 0 once the view is gone, which its own question may outlive.
    std::function<std::int32_t()> hostWindow() const;
    void cmdNew_Click();
    void flexGrid_DblClick();
    using EditorOpening = std::function<void(ProductDlg& dialog, const std::shared_ptr<ProductMgr>& manager)>;
    void openEditor(const EditorOpening& open);
    void cmdDelete_Click();
    void cmdMoveUp_Click();
    void cmdMoveDown_Click();
    void moveCurrentRow(std::int32_t lOffset);
    void PrvDeleteProduct();
    std::int32_t PrvMoveProduct(std::int32_t lIndex, std::int32_t lOffset);

    void PrvReadPrefs(const std::string& sHostType);
    bool applyStoredPrefs(const std::string& sHostType);
    void applyDefaultPrefs();
    void PrvSaveViewPrefs(const std::string& sHostType);

    ui::Platform& platform_; ///< First, because setting it enters the library.
    ui::Surface& surface_;
    ui::ContainerSite& site_;
    ui::Grid& flexGrid_;
    ui::Frame& fraBottomLeft_;
    ui::Frame& fraBottomRight_;
    ui::TextBox& txtTotal_;
    ui::Button& cmdNew_;
    ui::Button& cmdDelete_;
    ui::Button& cmdMoveUp_;
    ui::Button& cmdMoveDown_;
    ui::PopupMenu& mnuViewCboOne_;
    ui::PopupMenu& mnuViewCboTwo_;

    /// Gone with the view: a host may destroy it while one of its message boxes waits for the user.
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
    std::shared_ptr<ProductMgr> productMgr_; ///< Never null once initialised.
    bool dirty_ = false;
    bool dirtyLock_ = false; ///< While true the flag cannot be set. Nothing freezes it: never true so far.
    std::string hostTypeName_;

    std::array<std::int32_t, columnKeyCount> columnIndices_{};
    std::int32_t lastColumn_ = 0;
    ViewFieldEnum fieldOne_{};
    ViewFieldEnum fieldTwo_{};
    std::int32_t columnOne_ = 0;
    std::int32_t columnTwo_ = 0;
    /// For the grid's first four positions. Filled, cleared, and read by nobody: widths come from
    /// the preferences.
    std::array<std::int32_t, 4> defaultWidths_{};

    LocaleStrings locale_; ///< Read once; of the five only the symbol is used here, for the total.
};

} // namespace orvan
