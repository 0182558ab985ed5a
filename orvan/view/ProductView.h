// ProductView: the list view of one business object's products.
//
// A grid with the position, the name and two columns of the user's choice, a total, and four
// buttons. The host hands it the products as one string (Show) and reads the string, the total and
// the dirty flag back; nothing is reported in between. The list itself lives in a product manager
// (orvan/core/ProductMgr.h) that the view creates by class name. The grid's columns, the user's choice among
// them and the preferences are ProductColumns' (orvan/view/ProductColumns.h).
//
// Ownership: the host owns the view and everything it is given, which must outlive it. Thread: the
// user-interface thread. Errors: Show, Products and TotalValue raise RuntimeError with a number and
// nothing else; texts are in the trace. Lengths in twips; positions 1-based.
#pragma once

#include "orvan/base/Currency.h"
#include "orvan/base/Lifetime.h"
#include "orvan/base/RunHandler.h"
#include "orvan/base/ScopedHandlers.h"
#include "orvan/core/ProductMgr.h"
#include "orvan/core/ProductValues.h"
#include "orvan/core/modLocale.h"
#include "orvan/core_export.h"
#include "orvan/view/ListCommands.h"
#include "orvan/view/ProductColumns.h"
#include "orvan/view/ShownProducts.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orvan {

class ProductDlg;

namespace ui {
class Button;
class ContainerSite;
class Frame;
class TextBox;
} // namespace ui

/// What a list view tells the control that contains it, which may tell the host. The procedure that calls a handler is
/// still running, so a handler only notes what it is told, and tells the host later.
struct ProductViewEvents {
    /// The user changed the list. While the editor is open: what the user did there may have changed it.
    std::function<void()> changed;
    /// The rows, the total, or the current row may be others than before.
    std::function<void()> refreshed;
    /// Also where the editor then cannot be opened; editorClosed follows in any case.
    std::function<void()> editorOpened;
    std::function<void()> editorClosed;
};

class ORVAN_CORE_INTERNAL ProductView {
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
    [[nodiscard]] std::string Products();
    /// Sum of all extended prices.
    [[nodiscard]] Currency TotalValue();
    /// True once the user changed the list here, for the rest of the view's life.
    [[nodiscard]] bool Dirty() const { return dirty_; }

    /// The container has placed the control on its form: reads the preferences kept under the
    /// form's type name. Never raises.
    void UserControl_ReadProperties();

    /// Whether the user can only look at the list and copy from it; false at first. The editor then opens to read. An
    /// editor that is open when this is switched goes on as it was opened; a question that is open then changes nothing
    /// any more. Loading a list, and what the host does through the product manager, is not affected.
    [[nodiscard]] bool readOnly() const { return readOnly_; }
    void setReadOnly(bool readOnly);

    /// Runs a command as its key does; see ListCommands.
    void run(Command command) { commands_.run(command); }
    [[nodiscard]] bool enabled(Command command) const { return commands_.enabled(command); }
    /// The product in the current row, 1-based; 0 if there is none.
    [[nodiscard]] std::int32_t currentProduct() const;
    /// Makes the product's row the current one; the last row if the position is beyond it.
    void setCurrentProduct(std::int32_t position);
    [[nodiscard]] const std::string& totalText() const;
    /// Reads the list anew, after the host has changed it through the product manager itself.
    void refresh() { PrvRefreshView(true); }

    ProductViewEvents events;

private:
    friend class ListCommands; ///< Runs the procedures that the buttons run.

    // ProductView.cpp
    void takeEvents();
    void UserControl_Resize();
    void UserControl_Terminate();
    void tellRowChosen() { runHandler(events.refreshed); }
    /// The list that a procedure begins with. A wait for the user and a call into a manager let the host in, which may
    /// destroy the view meanwhile or hand it another list: the procedure then ends, and touches the view no more.
    class CurrentList {
    public:
        explicit CurrentList(const ProductView& view)
            : view_(view), watch_(view.lifetime_.watch()), manager_(view.productMgr_)
        {
        }
        [[nodiscard]] bool stillShown() const { return !watch_.ended() && view_.productMgr_ == manager_; }
        /// The same, for a procedure that has asked the user before it changes the list.
        [[nodiscard]] bool stillEditable() const { return stillShown() && !view_.readOnly_; }
        /// Held as long as this object, so that it outlives each call into it. Error 91 when there is none.
        ProductMgr* operator->() const;
        const std::shared_ptr<ProductMgr>& manager() const { return manager_; }

