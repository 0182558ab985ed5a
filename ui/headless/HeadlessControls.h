// The in-memory controls: what a user does to them is a method here, and only here.
//
// Every driving method behaves as the user's action does in a window: it reports through the same
// events, and an error that leaves a handler reaches the platform's onUnhandledError.
#pragma once

#include "ui/Button.h"
#include "ui/Frame.h"
#include "ui/Grid.h"
#include "ui/Label.h"
#include "ui/TextBox.h"

#include <string>
#include <vector>

namespace orvan::ui {
class Platform;
}

namespace orvan::headless {

class HeadlessButton final : public ui::Button {
public:
    HeadlessButton(const ui::ControlDesign& design, ui::Platform& platform);

    /// Raises 5 when the button is not enabled: a user could not do it.
    void click();

private:
    void doMove() override {}
    void doSetEnabled() override {}

    ui::Platform& platform_;
};

class HeadlessFrame final : public ui::Frame {
public:
    using Frame::Frame;

private:
    void doMove() override {}
};

class HeadlessLabel final : public ui::Label {
public:
    using Label::Label;

private:
    void doMove() override {}
};

class HeadlessTextBox final : public ui::TextBox {
public:
    using TextBox::TextBox;

private:
    void doMove() override {}
    void doSetText() override {}
};

class HeadlessGrid final : public ui::Grid {
public:
    HeadlessGrid(const ui::ControlDesign& design, ui::Platform& platform);

    /// The user drags the column's right edge until it is `twips` wide. Raises 5 where the grid
    /// does not let columns be resized or the column is hidden: a user could not do it.
    void dragColumn(std::int32_t column, std::int32_t twips);
    /// The user clicks a row below the header. Raises 5 for a header row, 9 outside the grid.
    void chooseRow(std::int32_t row);

    /// How often the grid has been painted since it was made.
    int paintCount() const { return paintCount_; }
    /// The texts a user sees in a row, hidden columns left out.
    std::vector<std::string> visibleTexts(std::int32_t row) const;

private:
    void doMove() override {}
    void doUpdate(const ui::GridChanges& changes) override;
    void doSuspend() override {}

    ui::Platform& platform_;
    int paintCount_ = 0;
};

} // namespace orvan::headless
