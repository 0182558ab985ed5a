#include "orvan/view/ProductView.h"

#include "orvan/core/Deviations.h"
#include "orvan/core/modConversion.h"
#include "orvan/core/modInit.h"
#include "orvan/ui/Button.h"
#include "orvan/ui/ContainerSite.h"
#include "orvan/ui/Frame.h"
#include "orvan/ui/Grid.h"
#include "orvan/ui/Platform.h"
#include "orvan/ui/Surface.h"
#include "orvan/ui/TextEntry.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace orvan {

namespace {

constexpr float kGap = 60; // twips between the grid and the band below it

/// Reads what the grid shows of the product at `index`. The manager may set the index to another product's; returns
/// false where it finds no product.
bool readProduct(ShownProducts::Product& product, ProductMgr& manager, std::int32_t& index)
{
    bool found = false;
    manager.SeekIndex(index, 0, found);
    // The record is fetched even where `found` is false, on purpose: an error of the manager is then told as an error
    // and does not look like the end of the list.
    product.record = manager.GetProduct(index);
    if (found && !product.record) {
        throw RuntimeError(ErrorNumber::objectNotSet);
    }
    if (found) {
        product.index = index;
        product.read();
    }
    return found;
}

/// Raises an error for a count that no grid can show. Called before the grid is changed.
void requireShowable(std::int32_t count)
{
    if (count < 0) {
        throw RuntimeError(ErrorNumber::invalidProcedureCall, {},
                           userText("The product manager counts %1 products", count));
    }
    if (count >= ui::Grid::kMostRows) { // the header is a row, too
        throw RuntimeError(ErrorNumber::outOfMemory, {}, userText("The list cannot show %1 products", count));
    }
}

} // namespace

ProductView::ProductView(ui::Platform& platform, ui::Surface& surface, ui::ContainerSite& site)
try : platform_((enterLibrary(platform), platform)), surface_(surface), site_(site),
    flexGrid_(surface.control<ui::Grid>("flexGrid")), fraBottomLeft_(surface.control<ui::Frame>("fraBottomLeft")),
    fraBottomRight_(surface.control<ui::Frame>("fraBottomRight")), txtTotal_(surface.control<ui::TextBox>("txtTotal")),
    cmdNew_(surface.control<ui::Button>("cmdNew")), cmdDelete_(surface.control<ui::Button>("cmdDelete")),
    cmdMoveUp_(surface.control<ui::Button>("cmdMoveUp")), cmdMoveDown_(surface.control<ui::Button>("cmdMoveDown")),
    columns_(platform, surface), products_(flexGrid_, columns_),
    commands_(*this, columns_, surface, platform.locale()) {
    productMgr_ = ui::createComponent<ProductMgr>(platform_.components(), kProductMgrClassName);
    locale_ = PrvInitLocale(platform_.locale());
    columns_.setUp();
    takeEvents();
    UserControl_Resize(); // the surface may have had its size before
} catch (...) {
    raiseCurrentError();
}

ProductView::~ProductView()
{
    handlers_.clear(); // before the trace is called, which may let events in
    UserControl_Terminate();
}

void ProductView::takeEvents()
{
    handlers_.set(surface_.onResize, [this] { UserControl_Resize(); });
    handlers_.set(flexGrid_.onDblClick, [this] { flexGrid_DblClick(); });
    handlers_.set(cmdNew_.onClick, [this] { cmdNew_Click(); });
    handlers_.set(cmdDelete_.onClick, [this] { cmdDelete_Click(); });
    handlers_.set(cmdMoveUp_.onClick, [this] { cmdMoveUp_Click(); });
    handlers_.set(cmdMoveDown_.onClick, [this] { cmdMoveDown_Click(); });
    columns_.takeEvents(handlers_);
    commands_.takeEvents(handlers_);
}

void ProductView::UserControl_Resize()
{
    // The grid takes all the space above a band as high as the buttons: the total at its left edge, the buttons at
    // the grid's right edge. No length is clamped, and a step that fails is skipped: in a view lower than its band
    // the grid keeps its last height, and the later steps go by that.
    const ResumeNext<false> step;
    step([&] { flexGrid_.move(0, 0, surface_.innerWidth(), surface_.innerHeight() - kGap - cmdNew_.height()); });
    step([&] { fraBottomLeft_.move(0, flexGrid_.height() + kGap); });
    step([&] { fraBottomRight_.move(flexGrid_.width() - fraBottomRight_.width(), fraBottomLeft_.top()); });
}

void ProductView::UserControl_ReadProperties()
{
    traceIgnore("KTVOrvanProduct.ProductView::UserControl_ReadProperties", [&](auto step) {
        step([&] { columns_.setHostTypeName(site_.parentTypeName()); });
        step([&] { columns_.PrvReadPrefs(); });
        step([&] { columns_.PrvApplyColumnLayout(); });
        // Nothing is kept under this name. Reporting it makes the container save the control at all.
        step([&] { site_.propertyChanged("Dummy"); });
    });
}

void ProductView::UserControl_Terminate()
{
    traceIgnore("KTVOrvanProduct.ProductView::UserControl_Terminate",
                [&](auto step) { step([&] { productMgr_.reset(); }); });
}

ProductMgr* ProductView::CurrentList::operator->() const
{
    if (!manager_) {
        throw RuntimeError(ErrorNumber::objectNotSet);
    }
    return manager_.get();
}

