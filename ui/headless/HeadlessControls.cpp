#include "ui/headless/HeadlessControls.h"

#include "base/RuntimeError.h"
#include "ui/LocaleSeparators.h"
#include "ui/Platform.h"

namespace orvan::headless {

namespace {

[[noreturn]] void raiseImpossible(std::string what)
{
    throw RuntimeError(ErrorNumber::invalidProcedureCall, {}, std::move(what));
}

} // namespace

HeadlessButton::HeadlessButton(const ui::ControlDesign& design, ui::Platform& platform)
    : Button(design), platform_(platform)
{
}

void HeadlessButton::click()
{
    if (!enabled()) {
        raiseImpossible(name() + ": a user cannot press a button that is not enabled");
    }
    if (const auto handler = onClick) { // a copy: the handler may destroy this button
        platform_.dispatch(handler);
    }
}

HeadlessGrid::HeadlessGrid(const ui::ControlDesign& design, ui::Platform& platform)
    : Grid(design, ui::gridSeparators(platform.locale())), platform_(platform)
{
}

void HeadlessGrid::dragColumn(std::int32_t column, std::int32_t twips)
{
    if (!userResizing() || columnHidden(column)) {
        raiseImpossible(name() + ": a user cannot resize column " + std::to_string(column));
    }
    platform_.dispatch([&] { userResizedColumn(column, twips); });
}

void HeadlessGrid::chooseRow(std::int32_t row)
{
    if (row < fixedRows()) {
        raiseImpossible(name() + ": a user cannot choose row " + std::to_string(row));
    }
    userChoseRow(row);
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
