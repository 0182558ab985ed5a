// ListWords: words that stand in price lists beside the products, in English, German, French, Spanish, Italian, Dutch,
// Polish, Portuguese, Russian and Turkish. Thread: any.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace orvan {

/// A text in the form in which words and the names of columns are compared: without capitals, accents, blanks and
/// punctuation. "Part-No." and "PART NO" give the same, and "Prix unité" and "prix unite", too.
[[nodiscard]] std::string simplifiedWord(std::string_view text);

/// Calls `use` with each part of a text whose parts are separated by bars; the empty text has none.
template <class Use>
void forEachPart(std::string_view text, Use&& use)
{
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('|'), text.size());
        use(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

enum class ListWords {
    noPrice, ///< "on request", "auf Anfrage"
    total    ///< "Total", "Zwischensumme"
};
[[nodiscard]] bool isWordOf(ListWords words, std::string_view text);

} // namespace orvan
