// LookUpBoxes: the editor's part-number and name boxes, which search the catalogue while the user types.
//
// Typing starts a box's timer; when the user has paused, the timer's procedure completes the text
// with the best match and makes that match pending; leaving the box, or Enter, copies the pending
// entry into the session's current product. One implementation serves both boxes; where they differ,
// they differ on purpose, and the differences stand side by side in one table (orvan/lookup/LookUpBoxes.cpp).
// How the boxes show a product, and save it, is the business of the fields.
//
// Rows of a list count from 0; the wait is in milliseconds. Ownership: the editor; the session and the surface
// outlive it. Thread: the user-interface thread. Errors: event handlers and timers close the dialog; leaving a
// box never fails.
#pragma once

#include "orvan/base/ScopedHandlers.h"
#include "orvan/core/EditorSession.h"
#include "orvan/lookup/LookUpValue.h"

#include <functional>

namespace orvan {

namespace ui {
class ComboBox;
class Surface;
class Timer;
} // namespace ui

class LookUpBoxes {
public:
    /// What the handlers tell each other and the save.
    struct State {
        bool bLkpBusy = false;           ///< The program itself changes a box: the change starts no search.
        bool bLkpTimerRestarted = false; ///< A change found its timer running. For support; nothing reads it.
        std::int32_t lLkpListIdx = -1;   ///< The list row whose entry is pending; one for both boxes; -1: none.
        bool bNameLkpPending = false;    ///< Name typed or chosen, and no entry applied since.
        bool bPartNumPicked = false;     ///< A row of the part numbers was chosen once; never cleared.
        bool bNameBoxLeft = false;       ///< No change since the box was left.
        bool bPartNumBoxLeft = false;
    };

    /// Takes the boxes and timers of kProductFormDesign (orvan/editor/frmProductDesign.h) and their events.
    LookUpBoxes(EditorSession& session, ui::Surface& surface);
    LookUpBoxes(const LookUpBoxes&) = delete;
    LookUpBoxes& operator=(const LookUpBoxes&) = delete;

    /// The session's set-up: no row is pending.
    void forgetPendingRow() { state_.lLkpListIdx = -1; }
    /// A product is about to be shown: what was typed before belongs to the former text of the boxes.
    void forgetFormerText();
    /// They fill the lists once, on an empty form, and raise what the catalogue raises.
    void PrvFillProductNameList() { fillList(productName_); }
    void PrvFillPartNumList() { fillList(partNum_); }
    /// Before a save: searches and leaves a box that was changed and not left since, the name's first.
    /// Never raises; an error of the search has closed the dialog.
    void finishPendingLookUps();

    [[nodiscard]] const State& state() const { return state_; }

    std::shared_ptr<ProductLkpMgr> productLkpMgr; ///< Made by the editor for the session.

private:
    /// What sets one box apart from the other.
    struct Kind;
    struct Box {
        const Kind& kind;
        ui::ComboBox& combo;
        ui::Timer& timer;
    };

    static const Kind kPartNum;
    static const Kind kProductName;

    Box takeBox(const Kind& kind) const;
    void takeEvents(const Box& box);

    void changed(const Box& box);                           ///< cboPartNum_Change, cboProductName_Change
    void clicked(const Box& box);                           ///< cboPartNum_Click, cboProductName_Click
    void keyPressed(const Box& box, std::int16_t KeyAscii); ///< cboPartNum_KeyPress, cboProductName_KeyPress
    void lostFocus(const Box& box);                         ///< cboPartNum_LostFocus, cboProductName_LostFocus
    void timerFired(const Box& box);                        ///< tmrPartNum_Timer, tmrProdLkp_Timer

    void makePending(const Box& box, std::int32_t row);
    /// Whether leaving this box may apply the pending row, where there is one.
    [[nodiscard]] bool pendingRowIsFor(const Box& box) const;
    /// Makes the entry current and applies it; the id is read within the first step that may fail.
    void seekAndApply(const Box& box, const std::function<std::int32_t()>& itemId);
    /// Applies the entry that the typed text means, where it means one.
    void searchOnLeaving(const Box& box);
    /// Copies the catalogue's current entry into the current product; each failing step is skipped.
    void applyEntry(const Box& box);
    /// Whether the user wants the catalogue's note in place of the product's own.
    [[nodiscard]] bool wantsNote();

    void fillList(const Box& box);
    void showMatches(const Box& box, const std::vector<LookUpRow>& rows);
    void showWholeList(const Box& box);
    static void addRows(const Box& box, const std::vector<LookUpRow>& rows);

    /// The catalogue. Shared, because a call to it may end the session, which lets go of it. Raises 91 for none.
    std::shared_ptr<ProductLkpMgr> catalogue() const;
    /// What begins with `typed`, or everything; none instead of an empty list.
    LookUpList list(const Box& box, const std::string& typed, bool all) const;
    LookUpValue field(LookUpColumn column) const;

    EditorSession& session_;
    ui::Surface& surface_;
    Box partNum_;
    Box productName_;
    State state_;
    const Box* pendingBox_ = nullptr; ///< The box that made the pending row.
    ScopedHandlers handlers_;
};

} // namespace orvan
