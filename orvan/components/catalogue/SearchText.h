// SearchText: the form in which the catalogue's search compares texts, and the pieces that its index holds.
//
// The form has no capitals, diacritics, dashes, blanks or other signs, but letters and digits alone: "Écrou-M8 x 20"
// becomes "ecroum8x20". The index holds the pieces of three characters that occur in it. Two characters that begin
// a word are a piece, too, with a mark in front. A text of several words is searched for by the pieces of each word.
// Thread: any.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvan {

/// The words of a text in the compared form, in their order. A dash or another sign within a word does not divide it.
[[nodiscard]] std::vector<std::string> searchWords(std::string_view text);
/// The whole text in the compared form, without blanks.
[[nodiscard]] std::string searchForm(std::string_view text);

/// Appends each piece of the text, and a blank behind it.
void appendPieces(std::string_view text, std::string& pieces);
/// The pieces that each text with this word has; none for a word of one character. A text that has them all need not
/// have the word.
[[nodiscard]] std::vector<std::string> piecesOf(std::string_view word);

/// Appends the words by which a typing error is found, each with a blank behind it: those that blanks or other signs
/// divide, and those that blanks alone divide.
void appendVocabulary(std::string_view text, std::string& words);

} // namespace orvan
