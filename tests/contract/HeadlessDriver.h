// HeadlessDriver: plays the user of the in-memory platform for the tests of the contract.
#pragma once

#include "tests/contract/ContractDriver.h"

#include "orvan/ui/headless/HeadlessControls.h"
#include "orvan/ui/headless/HeadlessEntries.h"
#include "orvan/ui/headless/HeadlessForm.h"
#include "orvan/ui/headless/HeadlessPlatform.h"
#include "orvan/ui/headless/HeadlessSurface.h"

namespace orvan::contract {

class HeadlessDriver final : public Driver {
public:
    ui::Platform& platform() override { return platform_; }
    std::unique_ptr<ui::Surface> load(const ui::FormDesign& design) override
    {
        auto surface = std::make_unique<headless::HeadlessSurface>(design, platform_);
        surface_ = surface.get();
        return surface;
    }
    void resize(ui::Surface& surface, int widthTwips, int heightTwips) override
    {
        as<headless::HeadlessSurface>(surface).resize(static_cast<float>(widthTwips), static_cast<float>(heightTwips));
    }
    void click(ui::Button& button) override { as<headless::HeadlessButton>(button).click(); }
    void dragColumn(ui::Grid& grid, std::int32_t column, std::int32_t twips) override
    {
        as<headless::HeadlessGrid>(grid).dragColumn(column, twips);
    }
    void chooseRow(ui::Grid& grid, std::int32_t row, ui::RowChoice choice) override
    {
        auto& driven = as<headless::HeadlessGrid>(grid);
        choice == ui::RowChoice::only   ? driven.chooseRow(row)
        : choice == ui::RowChoice::upTo ? driven.chooseUpTo(row)
                                        : driven.toggleRow(row);
    }
    void dragRows(ui::Grid& grid, std::int32_t /*from*/, std::int32_t before) override
    {
        as<headless::HeadlessGrid>(grid).dragRows(before);
    }
    void pressKey(ui::Control& /*control*/, std::string_view key) override { surface_->pressKey(key); }
    std::vector<std::int32_t> selectedRows(ui::Grid& grid) override
    {
        return as<headless::HeadlessGrid>(grid).selectedRows();
    }
    void doubleClick(ui::Grid& grid, std::int32_t row) override { as<headless::HeadlessGrid>(grid).doubleClick(row); }
    void rightClick(ui::Grid& grid, std::int32_t row, std::int32_t column) override
    {
        as<headless::HeadlessGrid>(grid).rightClick(row, column);
    }
    void choose(ui::PopupMenu& menu, std::string_view tool) override
    {
        tool.empty() ? as<headless::HeadlessPopupMenu>(menu).dismiss()
                     : as<headless::HeadlessPopupMenu>(menu).choose(tool);
    }
    bool isUp(ui::PopupMenu& menu) override { return as<headless::HeadlessPopupMenu>(menu).isUp(); }
    std::vector<std::string> shown(ui::Grid& grid, std::int32_t row) override
    {
        return as<headless::HeadlessGrid>(grid).visibleTexts(row);
    }
    void answer(ui::MessageResult result, std::function<void()> meanwhile) override
    {
        platform_.messageBox().onWaiting = [meanwhile](const ui::Message&) { meanwhile(); };
        platform_.messageBox().answer(result);
    }

    void type(ui::TextEntry& box, std::string_view text) override
    {
        text == "\b" ? at(box).backspace() : text == "\x7F" ? at(box).deleteForward() : at(box).type(text);
    }
    void pressControl(ui::TextEntry& box, char letter) override { at(box).pressControl(letter, clipboard_); }
    void pressKeypadDecimal(ui::TextEntry& box) override { at(box).pressKeypadDecimal(); }
    void paste(ui::TextEntry& box, std::string_view text) override { at(box).paste(text); }
    void select(ui::TextEntry& box, std::int32_t start, std::int32_t length) override { at(box).select(start, length); }
    void chooseRow(ui::ComboBox& box, std::int32_t row) override { as<headless::HeadlessComboBox>(box).chooseRow(row); }

    void whenShown(ui::Form& /*form*/, std::function<void()> user) override
    {
        platform_.drive([user = std::move(user)](headless::FormDriver&) { user(); });
    }
    void forgetShown() override
    {
        while (platform_.unusedDrivers() > 0) {
            platform_.dropDriver();
        }
    }
    void goTo(ui::Form& form, std::string_view box) override { as<headless::HeadlessForm>(form).focus(box); }
    void choose(ui::ToolBar& bar, std::string_view tool) override { as<headless::HeadlessToolBar>(bar).choose(tool); }
    void pressEscape(ui::Form& form) override { as<headless::HeadlessForm>(form).pressEscape(); }
    void clickCloseBox(ui::Form& form) override { as<headless::HeadlessForm>(form).clickCloseBox(); }
    void wait(std::int64_t milliseconds) override { platform_.clock().advance(milliseconds); }
    std::int64_t now() override { return platform_.clock().now(); }

private:
    template <class Its, class Abstract>
    static Its& as(Abstract& it)
    {
        return dynamic_cast<Its&>(it);
    }
    static headless::EntryDriver& at(ui::TextEntry& box) { return as<headless::EntryDriver>(box); }

    headless::HeadlessPlatform platform_{locale, components};
    headless::HeadlessSurface* surface_ = nullptr; ///< The one that was loaded last.
    std::string clipboard_;
};

} // namespace orvan::contract
