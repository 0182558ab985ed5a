// Deviations: everything in which the careful way of editing differs from the classic one.
//
// The classic way stays the default, because hosts rely on it: they compare traces, and their users know it.
// But in some cases it loses the data of users. A host that asks for the careful way (HostOptions::editing in
// orvan/hosting/Host.h) gets all of the deviations below. A procedure that differs asks the table:
//
//     if (differs(platform, Deviation::deletingMarksDirty)) { ... }
//
// Thread: any.
#pragma once

#include "orvan/ui/Platform.h"

#include <cstddef>
#include <iterator>
#include <string_view>

namespace orvan {

enum class Deviation {
    onlyUserTextIsLookedUp,
    pendingRowBelongsToItsBox,
    pendingRowMatchesTheText,
    appliedNameIsPricedAnew,
    openingChangesNothing,
    unvisitedPriceIsKept,
    partNumberIsSearchedOnLeaving,
    deletingMarksDirty,
    savedSessionCloses,
    failedSaveAsksAgain,
    revertQuestionSaysWhatIsLost,
    lookUpGoesOnAfterAnError,
    sizeCheckTellsOtherErrors,
    failedRevertKeepsTheForm,
    gridShowsTheUsersMoney,
    failedRefreshShowsFormerRows,
    halfShownProductIsNotSaved,
    noteIsAskedAboutOnce,
};

struct DeviationRow {
    Deviation deviation;
    std::string_view classic;
    std::string_view careful; ///< What is different, and why.
};

inline constexpr DeviationRow kDeviations[] = {
    {Deviation::onlyUserTextIsLookedUp,
     "A text that the program writes into a look-up box (a product loaded after Delete or New) arms the look-up, and "
     "the next save looks it up.",
     "Only what the user typed or picked is looked up: otherwise the next product's name, price and part number are "
     "replaced by the catalogue's."},
    {Deviation::pendingRowBelongsToItsBox,
     "A pending row is applied to whatever product is shown, and by whichever box is left.",
     "A pending row belongs to its box and its product, and is forgotten with them: otherwise another product gets "
     "it."},
    {Deviation::pendingRowMatchesTheText,
     "After more typing, a box that is left before the timer applies the former completion.",
     "What is applied begins with what the box shows, or is the typed text: otherwise the user gets a product that "
     "the box does not show."},
    {Deviation::appliedNameIsPricedAnew,
     "A name that Next or Last applies is saved with the old extended price beside the new unit price.",
     "The extended price is computed anew before the product is saved: otherwise the total is wrong."},
    {Deviation::openingChangesNothing,
     "Opening and cancelling rounds unit prices and changes signs and discounts, while Dirty stays False.",
     "The list is byte for byte what it was: nobody has changed anything."},
    {Deviation::unvisitedPriceIsKept,
     "The next save rounds a unit price with more than two decimals that nobody edited; the extended price stays "
     "that of the unrounded one.",
     "The unit price is kept as it is: nobody has changed it."},
    {Deviation::partNumberIsSearchedOnLeaving,
     "A part number that is typed and left within the half second is not looked up.",
     "It is searched when the box is left, and applied where one entry has exactly that number or is the only one that "
     "begins so: scanners and quick typists leave sooner."},
    {Deviation::deletingMarksDirty,
     "Deleting leaves Dirty as it was, and deleting the only product closes the editor without a question.",
     "Deleting marks the session dirty, so that closing asks whether to save: a product is gone."},
    {Deviation::savedSessionCloses,
     "Save & Close asks once more whether to save when it has saved, and No throws the session away.",
     "Save & Close closes when it has saved: the user has answered by pressing it."},
    {Deviation::failedSaveAsksAgain, "After Yes and a save that failed, the next closing asks nothing and closes.",
     "The next closing asks again: the user's work is not saved."},
    {Deviation::revertQuestionSaysWhatIsLost, "The question before No speaks of the product information.",
     "It says that the whole list goes back to what it was, and how many products differ: more than the product shown "
     "is lost."},
    {Deviation::lookUpGoesOnAfterAnError,
     "After an error in a look-up and Cancel, nothing is looked up for the rest of the session.",
     "The next text is looked up again: the error may have passed."},
    {Deviation::sizeCheckTellsOtherErrors,
     "Any error of the manager in the size check is told as a list that is too large.",
     "That text is shown for the limit alone (error 14), the error's own text otherwise: a user who is told to shorten "
     "notes would shorten them in vain."},
    {Deviation::failedRevertKeepsTheForm,
     "When the user answers No and the restoring fails, the form closes with the edits.",
     "The form stays and says so: the list is not what the user asked for."},
    {Deviation::gridShowsTheUsersMoney, "The grid's amounts have a literal dollar sign.",
     "They have the user's own money, as the total has it. Decimals stay where they are zero, because in a column they "
     "stand below each other."},
    {Deviation::failedRefreshShowsFormerRows,
     "A refresh of the list that fails leaves redrawing off until the next one.",
     "The former rows are shown again: a list that does not react looks like a crash."},
    {Deviation::halfShownProductIsNotSaved,
     "After an error while a product is loaded, the boxes still show the former one and are saved into this one.",
     "Nothing is saved until a product is shown whole: otherwise one product is overwritten with another."},
    {Deviation::noteIsAskedAboutOnce,
     "Each time that an entry is applied to a product with a note, the user is asked about the note, and a key that "
     "was typed for another box answers.",
     "The user is asked once for an entry while a product is shown; after that the product's note stays. Keys answer "
     "only when the question has been seen: otherwise quick typists lose their note."},
};

namespace detail {

/// Whether the table has one row for each deviation, in the order of the enumeration.
constexpr bool deviationsAreComplete()
{
    for (std::size_t i = 0; i < std::size(kDeviations); ++i) {
        if (kDeviations[i].deviation != static_cast<Deviation>(i)) {
            return false;
        }
    }
    return std::size(kDeviations) == static_cast<std::size_t>(Deviation::noteIsAskedAboutOnce) + 1;
}
static_assert(deviationsAreComplete());

} // namespace detail

/// Whether the platform's host asks for this deviation.
[[nodiscard]] inline bool differs(const ui::Platform& platform, Deviation /*deviation*/)
{
    return platform.editing == ui::EditingWay::careful; // the careful way always has all deviations
}

} // namespace orvan
