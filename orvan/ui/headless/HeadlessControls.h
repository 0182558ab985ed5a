// HeadlessControls: the in-memory controls. They have a method for each action of a user.
//
// Such a driving method does what the user's action does in a window: it raises the same events, and an
// error that leaves a handler reaches the platform's onUnhandledError. What a user could not do, such
// as pressing a greyed button, raises 5. Ownership: the surface. Thread: the platform's.
#pragma once

#include "orvan/ui/Button.h"
#include "orvan/ui/Grid.h"
#include "orvan/ui/ToolSet.h"

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

class HeadlessButton final : public ui::Button {
public:
    using Button::Button;

    /// The user clicks the button with the mouse: it gets the focus, then onClick is raised.
    void click();
    /// The user presses the button without moving the focus: with its mnemonic, or with the mouse on a platform where a
    /// click does not move the focus.
    void press();

private:
    void doMove() override {}
    void doSetEnabled() override {}
};

class HeadlessToolBar final : public ui::ToolBar {
public:
    using ToolBar::ToolBar;

    /// The user opens the menus and chooses the tool.
    void choose(std::string_view id);

private:
    void doMove() override {}
    void doSetToolEnabled(std::size_t /*index*/, bool /*enabled*/) override {}
};

class HeadlessPopupMenu final : public ui::PopupMenu {
public:
    HeadlessPopupMenu(const ui::ControlDesign& design, ui::Platform& platform);
    /// If the menu is still open, error 51 reaches the platform's onUnhandledError, because nobody has chosen from it
    /// or dismissed it.
    ~HeadlessPopupMenu() override;

    /// Opens the menu. Raises 51 if it is open already, because nobody has chosen from it or dismissed it.
    void popUp() override;
    bool isUp() const { return up_; }
    /// The IDs of the tools that a user can choose, separated by blanks.
    std::string offered() const;
    /// The user chooses the tool, which closes the menu. Raises 5 if the menu is not open.
    void choose(std::string_view id);
    /// The user presses Escape or clicks elsewhere, which closes the menu. Raises 5 if the menu is not open.
    void dismiss();

private:
    void doMove() override {}
    void doSetToolEnabled(std::size_t /*index*/, bool /*enabled*/) override {}
    [[noreturn]] void raiseUndriven() const;

    ui::Platform& platform_;
    bool up_ = false;
};

class HeadlessGrid final : public ui::Grid {
public:
    HeadlessGrid(const ui::ControlDesign& design, ui::Platform& platform);

    /// The user drags the column's right edge until it is `twips` wide. Raises 5 where the grid
    /// does not let columns be resized or the column is hidden.
    void dragColumn(std::int32_t column, std::int32_t twips);
    /// The user clicks a row below the header. Raises 5 for a header row, 9 outside the grid.
    void chooseRow(std::int32_t row);
    /// The user double clicks a row (-1: where there is no row). The first click chooses the row unless it is a header.
    void doubleClick(std::int32_t row);
    /// The user clicks a cell or header with the right button (-1: where there is no row or column). Raises 5 for a
    /// hidden column.
    void rightClick(std::int32_t row, std::int32_t column);

    /// How often the grid has been painted since it was made.
    int paintCount() const { return paintCount_; }
    /// The texts a user sees in a row, hidden columns left out.
    std::vector<std::string> visibleTexts(std::int32_t row) const;

private:
    void doMove() override {}
    void doUpdate(const ui::GridChanges& changes) override;
    void doSuspend() override {}

    int paintCount_ = 0;
};

} // namespace orvan::headless