    private:
        const ProductView& view_;
        LifetimeWatch watch_;
        std::shared_ptr<ProductMgr> manager_;
    };
    void PrvSetDirty(bool bDirty);
    /// `deletedRow` is the row of the one product that has been deleted since the grid was filled, 0 where that is not
    /// so: the rows after it then move up, instead of being set anew.
    void PrvRefreshView(bool updateTotal, std::int32_t deletedRow = 0);
    void refillGrid(const CurrentList& list, bool updateTotal, std::int32_t deletedRow);
    /// Calls takeRow with each product. Returns false as soon as the list is not
    /// shown any more.
    template <class TakeRow>
    [[nodiscard]] static bool readRows(const CurrentList& list, std::int32_t count, const TakeRow& takeRow);

    // ProductViewCommands.cpp
    void cmdNew_Click();
    void flexGrid_DblClick();
    void editRow(std::int32_t row);
    void cmdDelete_Click();
    void cmdMoveUp_Click();
    void cmdMoveDown_Click();
    using EditorOpening = std::function<void(ProductDlg& dialog, const std::shared_ptr<ProductMgr>& manager)>;
    struct EditMark;
    /// If the last refresh failed and left the former rows, refreshes again and returns true. The caller then does
    /// nothing else: the row that the user chose may show another product now.
    [[nodiscard]] bool refreshFormerRows();
    void openEditor(const CurrentList& list, const EditorOpening& open);
    void PrvDeleteProduct();
    [[nodiscard]] bool userAgreesToDelete(std::size_t count);
    /// The selected rows, or else the current row, from the first to the last.
    [[nodiscard]] std::vector<std::int32_t> rowsToActOn() const;
    void moveCurrentRow(std::int32_t offset);
    /// The product's new position; -1 when it cannot be moved.
    [[nodiscard]] std::int32_t PrvMoveProduct(const CurrentList& list, std::int32_t index, std::int32_t offset);
    // ProductViewRows.cpp
    void duplicateRows();
    void PrvDuplicateProduct();
    [[nodiscard]] std::vector<ProductValues> valuesInRows(const std::vector<std::int32_t>& rows) const;
    /// Adds the products below the row and selects them. All of them are added, or none.
    void addBelow(const CurrentList& list, std::int32_t row, const std::vector<ProductValues>& products);
    /// Whether the list with these products, too, can still be saved. If not, the user is told.
    [[nodiscard]] bool fitsMaxDataSize(const CurrentList& list, const std::vector<ProductValues>& products);
    /// Moves each selected row by one position, past a neighbour.
    void moveSelectedRows(std::int32_t offset);
    /// Moves the selected rows to the place above the row `before`.
    void flexGrid_DragRows(std::int32_t before);
    /// Puts the products from row `first` on into the order that `order` has their rows in.
    void moveProducts(std::int32_t first, const std::vector<std::int32_t>& order);

    // ProductViewPaste.cpp
    void copyProducts();
    void pasteFromClipboard();
    void pasteProducts();

    /// The handle of the window that owns the view's message boxes; 0 (no owner) when the container raises an error.
    [[nodiscard]] std::int32_t messageOwner() const;
    /// Runs an event handler of the view: an error is recorded, and shown to the user.
    void handleEvent(std::string_view label, const std::function<void()>& body);

    ui::Platform& platform_; ///< First, because its initializer calls enterLibrary.
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
    ProductColumns columns_;
    ShownProducts products_;
    ListCommands commands_;

    Lifetime lifetime_;                      ///< A host may destroy the view while one of its procedures runs.
    std::shared_ptr<ProductMgr> productMgr_; ///< Never null once the view is made.
    LocaleStrings locale_;                   ///< Read once; of the five only the symbol is used here, for the total.
    bool readOnly_ = false;
    bool dirty_ = false;
    bool dirtyLock_ = false; ///< While true, the flag cannot be set. No procedure sets the lock so far.
    /// True only where Deviation::failedRefreshShowsFormerRows applies: a refresh has failed, and the grid shows the
    /// rows that it had before.
    bool showsFormerRows_ = false;
    std::uint64_t fills_ = 0; ///< How often the grid has been filled.
    ScopedHandlers handlers_;
};

} // namespace orvan
