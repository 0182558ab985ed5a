// KnownProcedures: the procedures of the library whose entries and exits do not pair in the usual way, on purpose.
//
// A procedure reports its entry and then either its exit or an error. These differ, so that a reader of a log has to
// know them. tests/trace_reader checks the table against what the procedures really do.
#pragma once

#include <string_view>

namespace orvan::trace_reader {

enum class Habit {
    usual,
    entryOnly, ///< At times reports its entry alone. It calls no other traced procedure.
    goesOn,    ///< Goes on with its next statement after an error, and then reports its exit as well.
};

struct KnownProcedure {
    std::string_view label;
    Habit habit;
    std::string_view reason;
};

inline constexpr KnownProcedure kKnownProcedures[] = {
    {"KTVOrvanProduct.frmProduct::cboPartNum_Change", Habit::entryOnly,
     "the box is being filled by the program, so there is nothing to look up"},
    {"KTVOrvanProduct.frmProduct::cboProductName_Change", Habit::entryOnly,
     "the box is being filled by the program, so there is nothing to look up"},
    {"KTVOrvanProduct.frmProduct::cboPartNum_KeyPress", Habit::goesOn,
     "a key always reaches the box, whatever applying the entry came to"},
    {"KTVOrvanProduct.frmProduct::cboProductName_KeyPress", Habit::goesOn,
     "a key always reaches the box, whatever applying the entry came to"},
    {"KTVOrvanProduct.frmProduct::cmdCancel_Click", Habit::goesOn,
     "the closing request has this label, too, and a form must be able to close after an error"},
};

[[nodiscard]] constexpr const KnownProcedure* knownProcedure(std::string_view label)
{
    for (const KnownProcedure& known : kKnownProcedures) {
        if (known.label == label) {
            return &known;
        }
    }
    return nullptr;
}

} // namespace orvan::trace_reader
