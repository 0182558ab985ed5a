// The look-up itself: what the timers tmrPartNum and tmrProdLkp do half a second after the last key (tmrPartNum_Timer,
// tmrProdLkp_Timer), and how the boxes' lists are filled.

#include "orvan/base/Text.h"
#include "orvan/core/Deviations.h"
#include "orvan/core/modConversion.h"
#include "orvan/lookup/BusyPointer.h"
#include "orvan/lookup/LookUpKind.h"
#include "orvan/ui/ComboBox.h"
#include "orvan/ui/Platform.h"
#include "orvan/ui/Surface.h"
#include "orvan/ui/Timer.h"

#include <optional>
#include <utility>

namespace orvan {

namespace {

constexpr std::int16_t kPriceDigits = 2;

std::int32_t length(const std::string& text)
{
    return static_cast<std::int32_t>(characterCount(text));
}

} // namespace

// The search: what both timers do when the wait is over.

// The texts that are set here raise change events; bLkpBusy keeps those from starting the timer again. In the
// classic way an error leaves it set, because the dialog closes; but its user may keep the dialog open.
void LookUpBoxes::timerFired(const Box& box)
{
    session_.handleEvent(box.kind.timerLabel, [&] {
        std::optional<ScopedFlag> busy;
        if (differs(session_.platform(), Deviation::lookUpGoesOnAfterAnError)) {
            busy.emplace(state_.bLkpBusy);
        }
        state_.bLkpBusy = true;
        box.timer.setEnabled(false);
        BusyPointer pointer(session_.platform().pointer());
        if (box.kind.busyPointer) {
            pointer.PrvSetBusyPointer();
        }
        const LookUpList matches = list(box, box.combo.text(), false);
        if (matches) {
            showMatches(box, *matches);
        } else {
            showWholeList(box);
        }
        showMatchCount(box, matches ? matches->size() : 0);
        state_.bLkpBusy = false;
        pointer.PrvRestorePointer();
    });
}

void LookUpBoxes::showMatches(const Box& box, const std::vector<LookUpRow>& rows)
{
    ui::ComboBox& combo = box.combo;
    const std::int32_t typed = length(combo.text());
    combo.clear();
    // The box moves to the left and back because clearing a list that is dropped down does not redraw it; a move does.
    combo.move(combo.left() - 1, combo.top());
    combo.move(combo.left() + 1, combo.top());
    combo.refresh();
    // Here the text is set before the rows are added; showWholeList sets it after them.
    const std::string& best = rows.front().text;
    combo.setText(best);
    combo.setSelectionStart(typed);
    combo.setSelectionLength(length(best) - typed);
    makePending(box, 0);
    addRows(box, rows);
    if (box.kind.paintsRefilled) {
        combo.refresh();
        surface_.repaint();
    }
}

void LookUpBoxes::showWholeList(const Box& box)
{
    ui::ComboBox& combo = box.combo;
    state_.lLkpListIdx = -1;
    const LookUpList all = list(box, {}, true);
    if (!all) {
        return;
    }
    const std::string typed = combo.text();
    combo.clear();
    if (box.kind.paintsRefilled) {
        combo.refresh();
    }
    addRows(box, *all);
    combo.setText(typed);
    combo.setSelectionStart(length(typed));
    combo.setSelectionLength(0);
    if (box.kind.paintsRefilled) {
        combo.refresh();
    }
}

// Only the box that the user is in has a remark: a save finishes the look-up of boxes that have been left.
void LookUpBoxes::showMatchCount(const Box& box, std::size_t count) const
{
    if (!box.combo.hasFocus() || (count == 0 && box.combo.text().empty())) {
        box.combo.setRemark({});
        return;
    }
    const std::size_t most = productLkpMgr ? productLkpMgr->mostMatches() : 0; // the search may have ended the session
    const auto number = static_cast<std::int64_t>(count);
    box.combo.setRemark(count == 0                  ? userText("no match")
                        : most > 0 && count >= most ? countedText(number, "1 or more match", "%n or more match")
                                                    : countedText(number, "1 matches", "%n match"));
}

// Called while the list is painted, so it must not fail: what cannot be read is not shown.
void LookUpBoxes::showColumns(const Box& box, std::int32_t row, std::vector<std::string>& columns) const
{
    const ResumeNext<false> step;
    step([&] {
        const auto entry = catalogue()->summary(box.combo.itemData(row));
        if (!entry) {
            return;
        }
        std::vector<std::string> texts(3);
        step([&] { texts[0] = toText(entry->partNum); });
        step([&] { texts[1] = toText(entry->name); });
        step([&] {
            ui::LocaleService& locale = session_.platform().locale();
            texts[2] = FormatCurrencyValue(locale, toCurrency(entry->unitPrice, locale), kPriceDigits,
                                           session_.locale.currencySymbol, true);
        });
        texts[&box == &partNum_ ? 0 : 1] = box.combo.itemText(row); // as it goes into the box
        columns = std::move(texts);
    });
}

void LookUpBoxes::fillList(const Box& box)
{
    if (const LookUpList all = list(box, {}, true)) {
        addRows(box, *all);
    } else {
        state_.bLkpBusy = true;
        box.combo.clear();
        state_.bLkpBusy = false;
    }
}

void LookUpBoxes::addRows(const Box& box, const std::vector<LookUpRow>& rows)
{
    for (const LookUpRow& row : rows) {
        if (!row.text.empty()) {
            box.combo.addItem(row.text);
            box.combo.setItemData(box.combo.newIndex(), toItemData(row.itemId));
        }
    }
}

} // namespace orvan
