// HeadlessControls: the in-memory controls. A user acts on them through their drivers (orvan/ui/headless/Drivers.h).
//
// Ownership: the surface. Thread: the platform's.
#pragma once

#include "orvan/core_export.h"
#include "orvan/ui/Button.h"
#include "orvan/ui/Grid.h"
#include "orvan/ui/ToolSet.h"
#include "orvan/ui/headless/Drivers.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orvan::ui {
class Platform;
}

namespace orvan::headless {

class HeadlessClock;

/// Makes a control of the kind that the design names. Raises 51 for a timer if `clock` is null.
[[nodiscard]] std::unique_ptr<ui::Control> makeHeadlessControl(const ui::ControlDesign& design, ui::Platform& platform,
                                                               HeadlessClock* clock);

/// A control of the kind `Kind` that is its own driver. Where both declare a function of the same name, the driver's
/// calls the control's.
template <class Kind, class Driver>
class DrivenControl : public Kind, public Driver {
public:
    using Kind::Kind;

    bool canTakeFocus() const final { return Kind::canTakeFocus(); }

private:
    void doMove() final {}
};

class ORVAN_CORE_INTERNAL HeadlessButton final : public DrivenControl<ui::Button, ButtonDriver> {
public:
    using DrivenControl::DrivenControl;

    void click() override;
    void press() override;

private:
    void doSetEnabled() override {}
};

class ORVAN_CORE_INTERNAL HeadlessToolBar final : public ui::ToolBar, public ToolBarDriver {
public:
    using ToolBar::ToolBar;

    void choose(std::string_view id) override;
    bool toolEnabled(std::string_view id) const override { return ToolBar::toolEnabled(id); }

private:
    void doMove() override {}
    void doSetToolEnabled(std::size_t /*index*/, bool /*enabled*/) override {}
    void doSetToolCaption(std::size_t /*index*/, std::string_view /*caption*/) override {}
    void doSetToolChecked(std::size_t /*index*/, bool /*checked*/) override {}
};

class ORVAN_CORE_INTERNAL HeadlessPopupMenu final : public ui::PopupMenu, public PopupMenuDriver {
public:
    HeadlessPopupMenu(const ui::ControlDesign& design, ui::Platform& platform);
    /// If the menu is still open, error 51 reaches the platform's onUnhandledError, because nobody has chosen from it
    /// or dismissed it.
    ~HeadlessPopupMenu() override;

    /// Opens the menu. Raises 51 if it is open already, because nobody has chosen from it or dismissed it.
    void popUp() override;
    void popUpAt(ui::Grid& /*grid*/) override { popUp(); }
    bool isUp() const override { return up_; }
    std::string offered() const override;
    std::string checked() const override;
    void choose(std::string_view id) override;
    void dismiss() override;
    std::string caption(std::string_view id) const override { return std::string(toolCaption(id)); }

private:
    void doMove() override {}
    void doSetToolEnabled(std::size_t /*index*/, bool /*enabled*/) override {}
    void doSetToolCaption(std::size_t /*index*/, std::string_view /*caption*/) override {}
    void doSetToolChecked(std::size_t /*index*/, bool /*checked*/) override {}
    [[noreturn]] void raiseUndriven() const;

    ui::Platform& platform_;
    bool up_ = false;
};

class ORVAN_CORE_INTERNAL HeadlessGrid final : public DrivenControl<ui::Grid, GridDriver> {
public:
    HeadlessGrid(const ui::ControlDesign& design, ui::Platform& platform);

    void dragColumn(std::int32_t column, std::int32_t twips) override;
    void fitColumn(std::int32_t column) override { dragColumn(column, measureFitting(column)); }
    void chooseRow(std::int32_t row) override { choose(row, ui::RowChoice::only); }
    void chooseUpTo(std::int32_t row) override { choose(row, ui::RowChoice::upTo); }
    void toggleRow(std::int32_t row) override { choose(row, ui::RowChoice::toggle); }
    void dragRows(std::int32_t before) override;
    void doubleClick(std::int32_t row) override;
    void rightClick(std::int32_t row, std::int32_t column) override;
    void press(const ui::KeyStroke& key) { static_cast<void>(userPressedKey(key)); }

    std::int32_t rowCount() const override { return Grid::rowCount(); }
    std::int32_t currentRow() const override { return Grid::currentRow(); }
    std::vector<std::int32_t> selectedRows() const override { return selection().rows(); }
    std::string searchText() const override { return Grid::searchText().english(); }
    std::int32_t columnWidth(std::int32_t column) const override { return Grid::columnWidth(column); }
    std::string shownEmptyText() const override
    {
        return rowCount() > fixedRows() ? std::string() : emptyText().english();
    }
    std::vector<std::string> visibleTexts(std::int32_t row) const override;
    int paintCount() const override { return paintCount_; }
    std::int32_t measureShown(std::int32_t column) const override { return Grid::columnWidth(column); }
    /// As if all characters were of one width.
    std::int32_t measureFitting(std::int32_t column) const override;
    void dragToWidth(std::int32_t column, std::int32_t twips) override { userResizedColumn(column, twips); }

private:
    void doUpdate(const ui::GridChanges& changes) override;
    void doSuspend() override {}
    void doSelect() override {}
    void doShowSearchText() override {}
    std::int32_t rowsPerPage() const override;
    void choose(std::int32_t row, ui::RowChoice choice);

    int paintCount_ = 0;
};

} // namespace orvan::headless
