// LookUpBoxes: the editor's part-number and name boxes, which search the catalogue while the user types.
//
// Typing starts a box's timer. When the user pauses, the timer's procedure completes the text with the best match,
// whose entry is then pending: when the user leaves the box or presses Enter, the pending entry is copied into the
// session's current product. One implementation serves both boxes. They differ on purpose in a few points, which
// stand side by side in one table (orvan/lookup/LookUpBoxes.cpp). Showing a product in the two boxes and saving their
// texts is done by orvan/fields/FieldEntry.h.
//
// Rows of a list count from 0. Ownership: the editor owns it; the session and the surface outlive it. Thread: the
// user-interface thread. Errors: an error in an event handler or a timer closes the dialog; leaving a box never fails.
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
    /// What one event handler leaves for the others, and for the save, to know.
    struct State {
        bool bLkpBusy = false;           ///< The program itself is changing a box, so the change starts no search.
        bool bLkpTimerRestarted = false; ///< A change restarted a running timer. For support; the code never reads it.
        std::int32_t lLkpListIdx = -1;   ///< The list row whose entry is pending, shared by both boxes; -1 for none.
        bool bNameLkpPending = false;    ///< A name was typed or chosen, and no entry has been applied since.
        bool bPartNumPicked = false;     ///< A row was chosen from the part numbers' list; never cleared.
        bool bNameBoxLeft = false;       ///< The user has left the name box and not changed it since.
        bool bPartNumBoxLeft = false;    ///< The same for the part-number box.
    };

    /// The surface must have the boxes and timers of kProductFormDesign (orvan/editor/frmProductDesign.h).
    LookUpBoxes(EditorSession& session, ui::Surface& surface);
    LookUpBoxes(const LookUpBoxes&) = delete;
    LookUpBoxes& operator=(const LookUpBoxes&) = delete;

    /// Called when the session is set up: no row is pending from then on.
    void forgetPendingRow() { state_.lLkpListIdx = -1; }
    /// A product is about to be shown, perhaps the same one again: what was typed before belongs to the former text of
    /// the boxes.
    void forgetFormerText();
    /// Fill the boxes' lists; called once, while the form is empty. They raise what the catalogue raises.
    void PrvFillProductNameList() { fillList(productName_); }
    void PrvFillPartNumList() { fillList(partNum_); }
    /// Called before a save. For each box that has a look-up to finish and that the user has not left since its last
    /// change, does what the timer and leaving the box would do; the name box comes first. Never raises: an error of
    /// the search closes the dialog instead.
    void finishPendingLookUps();

    [[nodiscard]] const State& state() const { return state_; }

    std::shared_ptr<ProductLkpMgr> productLkpMgr; ///< Made by the editor for the session.

private:
    /// The points in which the two boxes differ.
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
    void applyEntry(const Box& box, std::int32_t itemId);
    /// Whether the user wants the catalogue's note in place of the product's own.
    [[nodiscard]] bool wantsNote(std::int32_t itemId);

    void fillList(const Box& box);
    void showMatches(const Box& box, const std::vector<LookUpRow>& rows);
    void showWholeList(const Box& box);
    static void addRows(const Box& box, const std::vector<LookUpRow>& rows);
    /// What the list that drops down shows of a row: part number, name and price.
    void showColumns(const Box& box, std::int32_t row, std::vector<std::string>& columns) const;
    /// Says beside the text how many entries match it.
    void showMatchCount(const Box& box, std::size_t count) const;

    /// Returns a shared pointer, because a call to the catalogue may end the session, which then releases its own.
    /// Raises 91 where there is no catalogue.
    std::shared_ptr<ProductLkpMgr> catalogue() const;
    /// The entries that begin with `typed`; with `all`, every entry. No list (nullopt) where there are no entries.
    LookUpList list(const Box& box, std::string_view typed, bool all) const;
    LookUpValue field(LookUpColumn column) const;

    EditorSession& session_;
    ui::Surface& surface_;
    Box partNum_;
    Box productName_;
    State state_;
    const Box* pendingBox_ = nullptr;      ///< The box that made the pending row.
    bool applying_ = false;                ///< An entry is being applied to the product that is shown.
    std::vector<std::int32_t> askedAbout_; ///< In the careful way: the entries about whose notes the user was asked
                                           ///< while this product is shown.
    ScopedHandlers handlers_;
};

} // namespace orvan
