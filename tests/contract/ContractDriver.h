// ContractDriver: one platform under the contract, and a user's hands on it.
#pragma once

#include "orvan/ui/Button.h"
#include "orvan/ui/ComboBox.h"
#include "orvan/ui/Form.h"
#include "orvan/ui/Grid.h"
#include "orvan/ui/Platform.h"
#include "orvan/ui/Surface.h"
#include "orvan/ui/TextEntry.h"
#include "orvan/ui/Timer.h"
#include "orvan/ui/ToolSet.h"

#include "tests/support/Raised.h"
#include "tests/support/Rows.h"

#include <gtest/gtest.h>

namespace orvan::contract {

using test::errorOf;
using test::forEachRow;

/// A grid of five columns, a frame with a button in it, a label and the text box it names, a pop-up menu.
extern const ui::FormDesign kDesign;
/// A line, a note, a combo box and a box for amounts.
extern const ui::FormDesign kEntryDesign;
/// A tool bar, two boxes, a frame with three buttons, one button that cancels, a timer.
extern const ui::FormDesign kFormDesign;

/// The separators are "," and "." unless a test sets others. Nothing asks for other items.
class TestLocale final : public ui::LocaleService {
public:
    std::string thousands = ",";
    std::string decimal = ".";

    std::int32_t getLocaleInfo(std::int32_t /*lcid*/, ui::LocaleItem item, std::span<char> buffer) override
    {
        const std::string& text = item == ui::LocaleItem::decimalSeparator ? decimal : thousands;
        std::copy_n(text.c_str(), text.size() + 1, buffer.begin());
        return static_cast<std::int32_t>(text.size()) + 1;
    }
    void appendCurrency(std::string& text, Currency value, int /*digits*/) override { text += value.toText(); }
    void appendNumber(std::string& text, Currency value, int /*digits*/) override { text += value.toText(); }
    Currency textToCurrency(std::string_view text) override { return Currency::fromText(text); }
};

class NoComponents final : public ui::ComponentFactory {
public:
    std::shared_ptr<ui::Component> create(std::string_view) override { throw RuntimeError(429); }
};

class Driver {
public:
    virtual ~Driver() = default;

    TestLocale locale;
    NoComponents components;

    virtual ui::Platform& platform() = 0;
    /// A surface in a window of its own, which is shown.
    virtual std::unique_ptr<ui::Surface> load(const ui::FormDesign& design) = 0;
    /// Gives the surface loaded last another size.
    virtual void resize(ui::Surface& surface, int widthTwips, int heightTwips) = 0;
    virtual void click(ui::Button& button) = 0;
    virtual void dragColumn(ui::Grid& grid, std::int32_t column, std::int32_t twips) = 0;
    virtual void chooseRow(ui::Grid& grid, std::int32_t row, ui::RowChoice choice = ui::RowChoice::only) = 0;
    /// Drags the selected rows by one of them, which is `from`.
    virtual void dragRows(ui::Grid& grid, std::int32_t from, std::int32_t before) = 0;
    /// Presses a key in the grid or button, which has the focus.
    virtual void pressKey(ui::Control& control, std::string_view key) = 0;
    /// The rows that a user sees selected.
    virtual std::vector<std::int32_t> selectedRows(ui::Grid& grid) = 0;
    /// -1: below all rows.
    virtual void doubleClick(ui::Grid& grid, std::int32_t row) = 0;
    /// -1: below all rows, right of all columns.
    virtual void rightClick(ui::Grid& grid, std::int32_t row, std::int32_t column) = 0;
    /// With the mouse; an empty tool dismisses the menu.
    virtual void choose(ui::PopupMenu& menu, std::string_view tool) = 0;
    virtual bool isUp(ui::PopupMenu& menu) = 0;
    /// What a user sees in the row, hidden columns left out.
    virtual std::vector<std::string> shown(ui::Grid& grid, std::int32_t row) = 0;
    /// Answers the next message box after what happens while it waits.
    virtual void answer(
        ui::MessageResult result, std::function<void()> meanwhile = [] {}) = 0;

    /// Key by key; "\n" is Enter, "\b" Backspace, "\x7F" Delete.
    virtual void type(ui::TextEntry& box, std::string_view text) = 0;
    virtual void pressControl(ui::TextEntry& box, char letter) = 0;
    virtual void pressKeypadDecimal(ui::TextEntry& box) = 0;
    virtual void paste(ui::TextEntry& box, std::string_view text) = 0;
    virtual void select(ui::TextEntry& box, std::int32_t start, std::int32_t length) = 0;
    virtual void chooseRow(ui::ComboBox& box, std::int32_t row) = 0;

    /// Runs `user`, which has to unload the form in the end, as soon as the form is shown.
    virtual void whenShown(ui::Form& form, std::function<void()> user) = 0;
    /// To be called after whenShown if the form was never shown and does not exist any more: `user` is not run then.
    virtual void forgetShown() = 0;
    void showModal(ui::Form& form, std::function<void()> user)
    {
        whenShown(form, std::move(user));
        form.showModal();
    }
    /// The user clicks into a box.
    virtual void goTo(ui::Form& form, std::string_view box) = 0;
    virtual void choose(ui::ToolBar& bar, std::string_view tool) = 0;
    virtual void pressEscape(ui::Form& form) = 0;
    virtual void clickCloseBox(ui::Form& form) = 0;
    /// Lets time pass.
    virtual void wait(std::int64_t milliseconds) = 0;
    virtual std::int64_t now() = 0;
};

using DriverFactory = std::unique_ptr<Driver> (*)();

class PlatformContract : public testing::TestWithParam<DriverFactory> {
protected:
    void SetUp() override;
    void TearDown() override
    {
        surface.reset();
        EXPECT_EQ(unhandled, expectedUnhandled) << "errors that no handler took";
    }

    ui::Grid& grid() { return surface->control<ui::Grid>("grid"); }

    std::unique_ptr<Driver> driver;
    std::unique_ptr<ui::Surface> surface;
    std::vector<std::int32_t> unhandled;
    std::vector<std::int32_t> expectedUnhandled;
};

/// A grid of five rows, which has the focus.
class GridContract : public PlatformContract {
protected:
    void SetUp() override
    {
        PlatformContract::SetUp();
        grid().setRowCount(6);
        grid().setMultiSelect(true);
        grid().setFocus();
    }
};

class EntryContract : public PlatformContract {
protected:
    void SetUp() override;

    ui::TextEntry& entry(std::string_view name) { return surface->control<ui::TextEntry>(name); }
    ui::ComboBox& combo() { return surface->control<ui::ComboBox>("combo"); }
};

/// The events that the form raises go to the log.
class FormContract : public PlatformContract {
protected:
    void SetUp() override;

    ui::Button& button(std::string_view name) { return form->control<ui::Button>(name); }
    ui::TextBox& box(std::string_view name) { return form->control<ui::TextBox>(name); }
    ui::ToolBar& bar() { return form->control<ui::ToolBar>("bar"); }
    ui::Timer& timer() { return form->control<ui::Timer>("timer"); }
    std::string taken() { return std::exchange(log, {}); }

    std::unique_ptr<ui::Form> form;
    std::string log;
    bool stays = false;
};

} // namespace orvan::contract
