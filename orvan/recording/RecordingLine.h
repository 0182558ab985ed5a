// RecordingLine: a line of a recording, and its text.
//
// A recording is a text file, UTF-8, one line for each thing that happened, in the order in which it happened:
//
//     orvan-recording 1 "2.1.31" editing=careful manager=own 1048576
//     +0 1 - created 0 0 ""                     event: milliseconds since the event before, surface, control (or "-"),
//     kind,
//                                               two numbers, a text; see orvan/ui/EventTap.h
//     ~0 1 - fitted 0 0 ""                      the same, while the logic works on another event
//       enter KTVOrvanProduct.ProductView::Show     what the trace is told
//       exit KTVOrvanProduct.ProductView::Show
//       error 91 "Object variable not set"
//       call settings.get "Orvan" "ProductView" "frmQuote" = "3~0~1200^960"     a call out of the library, and its
//       answer call catalogue.SeekItem 12 ! 1000 "disk" "Acme"       the same, and the error that it raised: number,
//       text, source call box.show "Delete the product?" "Orvan" 1 1       a call during which events followed
//     +840 1 - products 0 0 ""
//       returns "..."                           what the host got from its event; "raises 14" if that was an error
//       done = 6                                the answer of the call that is open ("done ! ..." for an error)
//       form 2                                  a form is shown, until it is closed
//       closed
//       measure page 12                         a measure of the screen, which the logic has asked for
//       know locale.appendCurrency 12.5000 2 = "$12.50"       the answer to a question that changes nothing and may be
//       asked
//                                               at any time, as for painting; only the first of equal ones is written
//
// Values are whole numbers, amounts with four decimals, doubles behind a "d", "null", and texts in quotation marks, in
// which \\, \", \n, \r, \t and \xNN stand for what a line cannot hold. The indentation says nothing.
// Thread: any. Errors: a text that is no line raises 321, and the description says what is wrong.
#pragma once

#include "orvan/base/RuntimeError.h"
#include "orvan/catalogue_export.h"
#include "orvan/outside/CallWatch.h"
#include "orvan/ui/EventTap.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace orvan::recording {

inline constexpr int kVersion = 1;

struct EventLine {
    std::int64_t milliseconds = 0; ///< Since the event before.
    bool nested = false;
    int surface = 0; ///< Numbered from 1 in the order in which they came.
    std::string control = {};
    ui::Event event = {}; ///< Its `control` is not set: see above.
};
struct TraceLine {
    enum class What { enter, exit, error } what = What::enter;
    std::string text = {}; ///< The label, or the error's text.
    std::int32_t number = 0;
};
/// What a call gave: values, or an error. `open` while events follow before it has given anything.
struct Outcome {
    enum class What { open, values, error } what = What::open;
    outside::CallValues values = {};
    RuntimeError error = RuntimeError(0);
};
struct CallLine {
    std::string name = {};
    outside::CallValues arguments = {};
    Outcome outcome = {};
    bool knowledge = false; ///< A line that begins with "know".
};
struct DoneLine {
    Outcome outcome = {};
};
struct FormLine {
    int surface = 0;
};
struct ClosedLine {};
struct MeasureLine {
    std::string what = {};
    std::int32_t value = 0;
};
struct ReturnsLine {
    Outcome outcome = {};
};

using Line = std::variant<EventLine, TraceLine, CallLine, DoneLine, FormLine, ClosedLine, MeasureLine, ReturnsLine>;

/// Without a line end.
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL std::string lineText(const Line& line);
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL Line lineOfText(std::string_view text);

/// The text in quotation marks.
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL std::string quoted(std::string_view text);

/// The first line.
struct Heading {
    std::string libraryVersion = {};
    bool careful = false;
    /// Whether the manager was the library's own. If it was, a recording has the lists, and not the manager's answers.
    bool ownManager = true;
    std::int32_t maxDataSize = 0; ///< Of the library's own manager, in bytes.
};
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL std::string headingText(const Heading& heading);
/// Raises 321 for a text that is no heading, and for a recording of a later version.
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL Heading headingOfText(std::string_view text);

} // namespace orvan::recording
