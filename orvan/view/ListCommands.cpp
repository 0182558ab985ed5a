#include "orvan/view/ListCommands.h"

#include "orvan/base/ScopedHandlers.h"
#include "orvan/ui/Grid.h"
#include "orvan/ui/Surface.h"
#include "orvan/ui/ToolSet.h"
#include "orvan/view/ProductView.h"
#include "orvan/view/ProductViewDesign.h"

#include <algorithm>
#include <array>
#include <vector>

namespace orvan {

ListCommands::ListCommands(ProductView& view, ProductColumns& columns, const ui::Surface& surface,
                           ui::LocaleService& locale)
    : view_(view), columns_(columns), flexGrid_(surface.control<ui::Grid>("flexGrid")),
      mnuRow_(surface.control<ui::PopupMenu>("mnuRow")), find_(flexGrid_, locale)
{
    flexGrid_.setMultiSelect(true);
}

const ListCommands::Binding& ListCommands::bindingOf(Command command)
{
    using List = ListCommands;
    static constexpr std::array kBindings = {
        Binding{Command::edit, &List::edit, &List::hasCurrentRow},
        Binding{Command::add, &List::add, &List::always},
        Binding{Command::duplicate, &List::duplicate, &List::hasCurrentRow},
        Binding{Command::remove, &List::remove, &List::hasCurrentRow},
        Binding{Command::moveUp, &List::moveUp, &List::canMoveUp},
        Binding{Command::moveDown, &List::moveDown, &List::canMoveDown},
        Binding{Command::cut, &List::cut, &List::hasCurrentRow},
        Binding{Command::copy, &List::copy, &List::hasCurrentRow},
        Binding{Command::paste, &List::paste, &List::always},
        Binding{Command::selectAll, &List::selectAll, &List::hasRows},
        Binding{Command::findNext, &List::findNext, &List::hasSearched},
        Binding{Command::findPrevious, &List::findPrevious, &List::hasSearched},
        Binding{Command::rowMenu, &List::showRowMenu, &List::always},
    };
    static_assert(kBindings.size() == kCommands.size() && [] {
        for (std::size_t i = 0; i < kBindings.size(); ++i) {
            if (kBindings[i].command != kCommands[i].command) {
                return false;
            }
        }
        return true;
    }());
    return kBindings[static_cast<std::size_t>(command)];
}

namespace {

/// The keys of all commands, read once.
struct BoundKey {
    ui::KeyStroke key;
    Command command;
};

const std::vector<BoundKey>& boundKeys()
{
    static const std::vector<BoundKey> kKeys = [] {
        std::vector<BoundKey> keys;
        for (const CommandRow& row : kCommands) {
            for (const std::string_view key : {row.key, row.otherKey}) {
                if (!key.empty()) {
                    keys.push_back({ui::keyStroke(key), row.command});
                }
            }
        }
        return keys;
    }();
    return kKeys;
}

const BoundKey* boundTo(const ui::KeyStroke& key)
{
    const auto& keys = boundKeys();
    const auto found = std::find_if(keys.begin(), keys.end(), [&](const BoundKey& bound) { return bound.key == key; });
    return found != keys.end() ? &*found : nullptr;
}

} // namespace

void ListCommands::takeEvents(ScopedHandlers& handlers)
{
    handlers.set(flexGrid_.onKeyDown, [this](ui::KeyStroke& key) { flexGrid_KeyDown(key); });
    handlers.set(flexGrid_.takesKey, [this](const ui::KeyStroke& key) { return takesKey(key); });
    handlers.set(flexGrid_.onRightClick, [this] { flexGrid_RightClick(); });
    handlers.set(flexGrid_.onSelect, [this] {
        find_.end();
        view_.tellRowChosen();
    });
    handlers.set(flexGrid_.onDragRows, [this](std::int32_t before) { view_.flexGrid_DragRows(before); });
    handlers.set(flexGrid_.onLostFocus, [this] { find_.end(); });
    handlers.set(mnuRow_.onToolClick, [this](std::string_view item) { mnuRow_Click(item); });
}

bool ListCommands::takesKey(const ui::KeyStroke& key) const
{
    return boundTo(key) != nullptr || find_.takes(key);
}

void ListCommands::flexGrid_KeyDown(ui::KeyStroke& key)
{
    const ui::KeyStroke pressed = key;
    if (find_.takes(pressed)) {
        key.key = ui::Key::none;
        if (find_.press(pressed)) {
            view_.tellRowChosen();
        }
    } else if (const BoundKey* const bound = boundTo(pressed)) {
        key.key = ui::Key::none;
        run(bound->command); // last: the command may destroy this object
    }
}

bool ListCommands::enabled(Command command) const
{
    return mayRun(command) && (this->*bindingOf(command).enabled)();
}

bool ListCommands::mayRun(Command command) const
{
    return !view_.readOnly() || !rowOf(command).changesList;
}

void ListCommands::run(Command command)
{
    if (!mayRun(command)) {
        return;
    }
    if (command != Command::findNext && command != Command::findPrevious) {
        find_.end();
    }
    (this->*bindingOf(command).handler)();
}

bool ListCommands::hasRows() const
{
    return flexGrid_.rowCount() > flexGrid_.fixedRows();
}

bool ListCommands::hasCurrentRow() const
{
    return flexGrid_.currentRow() >= flexGrid_.fixedRows() && hasRows();
}

bool ListCommands::canMoveUp() const
{
    // Selected rows that fill the beginning of the list cannot move up.
    const auto& ranges = flexGrid_.selection().ranges();
    return !ranges.empty() && (ranges.size() > 1 || ranges.front().first > flexGrid_.fixedRows());
}

bool ListCommands::canMoveDown() const
{
    const auto& ranges = flexGrid_.selection().ranges();
    return !ranges.empty() && (ranges.size() > 1 || ranges.back().last < flexGrid_.rowCount() - 1);
}

void ListCommands::edit()
{
    view_.editRow(flexGrid_.currentRow());
}

void ListCommands::add()
{
    view_.cmdNew_Click();
}

void ListCommands::duplicate()
{
    view_.duplicateRows();
}

void ListCommands::remove()
{
    view_.cmdDelete_Click();
}

void ListCommands::moveUp()
{
    view_.cmdMoveUp_Click();
}

void ListCommands::moveDown()
{
    view_.cmdMoveDown_Click();
}

void ListCommands::cut()
{
    if (hasCurrentRow()) {
        view_.copyProducts();
        view_.cmdDelete_Click(); // asks
    }
}

void ListCommands::copy()
{
    view_.copyProducts();
}

void ListCommands::paste()
{
    view_.pasteFromClipboard();
}

void ListCommands::selectAll()
{
    if (hasRows()) {
        ui::RowSelection all;
        all.replace({flexGrid_.fixedRows(), flexGrid_.rowCount() - 1});
        flexGrid_.selectRows(all, std::max(flexGrid_.currentRow(), flexGrid_.fixedRows()));
        view_.tellRowChosen();
    }
}

void ListCommands::findNext()
{
    if (hasSearched() && find_.next(+1)) {
        view_.tellRowChosen();
    }
}

void ListCommands::findPrevious()
{
    if (hasSearched() && find_.next(-1)) {
        view_.tellRowChosen();
    }
}

void ListCommands::showRowMenu()
{
    prepareRowMenu();
    mnuRow_.popUpAt(flexGrid_);
}

void ListCommands::flexGrid_RightClick()
{
    const std::int32_t row = flexGrid_.mouseRow();
    if (row < flexGrid_.fixedRows() && row >= 0) {
        columns_.flexGrid_RightClick();
        return;
    }
    if (row > 0 && !flexGrid_.selection().contains(row)) {
        flexGrid_.setCurrentRow(row); // as in other lists: the menu is about the row that was clicked
        view_.tellRowChosen();
    }
    prepareRowMenu();
    mnuRow_.popUp();
}

void ListCommands::prepareRowMenu()
{
    for (const CommandRow& row : kCommands) {
        for (const ui::ToolDesign& tool : mnuRow_.tools()) {
            if (tool.id == row.id) {
                mnuRow_.setToolCaption(row.id, textOf(row, view_.readOnly()));
                mnuRow_.setToolEnabled(row.id, enabled(row.command));
            }
        }
    }
    columns_.prepareItems(mnuRow_);
}

void ListCommands::mnuRow_Click(std::string_view item)
{
    for (const CommandRow& row : kCommands) {
        if (row.id == item) {
            run(row.command);
            return;
        }
    }
    item.starts_with("mnuRow") ? columns_.mnuRowColumns_Click(item) : columns_.mnuViewCbo_Click(item);
}

} // namespace orvan
