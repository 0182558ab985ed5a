// LookUpKind: the table of differences between the editor's part-number box and its name box.
//
// For the sources of this folder.
#pragma once

#include "orvan/lookup/LookUpBoxes.h"

namespace orvan {

/// The points in which the two boxes differ. Every difference is deliberate.
struct LookUpBoxes::Kind {
    std::string_view combo;
    std::string_view timer;
    std::string_view changeLabel;
    std::string_view clickLabel;
    std::string_view keyPressLabel;
    std::string_view timerLabel;
    LookUpList (ProductLkpMgr::*getList)(std::string_view, bool);

    bool State::*left; ///< Points to the flag that a change of the box clears and that leaving the box sets.
    bool State::*
        wanted; ///< Points to the flag that choosing a row sets. A save finishes a look-up only where it is set.
    bool leftClearedFirst;  ///< A change clears `left` before it marks the session dirty; if false, after it.
    bool typingWants;       ///< Typing sets `wanted`, as choosing a row does.
    bool leavingAsksWanted; ///< Leaving the box applies the pending entry only where `wanted` is set.
    bool applyingEndsIt;    ///< Applying an entry clears `wanted`; nothing does so otherwise.
    bool nameFromCatalogue; ///< The product is named by the entry, not by what the box shows.
    bool leavingSearches;   ///< In the careful way, leaving the box searches what was typed within the pause.
    bool busyPointer;       ///< The search shows the busy pointer.
    bool paintsRefilled;    ///< The search paints the refilled list at once.
};

} // namespace orvan
