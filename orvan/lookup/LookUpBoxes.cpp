#include "orvan/lookup/LookUpBoxes.h"

#include "orvan/base/Text.h"
#include "orvan/core/Deviations.h"
#include "orvan/lookup/LookUpKind.h"
#include "orvan/ui/ComboBox.h"
#include "orvan/ui/Platform.h"
#include "orvan/ui/Surface.h"
#include "orvan/ui/Timer.h"

#include <algorithm>
#include <optional>

namespace orvan {

namespace {

constexpr std::int32_t kPause = 500; ///< Milliseconds from the last keystroke to the search.
constexpr std::int16_t kEnter = 13;

char folded(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Whether the row's text begins with what was typed, ASCII letters of either case alike; nothing typed begins none.
bool beginsWith(std::string_view row, std::string_view typed)
{
    return !typed.empty() && typed.size() <= row.size() &&
           std::equal(typed.begin(), typed.end(), row.begin(), [](char a, char b) { return folded(a) == folded(b); });
}

/// The entry that a typed number means: the only one with exactly that number, or the only one that begins so. Row 0
/// always begins so; rows behind it may have the typed text elsewhere.
std::optional<std::int32_t> entryFor(const LookUpList& rows, const std::string& typed)
{
    if (!rows) {
        return std::nullopt;
    }
    const auto isExact = [&](const LookUpRow& row) {
        return row.text.size() == typed.size() && beginsWith(row.text, typed);
    };
    const auto exact = std::find_if(rows->begin(), rows->end(), isExact);
    if (exact != rows->end() && std::none_of(exact + 1, rows->end(), isExact)) {
        return toItemData(exact->itemId);
    }
    const bool only =
        std::none_of(rows->begin() + 1, rows->end(), [&](const LookUpRow& row) { return beginsWith(row.text, typed); });
    return only ? std::optional(toItemData(rows->front().itemId)) : std::nullopt;
}

} // namespace

// The tables have no label for cboPartNum_LostFocus and cboProductName_LostFocus, because leaving a box is not traced.
const LookUpBoxes::Kind LookUpBoxes::kPartNum = {
    .combo = "cboPartNum",
    .timer = "tmrPartNum",
    .changeLabel = "KTVOrvanProduct.frmProduct::cboPartNum_Change",
    .clickLabel = "KTVOrvanProduct.frmProduct::cboPartNum_Click",
    .keyPressLabel = "KTVOrvanProduct.frmProduct::cboPartNum_KeyPress",
    .timerLabel = "KTVOrvanProduct.frmProduct::tmrPartNum_Timer",
    .getList = &ProductLkpMgr::GetPartNumList,
    .left = &State::bPartNumBoxLeft,
    .wanted = &State::bPartNumPicked,
    .leftClearedFirst = false,
    .typingWants = false, // a part number that is typed and saved at once stays as typed if no row was ever chosen
    .leavingAsksWanted = false,
    .applyingEndsIt = false,
    .nameFromCatalogue = true,
    .leavingSearches = true, // scanners leave at once
    .busyPointer = true,
    .paintsRefilled = true,
};

const LookUpBoxes::Kind LookUpBoxes::kProductName = {
    .combo = "cboProductName",
    .timer = "tmrProdLkp",
    .changeLabel = "KTVOrvanProduct.frmProduct::cboProductName_Change",
    .clickLabel = "KTVOrvanProduct.frmProduct::cboProductName_Click",
    .keyPressLabel = "KTVOrvanProduct.frmProduct::cboProductName_KeyPress",
    .timerLabel = "KTVOrvanProduct.frmProduct::tmrProdLkp_Timer",
    .getList = &ProductLkpMgr::GetProductNameList,
    .left = &State::bNameBoxLeft,
    .wanted = &State::bNameLkpPending,
    .leftClearedFirst = true,
    .typingWants = true,
    .leavingAsksWanted = true,
    .applyingEndsIt = true,
    .nameFromCatalogue = false, // the user may have worded the name differently
    .leavingSearches = false,
    .busyPointer = false,
    .paintsRefilled = false,
};

LookUpBoxes::LookUpBoxes(EditorSession& session, ui::Surface& surface)
    : session_(session), surface_(surface), partNum_(takeBox(kPartNum)), productName_(takeBox(kProductName))
{
    takeEvents(partNum_);
    takeEvents(productName_);
}

LookUpBoxes::Box LookUpBoxes::takeBox(const Kind& kind) const
{
    return {kind, surface_.control<ui::ComboBox>(kind.combo), surface_.control<ui::Timer>(kind.timer)};
}

void LookUpBoxes::takeEvents(const Box& box)
{
    handlers_.set(box.combo.onChange, [this, &box] { changed(box); });
    handlers_.set(box.combo.onClick, [this, &box] { clicked(box); });
    handlers_.set(box.combo.onKeyPress, [this, &box](std::int16_t& KeyAscii) { keyPressed(box, KeyAscii); });
    handlers_.set(box.combo.onLostFocus, [this, &box] {
        box.combo.setRemark({});
        lostFocus(box);
    });
    handlers_.set(box.combo.onShowColumns, [this, &box](std::int32_t row, std::vector<std::string>& columns) {
        showColumns(box, row, columns);
    });
    handlers_.set(box.timer.onTimer, [this, &box] { timerFired(box); });
}

// --- the boxes' events ------------------------------------------------------------------------------

void LookUpBoxes::changed(const Box& box)
{
    session_.handleEvent(box.kind.changeLabel, [&] {
        if (session_.initializing) {
            return Leaving::withoutExit; // deliberate: while a product is loaded, only the entry is traced
        }
        if (session_.showingProduct && differs(session_.platform(), Deviation::onlyUserTextIsLookedUp)) {
            return Leaving::withoutExit;
        }
        if (box.kind.leftClearedFirst) {
            state_.*box.kind.left = false;
            session_.PrvSetDirty(true);
        } else {
            session_.PrvSetDirty(true);
            state_.*box.kind.left = false;
        }
        if (!state_.bLkpBusy) {
            box.combo.setRemark({});
            if (box.kind.typingWants) {
                state_.*box.kind.wanted = true;
            }
            if (box.timer.enabled()) {
                box.timer.setEnabled(false);
                state_.bLkpTimerRestarted = true;
            }
            box.timer.setInterval(kPause);
            box.timer.setEnabled(true);
        }
        return Leaving::withExit;
    });
}

void LookUpBoxes::clicked(const Box& box)
{
    session_.handleEvent(box.kind.clickLabel, [&] {
        if (box.combo.listIndex() >= 0) {
            box.combo.setRemark({});
            makePending(box, box.combo.listIndex());
            state_.*box.kind.wanted = true;
            session_.PrvSetDirty(true);
        }
    });
}

void LookUpBoxes::keyPressed(const Box& box, std::int16_t KeyAscii)
{
    traceResume(box.kind.keyPressLabel, [&](const auto& step) {
        step([&] {
            if (KeyAscii == kEnter) { // KeyAscii is not set to 0, so the box gets the key, too
                lostFocus(box);
            }
        });
    });
}

// --- leaving a box: the pending entry is applied ----------------------------------------------------

// Called when the focus leaves the box, when the user presses Enter in it, and before a save. It is not traced, and a
// step that fails is skipped, so that the user can always leave a box. Where IsEOF fails, an entry is taken to be
// there.
void LookUpBoxes::lostFocus(const Box& box)
{
    state_.*box.kind.left = true;
    const bool waits = box.timer.enabled() && box.timer.interval() > 0;
    if (waits && box.kind.leavingSearches && differs(session_.platform(), Deviation::partNumberIsSearchedOnLeaving)) {
        searchOnLeaving(box);
        return;
    }
    if (!pendingRowIsFor(box)) {
        forgetPendingRow();
    }
    if (state_.lLkpListIdx < 0 || (box.kind.leavingAsksWanted && !(state_.*box.kind.wanted))) {
        return;
    }
    seekAndApply(box, [&] { return box.combo.itemData(state_.lLkpListIdx); });
}

void LookUpBoxes::seekAndApply(const Box& box, const std::function<std::int32_t()>& itemId)
{
    const ResumeNext<false> step;
    const ScopedFlag busy(state_.bLkpBusy);
    std::int32_t sought = -1;
    step([&] { catalogue()->SeekItem(sought = itemId()); });
    bool noEntry = false;
    step([&] { noEntry = catalogue()->IsEOF(); });
    if (!noEntry) { // otherwise the row stays pending, and the next time that the box is left tries it again
        applyEntry(box, sought);
    }
}

void LookUpBoxes::searchOnLeaving(const Box& box)
{
    const ResumeNext<false> step;
    forgetPendingRow(); // it belongs to a text that has been typed over
    std::optional<std::int32_t> found;
    step([&] {
        box.timer.setEnabled(false);
        const LookUpList rows = list(box, box.combo.text(), false);
        found = entryFor(rows, box.combo.text());
    });
    if (found) {
        seekAndApply(box, [&] { return *found; });
    }
}

void LookUpBoxes::makePending(const Box& box, std::int32_t row)
{
    state_.lLkpListIdx = row;
    pendingBox_ = &box;
}

bool LookUpBoxes::pendingRowIsFor(const Box& box) const
{
    const ui::Platform& platform = session_.platform();
    if (pendingBox_ != &box && differs(platform, Deviation::pendingRowBelongsToItsBox)) {
        return false;
    }
    const std::int32_t row = state_.lLkpListIdx;
    return row < 0 || !differs(platform, Deviation::pendingRowMatchesTheText) ||
           (row < box.combo.count() && beginsWith(box.combo.itemText(row), box.combo.text()));
}

// While the note question waits, the form may be unloaded and the session end: the steps that need the form or
// the session then fail, too, and are skipped.
void LookUpBoxes::applyEntry(const Box& box, std::int32_t itemId)
{
    const ResumeNext<false> step;
    const ScopedFlag applying(applying_);
    // A column that cannot be read is applied as 0 or an empty text.
    Currency unitPrice;
    std::string partNum, key, note, name;
    step([&] {
        const LookUpValue value = field(LookUpColumn::unitPrice);
        unitPrice = toCurrency(value, session_.platform().locale());
    });
    step([&] { partNum = toText(field(LookUpColumn::partNum)); });
    step([&] { key = toText(field(LookUpColumn::key)); });
    step([&] { note = toText(field(LookUpColumn::note)); });
    if (box.kind.nameFromCatalogue) {
        step([&] { name = toText(field(LookUpColumn::name)); });
    } else {
        name = box.combo.text();
    }
    step([&] { session_.currentProduct()->SetName(name); });
    step([&] { session_.currentProduct()->SetKey(key); });
    step([&] { session_.currentProduct()->SetPartNum(partNum); });
    step([&] { session_.currentProduct()->SetUnitPrice(unitPrice); });
    bool ask = true; // stays true where the product's note cannot be read, because there may be one
    step([&] { ask = !session_.currentProduct()->Note().empty(); });
    bool takeNote = true; // stays true where the question itself fails
    if (ask) {
        step([&] { takeNote = wantsNote(itemId); });
    }
    if (takeNote) {
        step([&] { session_.currentProduct()->SetNote(note); });
    }
    step([&] { box.combo.setSelectionStart(0); });
    step([&] { box.combo.setSelectionLength(0); });
    state_.lLkpListIdx = -1;
    if (box.kind.applyingEndsIt) {
        state_.*box.kind.wanted = false;
    }
    step([&] { session_.PrvLoadProductInfo(); });
    if (differs(session_.platform(), Deviation::appliedNameIsPricedAnew)) {
        step([&] { session_.priceAnew(); });
    }
}

bool LookUpBoxes::wantsNote(std::int32_t itemId)
{
    const bool once = differs(session_.platform(), Deviation::noteIsAskedAboutOnce);
    if (once && std::find(askedAbout_.begin(), askedAbout_.end(), itemId) != askedAbout_.end()) {
        return false;
    }
    if (once) {
        askedAbout_.push_back(itemId);
    }
    return session_.platform().messageBox().show(
               {.text = userText("Would you like to overwrite the current contents of the "
                                 "product note field with the contents from the product "
                                 "look-up?"),
                .buttons = ui::MessageButtons::yesNo,
                .icon = ui::MessageIcon::question,
                .ownerWindow = session_.window(),
                .ignoresTypeAhead = once}) == ui::MessageResult::yes;
}

void LookUpBoxes::forgetFormerText()
{
    if (!applying_) {
        askedAbout_.clear();
    }
    productName_.combo.setRemark({});
    partNum_.combo.setRemark({});
    if (differs(session_.platform(), Deviation::onlyUserTextIsLookedUp)) {
        for (const Box* box : {&productName_, &partNum_}) {
            box->timer.setEnabled(false);
            state_.*box->kind.left = true;
        }
    }
    if (differs(session_.platform(), Deviation::pendingRowBelongsToItsBox)) {
        forgetPendingRow();
    }
}

void LookUpBoxes::finishPendingLookUps()
{
    for (const Box* box : {&productName_, &partNum_}) {
        if (state_.*box->kind.wanted && !(state_.*box->kind.left)) {
            timerFired(*box);
            lostFocus(*box);
        }
    }
}

// --- the catalogue ----------------------------------------------------------------------------------

std::shared_ptr<ProductLkpMgr> LookUpBoxes::catalogue() const
{
    if (!productLkpMgr) {
        throw RuntimeError(ErrorNumber::objectNotSet);
    }
    return productLkpMgr;
}

LookUpList LookUpBoxes::list(const Box& box, std::string_view typed, bool all) const
{
    const std::string text(typed); // a copy, because the catalogue's code may change the box that `typed` comes from
    const auto asked = catalogue();
    LookUpList rows = ((*asked).*box.kind.getList)(text, all);
    if (rows && rows->empty()) {
        rows.reset();
    }
    return rows;
}

LookUpValue LookUpBoxes::field(LookUpColumn column) const
{
    return catalogue()->GetFieldValue(static_cast<std::int32_t>(column));
}

} // namespace orvan
