// EditingWay: which of the two ways of editing a host asks for.
//
// The table in orvan/core/Deviations.h says in what the two ways differ, and why.
#pragma once

namespace orvan::ui {

enum class EditingWay {
    classic, ///< The default: does what existing hosts and their traces rely on.
    careful, ///< Leaves values alone that the user did not edit, and asks before edits are lost.
};

} // namespace orvan::ui
