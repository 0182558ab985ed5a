// CatalogueWords: finds entries by words that stand anywhere in their name, part number, barcode or note, by codes
// without their dashes, and by words with a typing error.
//
// Words are compared as SearchText.h says. The results are in the order of the names. Thread: one at a time. Errors:
// those of SqliteFile.h.
#pragma once

#include "orvan/components/catalogue/CatalogueLayers.h"
#include "orvan/lookup/ProductLkpMgr.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace orvan {

class CatalogueWords {
public:
    /// The files have the present form, and outlive this object.
    explicit CatalogueWords(const CatalogueLayers& layers);
    ~CatalogueWords();

    /// Appends the entries that have each of the typed words and a text of this kind, but not those that the list
    /// already has; so that it has `most` rows at most.
    void addWords(LookUpText text, std::string_view typed, std::size_t most, std::vector<ListedRow>& rows);
    /// The same for entries that have each word once an error of typing is taken back: one character that is wrong,
    /// missing or too many, or two that have changed places.
    void addNearMisses(LookUpText text, std::string_view typed, std::size_t most, std::vector<ListedRow>& rows);
    /// The ids of the entries whose part number or barcode is what was typed, but for dashes, blanks and case. Two at
    /// most.
    [[nodiscard]] std::vector<std::int64_t> withCode(std::string_view typed);

private:
    struct Candidate;
    struct Layer;
    using Words = std::vector<std::string>;
    struct Alternative {
        Words words;
        /// The position in `words` of the word in which a typing error was corrected. At least one word of the
        /// catalogue begins with it.
        std::optional<std::size_t> corrected = {};
        bool hasDigits = false; ///< Whether those words of the catalogue have digits.
    };
    using Ranks = std::unordered_set<std::int64_t>;

    /// Calls `take` with each entry of a layer that has each of the words of an alternative, until it returns false.
    /// Entries at the ranks of `listed` are left out, without being read.
    template <class Take>
    void find(Layer& layer, const std::vector<Alternative>& alternatives, const Ranks& listed, Take&& take);
    /// The entry at this rank; none if a layer above hides it.
    [[nodiscard]] std::optional<Candidate> read(Layer& layer, std::int64_t rank);
    void add(LookUpText text, const std::vector<Alternative>& alternatives, std::size_t most,
             std::vector<ListedRow>& rows);
    /// The beginnings of words in the catalogue that differ from the word by one typing error.
    [[nodiscard]] std::vector<std::string> corrections(const std::string& word);
    /// The first word of the catalogue, with digits or without, that is not before this text; empty if there is none.
    [[nodiscard]] std::string wordFrom(bool hasDigits, std::string_view text);
    /// The index's query: the entries that have the pieces of one of the alternatives. Empty if one has no pieces.
    [[nodiscard]] std::string queryFor(Layer& layer, const std::vector<const Alternative*>& alternatives);
    /// Appends the ranks of the entries that have a word which begins with the corrected one. The table of words says
    /// which entry has a word only where no other entry has it. Where one of the words belongs to several entries, the
    /// function appends nothing and returns false.
    [[nodiscard]] bool addRanks(Layer& layer, const Alternative& alternative, std::vector<std::int64_t>& ranks);
    /// The pieces by which the index excludes most entries that do not have all the words: of each word the one that
    /// the fewest entries have, and then others that few entries have. None if no entry has one of the pieces.
    [[nodiscard]] std::vector<std::string> telling(Layer& layer, const Words& words);

    const CatalogueLayers& layers_;
    std::vector<std::unique_ptr<Layer>> files_; ///< One for each layer.
};

} // namespace orvan
