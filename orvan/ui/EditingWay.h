// EditingWay: which of the two ways of editing a host asks for.
//
// In what they differ, and why, stands in one table: orvan/core/Deviations.h.
#pragma once

namespace orvan::ui {

enum class EditingWay {
    classic, ///< What hosts know by their traces. The default.
    careful, ///< Protects what nobody typed; asks before something is lost.
};

} // namespace orvan::ui