void ProductView::Show(std::string_view sProducts)
{
    const LifetimeWatch watch = lifetime_.watch();
    tracePropagate("KTVOrvanProduct.ProductView::Show", [&] {
        if (watch.ended()) {
            return;
        }
        // Only a manager that is held is replaced: making one here would hide that the view was never initialised.
        if (!productMgr_) {
            throw RuntimeError(ErrorNumber::objectNotSet);
        }
        const auto manager = ui::createComponent<ProductMgr>(platform_.components(), kProductMgrClassName);
        if (watch.ended()) {
            return;
        }
        productMgr_ = manager;
        manager->SetProductsString(sProducts, kRecordSeparator, kFieldSeparator, false);
        if (!watch.ended()) {
            PrvRefreshView(true);
        }
    });
}

std::string ProductView::Products()
{
    const CurrentList list(*this);
    return tracePropagate("KTVOrvanProduct.ProductView::Products",
                          [&] { return list->GetProductsString(kRecordSeparator, kFieldSeparator); });
}

Currency ProductView::TotalValue()
{
    const CurrentList list(*this);
    return tracePropagate("KTVOrvanProduct.ProductView::TotalValue", [&] { return list->GetTotalValue(); });
}

void ProductView::PrvSetDirty(bool bDirty)
{
    if (!bDirty) {
        dirty_ = false;
    } else if (!dirtyLock_) {
        dirty_ = true;
        runHandler(events.changed);
    }
}

std::int32_t ProductView::currentProduct() const
{
    const std::int32_t row = flexGrid_.currentRow();
    return row >= flexGrid_.fixedRows() && row < flexGrid_.rowCount() ? row : 0;
}

void ProductView::setCurrentProduct(std::int32_t position)
{
    flexGrid_.setCurrentRow(std::clamp(position, 0, flexGrid_.rowCount() - 1));
    tellRowChosen();
}

void ProductView::setReadOnly(bool readOnly)
{
    readOnly_ = readOnly;
    flexGrid_.setRowDragging(!readOnly);
    columns_.showEmptyText(readOnly);
    fraBottomRight_.setEnabled(!readOnly); // the four buttons; one that has the focus gives it to the list
    runHandler(events.refreshed);
}

const std::string& ProductView::totalText() const
{
    return txtTotal_.text();
}

template <class TakeRow>
bool ProductView::readRows(const CurrentList& list, std::int32_t count, const TakeRow& takeRow)
{
    ShownProducts::Product product; // outside the loop, so that its texts keep their memory
    for (std::int32_t index = 1; index <= count; ++index) {
        const bool found = readProduct(product, *list.manager(), index);
        if (!list.stillShown()) {
            return false;
        }
        if (!found) {
            break;
        }
        takeRow(product);
    }
    return true;
}

void ProductView::PrvRefreshView(bool updateTotal, std::int32_t deletedRow)
{
    const CurrentList list(*this);
    tracePropagate("KTVOrvanProduct.ProductView::PrvRefreshView", [&] {
        if (list.stillShown()) {
            refillGrid(list, updateTotal, deletedRow);
        }
    });
}

void ProductView::refillGrid(const CurrentList& list, bool updateTotal, std::int32_t deletedRow)
{
    // Where the former rows are to stay after an error, everything is read before the grid is changed. Otherwise
    // an error leaves redrawing off, so that half a list is not shown; the next refresh turns it on again.
    const bool readsFirst = differs(platform_, Deviation::failedRefreshShowsFormerRows);
    showsFormerRows_ = readsFirst;
    // Of the rows only what the grid does not show yet is kept: in a long list, most commands change few cells.
    const std::uint64_t fills = fills_;
    ShownProducts::Changes changes;
    std::int32_t row = 1; // a counter of its own, because the manager may move the index
    const auto keepRow = [&](ShownProducts::Product& product) {
        products_.addRow(changes, deletedRow > 0 && row >= deletedRow ? row + 1 : row, product);
        ++row;
    };
    const auto showRow = [&](ShownProducts::Product& product) { products_.show(row++, product); };

    if (!readsFirst) {
        flexGrid_.setRedraw(false);
    }
    const std::int32_t count = list->GetProductCount();
    requireShowable(count);
    if (!list.stillShown()) {
        return;
    }
    if (readsFirst) {
        const std::int32_t newRows = std::max(count + 1 - flexGrid_.rowCount(), 0);
        changes.cells.reserve(static_cast<std::size_t>(newRows) * ProductColumns::kColumnCount);
    } else {
        products_.setRowCount(count + 1, deletedRow);
    }
    if (!(readsFirst ? readRows(list, count, keepRow) : readRows(list, count, showRow))) {
        return;
    }
    const Currency total = updateTotal ? list->GetTotalValue() : Currency();
    if (!list.stillShown()) {
        return;
    }
    const std::string totalText =
        updateTotal ? FormatCurrencyValue(platform_.locale(), total, 2, locale_.currencySymbol, true) : std::string();
    if (readsFirst && fills != fills_) {
        refillGrid(list, updateTotal, 0); // a call has let the host in, whose refresh changed what was compared with
        return;
    }
    ++fills_;
    if (readsFirst) {
        flexGrid_.setRedraw(false);
        products_.setRowCount(count + 1, deletedRow);
        products_.show(changes);
    }
    if (updateTotal) {
        txtTotal_.setText(totalText);
    }
    flexGrid_.setRedraw(true);
    showsFormerRows_ = false;
    runHandler(events.refreshed);
}

} // namespace orvan
