#include "orvan/ui/headless/HeadlessControls.h"

#include "orvan/base/Text.h"
#include "orvan/ui/Frame.h"
#include "orvan/ui/Label.h"
#include "orvan/ui/Line.h"
#include "orvan/ui/LocaleSeparators.h"
#include "orvan/ui/Platform.h"
#include "orvan/ui/headless/HeadlessEntries.h"
#include "orvan/ui/headless/HeadlessTimer.h"
#include "orvan/ui/headless/Impossible.h"

#include <algorithm>

namespace orvan::headless {

namespace {

constexpr std::int32_t kRowHeight = 285;      // twips: 19 pixels
constexpr std::int32_t kCharacterWidth = 105; // twips
constexpr std::int32_t kCellMargins = 180;    // twips, of both sides

class HeadlessFrame final : public ui::Frame {
public:
    using Frame::Frame;

private:
    void doMove() override {}
    void doSetEnabled() override {}
};

class HeadlessLabel final : public ui::Label {
public:
    using Label::Label;

private:
    void doMove() override {}
};

class HeadlessLine final : public ui::Line {
public:
    using Line::Line;

private:
    void doMove() override {}
};

} // namespace

std::unique_ptr<ui::Control> makeHeadlessControl(const ui::ControlDesign& design, ui::Platform& platform,
                                                 HeadlessClock* clock)
{
    switch (design.kind) {
    case ui::ControlKind::button: return std::make_unique<HeadlessButton>(design);
    case ui::ControlKind::comboBox: return std::make_unique<HeadlessComboBox>(design, platform.locale());
    case ui::ControlKind::frame: return std::make_unique<HeadlessFrame>(design);
    case ui::ControlKind::grid: return std::make_unique<HeadlessGrid>(design, platform);
    case ui::ControlKind::label: return std::make_unique<HeadlessLabel>(design);
    case ui::ControlKind::line: return std::make_unique<HeadlessLine>(design);
    case ui::ControlKind::popupMenu: return std::make_unique<HeadlessPopupMenu>(design, platform);
    case ui::ControlKind::textBox: return std::make_unique<HeadlessTextBox>(design, platform.locale());
    case ui::ControlKind::timer:
        if (clock) {
            return std::make_unique<HeadlessTimer>(design, *clock);
        }
        break;
    case ui::ControlKind::toolBar: return std::make_unique<HeadlessToolBar>(design);
    }
    throw RuntimeError(ErrorNumber::internalError, std::string(design.name), "no such control here");
}

void HeadlessButton::click()
{
    if (canTakeFocus()) {
        userFocused();
    }
    press();
}

void HeadlessButton::press()
{
    if (!canTakeFocus()) {
        raiseImpossible(name() + ": a user cannot press a button that is not enabled");
    }
    userClicked();
}

void HeadlessToolBar::choose(std::string_view id)
{
    if (!toolEnabled(id)) {
        raiseImpossible(name() + ": a user cannot choose a tool that is not enabled");
    }
    if (!opensMenu(id)) {
        userChoseTool(id);
    }
}

HeadlessPopupMenu::HeadlessPopupMenu(const ui::ControlDesign& design, ui::Platform& platform)
    : PopupMenu(design), platform_(platform)
{
}

HeadlessPopupMenu::~HeadlessPopupMenu()
{
    if (up_) {
        platform_.dispatch([this] { raiseUndriven(); });
    }
}

void HeadlessPopupMenu::raiseUndriven() const
{
    throw RuntimeError(ErrorNumber::internalError, {}, "Nobody chooses from the menu \"" + name() + "\"");
}

void HeadlessPopupMenu::popUp()
{
    if (up_) {
        raiseUndriven();
    }
    up_ = true;
}

namespace {

/// The IDs of the tools of which `has` is true, separated by blanks.
template <class Has>
std::string toolIds(const ui::ToolSet& set, const Has& has)
{
    std::string ids;
    for (const ui::ToolDesign& tool : set.tools()) {
        if (!tool.id.empty() && !set.opensMenu(tool.id) && has(tool.id)) {
            ids.append(ids.empty() ? "" : " ").append(tool.id);
        }
    }
    return ids;
}

} // namespace

std::string HeadlessPopupMenu::offered() const
{
    return toolIds(*this, [this](std::string_view id) { return toolEnabled(id); });
}

std::string HeadlessPopupMenu::checked() const
{
    return toolIds(*this, [this](std::string_view id) { return toolChecked(id); });
}

void HeadlessPopupMenu::choose(std::string_view id)
{
    if (!toolEnabled(id)) {
        raiseImpossible(name() + ": a user cannot choose a tool that is not enabled");
    }
    dismiss();
    userChoseTool(id);
}

void HeadlessPopupMenu::dismiss()
{
    if (!up_) {
        raiseImpossible(name() + ": the menu is not up");
    }
    up_ = false;
}

HeadlessGrid::HeadlessGrid(const ui::ControlDesign& design, ui::Platform& platform)
    : DrivenControl(design, ui::gridSeparators(platform.locale()))
{
}

void HeadlessGrid::dragColumn(std::int32_t column, std::int32_t twips)
{
    if (!userResizing() || columnHidden(column)) {
        raiseImpossible(name() + ": a user cannot resize column " + std::to_string(column));
    }
    userResizedColumn(column, twips);
}

std::int32_t HeadlessGrid::measureFitting(std::int32_t column) const
{
    std::size_t most = 0;
    for (std::int32_t row = 0; row < rowCount(); ++row) {
        most = std::max(most, characterCount(displayText(row, column)));
    }
    return static_cast<std::int32_t>(most) * kCharacterWidth + kCellMargins;
}

void HeadlessGrid::choose(std::int32_t row, ui::RowChoice choice)
{
    if (row < fixedRows()) {
        raiseImpossible(name() + ": a user cannot choose row " + std::to_string(row));
    }
    userChoseRow(row, choice);
}

void HeadlessGrid::dragRows(std::int32_t before)
{
    if (!rowDragging() || selection().count() == 0 || before < fixedRows() || before > rowCount()) {
        raiseImpossible(name() + ": a user cannot drag the selected rows to row " + std::to_string(before));
    }
    userDraggedRows(before);
}

std::int32_t HeadlessGrid::rowsPerPage() const
{
    return std::max(static_cast<std::int32_t>(height()) / kRowHeight - fixedRows(), 1);
}

void HeadlessGrid::doubleClick(std::int32_t row)
{
    if (row >= fixedRows()) {
        userChoseRow(row);
    }
    userDoubleClicked(row);
}

void HeadlessGrid::rightClick(std::int32_t row, std::int32_t column)
{
    if (column >= 0 && columnHidden(column)) {
        raiseImpossible(name() + ": a user cannot click column " + std::to_string(column));
    }
    userRightClicked(row, column);
}

std::vector<std::string> HeadlessGrid::visibleTexts(std::int32_t row) const
{
    std::vector<std::string> texts;
    for (std::int32_t column = 0; column < columnCount(); ++column) {
        if (!columnHidden(column)) {
            texts.push_back(displayText(row, column));
        }
    }
    return texts;
}

void HeadlessGrid::doUpdate(const ui::GridChanges& /*changes*/)
{
    ++paintCount_;
}

} // namespace orvan::headless
