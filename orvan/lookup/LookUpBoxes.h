// LookUpBoxes: the editor's part-number and name boxes, which search the catalogue while the user types.
//
// Typing starts a box's timer; when the user has paused, the timer's procedure completes the text
// with the best match and makes that match pending; leaving the box, or Enter, copies the pending
// entry into the session's current product. One implementation serves both boxes; where they differ,
// they differ on purpose, and the differences stand side by side in one table (orvan/lookup/LookUpBoxes.cpp).
//
// Ownership: the editor; the session and the surface outlive it. Thread: the user-interface thread.
// Errors: event handlers and timers close the dialog; leaving a box never fails.
#pragma once

#include "orvan/core/EditorSession.h"
#include "orvan/lookup/LookUpValue.h"

namespace orvan {

namespace ui {
class ComboBox;
class Surface;
class Timer;
} // namespace ui

class LookUpBoxes {
public:
    /// What the handlers leave for each other and for the save.
    struct State {
        bool bLkpBusy = false;           ///< The program itself changes a box: no search is due.
        bool bLkpTimerRestarted = false; ///< A record for support; nothing reads it.
        std::int32_t lLkpListIdx = -1;   ///< The list row whose entry is pending; one for both boxes; -1: none.
        bool bNameLkpPending = false;    ///< Name typed or chosen, and no entry applied since.
        bool bPartNumPicked = false;     ///< A row of the part numbers was chosen, once and for all.
        bool bNameBoxLeft = false;       ///< No change since the box was left.
        bool bPartNumBoxLeft = false;
    };

    /// Takes the boxes and timers of kProductFormDesign (orvan/editor/frmProductDesign.h) and their events.
    LookUpBoxes(EditorSession& session, ui::Surface& surface);
    LookUpBoxes(const LookUpBoxes&) = delete;
    LookUpBoxes& operator=(const LookUpBoxes&) = delete;

    /// The session's set-up: no row is pending.
    void forgetPendingRow() { state_.lLkpListIdx = -1; }
    /// Fill the lists once, on an empty form. They raise what the catalogue raises.
    void PrvFillProductNameList() { fillList(productName_); }
    void PrvFillPartNumList() { fillList(partNum_); }
    /// Before a save: searches and leaves a box that was changed and not left since, the name's first.
    /// Never raises; an error of the search has closed the dialog.
    void finishPendingLookUps();

    const State& state() const { return state_; }

    std::shared_ptr<ProductLkpMgr> objLkpMgr; ///< Made by the editor for the session.

private:
    /// A row of the table of differences.
    struct Kind;
    struct Box {
        const Kind& kind;
        ui::ComboBox& combo;
        ui::Timer& timer;
    };

    static const Kind kPartNum;
    static const Kind kProductName;

    Box takeBox(const Kind& kind) const;
    void connect(const Box& box);

    /// The handlers; their labels, by which the trace knows them, stand in the table.
    void changed(const Box& box);
    void clicked(const Box& box);
    void keyPressed(const Box& box, std::int16_t iKeyAscii);
    void lostFocus(const Box& box);
    void timerFired(const Box& box);

    /// Takes an entry's columns into the current product; each failing step is skipped.
    void applyEntry(const Box& box);
    /// Whether the user wants the catalogue's note in place of the product's own.
    bool wantsNote();

    void fillList(const Box& box);
    void showMatches(const Box& box, const std::vector<LookUpRow>& rows);
    void showWholeList(const Box& box);
    static void addRows(const Box& box, const std::vector<LookUpRow>& rows);

    /// The catalogue, held for the length of a call, which may end the session. Raises 91 for none.
    std::shared_ptr<ProductLkpMgr> catalogue() const;
    LookUpList list(const Box& box, const std::string& sText, bool bAll) const;
    LookUpValue field(LookUpColumn column) const;

    EditorSession& session_;
    ui::Surface& surface_;
    Box partNum_;
    Box productName_;
    State state_;
};

} // namespace orvan
