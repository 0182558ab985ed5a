// CaseFolding: texts without their letters' case, for letters of any script.
//
// Full case folding as the Unicode standard defines it, in no locale: one character may become
// several ("ß" becomes "ss", the ligature "ﬁ" becomes "fi"), both forms of the Greek sigma become one,
// "I" becomes "i" for Turks too and "İ" becomes "i" with a dot above. It works on each character alone,
// so the folding of a text's beginning is the beginning of its folding. Accents stay; a composed "é" and
// one of two characters are not the same. A character's folding never changes once it is in the
// standard: what was folded years ago, into a file, still compares. Thread: any.
#pragma once

#include <string>
#include <string_view>

namespace orvan {

/// Bytes that are not UTF-8 become U+FFFD.
[[nodiscard]] std::string foldCase(std::string_view text);
/// As foldCase, into memory used before.
void foldCase(std::string_view text, std::string& folded);

[[nodiscard]] bool isUtf8(std::string_view text);

/// `text` with `typed` in place of the beginning that it shares with `typed` but for the case. Where the
/// shared beginning ends within the folding of a character, the rest of that folding follows: "Straße"
/// for the typed "STRAS" is "STRASse". So the result always begins with `typed` and is never shorter.
/// Requires that foldCase(text) begins with foldCase(typed).
[[nodiscard]] std::string withTypedBeginning(std::string_view text, std::string_view typed);

} // namespace orvan
