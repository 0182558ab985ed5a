// CaseFolding: removes the difference between capital and small letters from a text, for letters of any script.
//
// This is full case folding as the Unicode standard defines it, the same in every locale: one character may become
// several ("ß" becomes "ss", the ligature "ﬁ" becomes "fi"), both forms of the Greek sigma become one, "I" becomes "i"
// even in a Turkish locale, and "İ" becomes "i" with a dot above. Each character is folded alone, so the folding of a
// text's beginning is the beginning of the text's folding. Accents stay; an "é" of one character and an "é" of two
// characters stay different. The standard never changes the folding of a character, so texts that were folded years
// ago, and stored in a file, can still be compared. Thread: any.
#pragma once

#include "orvan/catalogue_export.h"

#include <string>
#include <string_view>

namespace orvan {

/// Bytes that are not UTF-8 become U+FFFD.
[[nodiscard]] std::string foldCase(std::string_view text);
/// The same, but writes into `folded`, whose memory is reused.
void foldCase(std::string_view text, std::string& folded);

[[nodiscard]] ORVAN_CATALOGUE_INTERNAL bool isUtf8(std::string_view text);

/// Returns `text` with its beginning, which equals `typed` except for the case, replaced by `typed`. Where that
/// beginning ends within the folding of a character, the rest of the folding follows: "Straße" for the typed "STRAS"
/// becomes "STRASse". So the result always begins with `typed`. Requires that foldCase(text) begins with
/// foldCase(typed).
[[nodiscard]] std::string withTypedBeginning(std::string_view text, std::string_view typed);

} // namespace orvan
